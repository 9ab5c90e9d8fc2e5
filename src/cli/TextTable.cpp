#include "cli/TextTable.h"

#include "cli/DisplayWidth.h"

#include <algorithm>
#include <numeric>

namespace
{

constexpr int spaceBetween = 2;
constexpr int narrowestColumn = 4;

QString withoutSpacesAtEnd(QString text)
{
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

} // namespace

void TextTable::addRow(const QStringList &cells)
{
    QStringList row;
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        row += DisplayWidth::printable(cells.value(static_cast<qsizetype>(i)));
    m_rows.push_back(row);
}

QStringList TextTable::lines(int width) const
{
    const std::vector<int> widths = columnWidths(width);
    QStringList result;
    if (hasTitles()) {
        QStringList titles;
        for (const Column &column : m_columns)
            titles += column.title;
        result += line(titles, widths);
    }
    for (const QStringList &row : m_rows)
        result += line(row, widths);
    return result;
}

bool TextTable::hasTitles() const
{
    return std::any_of(
        m_columns.begin(), m_columns.end(), [](const Column &column) { return !column.title.isEmpty(); });
}

std::vector<int> TextTable::columnWidths(int width) const
{
    std::vector<int> widths;
    for (const Column &column : m_columns)
        widths.push_back(DisplayWidth::of(column.title));
    for (const QStringList &row : m_rows) {
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], DisplayWidth::of(row[static_cast<qsizetype>(i)]));
    }

    int excess =
        std::accumulate(widths.begin(), widths.end(), 0) - width + spaceBetween * (static_cast<int>(widths.size()) - 1);
    while (excess > 0) { // the widest of those that may be cut gives way, down to the next one
        int *widest = nullptr;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            if (m_columns[i].mayBeCut && widths[i] > narrowestColumn && (!widest || widths[i] > *widest))
                widest = &widths[i];
        }
        if (!widest)
            break;
        --*widest;
        --excess;
    }
    return widths;
}

QString TextTable::line(const QStringList &cells, const std::vector<int> &widths) const
{
    QStringList aligned;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const QString &cell = cells[static_cast<qsizetype>(i)];
        aligned += m_columns[i].alignment == Left ? DisplayWidth::leftAligned(cell, widths[i])
                                                  : DisplayWidth::rightAligned(cell, widths[i]);
    }
    return withoutSpacesAtEnd(aligned.join(QString(spaceBetween, u' ')));
}
