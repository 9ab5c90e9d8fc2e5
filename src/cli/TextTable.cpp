#include "cli/TextTable.h"

#include "cli/DisplayWidth.h"

#include <algorithm>

namespace
{

constexpr int narrowestColumn = 8;

QString withoutSpacesAtEnd(QString text)
{
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

/// Of a line of columns with these widths; one of 0 columns is not shown.
int lineWidth(const std::vector<int> &widths)
{
    int sum = -TextTable::spaceBetween;
    for (const int width : widths)
        sum += width > 0 ? width + TextTable::spaceBetween : 0;
    return sum;
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

std::vector<int> TextTable::naturalWidths() const
{
    std::vector<int> widths;
    for (const Column &column : m_columns)
        widths.push_back(DisplayWidth::of(column.title));
    for (const QStringList &row : m_rows) {
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], DisplayWidth::of(row[static_cast<qsizetype>(i)]));
    }
    return widths;
}

std::vector<int> TextTable::columnWidths(int width) const
{
    std::vector<int> widths = naturalWidths();
    int spare = 0; // what the columns that may be cut can give
    for (std::size_t i = 0; i < widths.size(); ++i)
        spare += m_columns[i].mayBeCut ? std::max(widths[i] - narrowestColumn, 0) : 0;
    int excess = lineWidth(widths) - width;
    while (excess > spare) {
        std::size_t next = m_columns.size();
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            const bool canGo = m_columns[i].goes > 0 && widths[i] > 0;
            if (canGo && (next == m_columns.size() || m_columns[i].goes < m_columns[next].goes))
                next = i;
        }
        if (next == m_columns.size())
            break;
        widths[next] = 0;
        excess = lineWidth(widths) - width;
    }
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
        if (widths[i] > 0)
            aligned += m_columns[i].alignment == Left ? DisplayWidth::leftAligned(cell, widths[i])
                                                      : DisplayWidth::rightAligned(cell, widths[i]);
    }
    return withoutSpacesAtEnd(aligned.join(QString(spaceBetween, u' ')));
}
