#include "infofields/HarmlessTree_p.h"

#include "infofields/HtmlElements_p.h"

#include <algorithm>
#include <utility>

namespace
{

using namespace HtmlElements;

// The time to lay out a document grows with the square of these.
constexpr qsizetype depthLimit = 100; // for elements within a line and for all others
constexpr int imageLimit = 100;
// All rows of a table are as wide as its widest.
constexpr qint64 cellLimit = 10000;

/// How many rows or columns a cell takes. No table has more rows than it may have cells.
qint64 spanOf(const HtmlTag &tag, const QString &key)
{
    return std::clamp<qint64>(tag.attributes.value(key).toInt(), 1, cellLimit);
}

QString attribute(const QString &key, qint64 span)
{
    return span == 1 ? QString() : QStringLiteral(" %1=\"%2\"").arg(key, QString::number(span));
}

} // namespace

qint64 HarmlessTree::Element::cells() const
{
    return rows * std::max<qint64>(widestRow, 1);
}

void HarmlessTree::Element::addRow()
{
    ++rows;
    spans.removeIf([this](const Span &span) { return span.endRow < rows; });
    cellsOfRow = 0;
    for (const Span &span : std::as_const(spans))
        cellsOfRow += span.columns;
}

void HarmlessTree::Element::addCell(qint64 rowSpan, qint64 columnSpan)
{
    cellsOfRow += columnSpan;
    widestRow = std::max(widestRow, cellsOfRow);
    if (rowSpan > 1)
        spans.append({rows + rowSpan - 1, columnSpan});
}

void HarmlessTree::putEmpty(const HtmlTag &tag)
{
    putOpening(tag, tag.name);
}

void HarmlessTree::putImage(const HtmlTag &tag)
{
    if (m_images++ < imageLimit)
        putOpening(tag, tag.name);
    else
        m_html += QChar::ObjectReplacementCharacter; // what an image is in plain text
}

void HarmlessTree::open(const HtmlTag &tag, const QString &reduced)
{
    makeWay(tag.name);
    if (isInline(tag.name) ? openInlines() >= depthLimit : !hasPlace(tag.name)) {
        if (!isInline(tag.name))
            m_html += QLatin1String("<br>");
        return;
    }
    putOpening(tag, reduced, countedInTable(tag));
    m_open.append({tag.name, reduced, openInlines() + (isInline(tag.name) ? 1 : 0)});
    if (tag.closesItself)
        closeDownTo(m_open.size() - 1);
}

void HarmlessTree::close(const QString &name)
{
    if (const qsizetype place = innermost(name); place >= 0)
        closeDownTo(place);
}

/// Ends what the new element ends, as most do whose closing tag may be left out, and begins what it must stand in.
void HarmlessTree::makeWay(const QString &name)
{
    if (name == kP)
        closeSibling({kP}, [](const Element &open) {
            return !isInline(open.name) && !isOneOf(open.name, {kTable, kTr});
        });
    else if (name == kLi)
        closeSibling({kLi}, [](const Element &open) { return isOneOf(open.name, {kUl, kOl, kTable}); });
    else if (isOneOf(name, {kDt, kDd}))
        closeSibling({kDt, kDd}, [](const Element &open) { return isOneOf(open.name, {kDl, kTable}); });
    else if (isTablePart(name))
        makeWayInTable(name);
}

template <typename Predicate>
void HarmlessTree::closeSibling(std::initializer_list<QLatin1String> names, Predicate endsTheSearch)
{
    for (qsizetype place = m_open.size() - 1; place >= 0; --place) {
        if (isOneOf(m_open.at(place).name, names))
            return closeDownTo(place);
        if (endsTheSearch(m_open.at(place)))
            return;
    }
}

void HarmlessTree::makeWayInTable(const QString &name)
{
    if (m_cells >= cellLimit) {
        while (isOpen(kTable)) // text in a table that is in none of its cells would be lost
            closeDownTo(innermost(kTable));
    } else if (name != kTable) {
        const QLatin1String parent = isCell(name) ? kTr : kTable;
        if (!isOpen(parent) && name != kCaption)
            open({.name = parent, .attributes = {}}, parent);
        if (const qsizetype place = innermost(parent); place >= 0)
            closeDownTo(place + 1);
    }
}

bool HarmlessTree::hasPlace(const QString &name) const
{
    const qsizetype depth = m_open.size() - openInlines();
    if (name == kTable)
        return depth < depthLimit - 2 && m_cells < cellLimit; // with a row and a cell
    if (isCell(name))
        return isOpen(kTr);
    if (isTablePart(name))
        return isOpen(kTable);
    return depth < depthLimit;
}

/// Counts a row or cell and gives the attributes of a cell that spans others. A cell that would make its table too wide
/// takes one column.
QString HarmlessTree::countedInTable(const HtmlTag &tag)
{
    static const QString rowSpanKey = QStringLiteral("rowspan");
    static const QString columnSpanKey = QStringLiteral("colspan");
    if (tag.name != kTr && !isCell(tag.name))
        return {};
    Element &table = m_open[innermost(kTable)];
    m_cells -= table.cells();
    QString spans;
    if (tag.name == kTr) {
        table.addRow();
    } else {
        const qint64 rowSpan = spanOf(tag, rowSpanKey);
        qint64 columnSpan = spanOf(tag, columnSpanKey);
        if (m_cells + table.rows * (table.cellsOfRow + columnSpan) > cellLimit)
            columnSpan = 1;
        table.addCell(rowSpan, columnSpan);
        spans = attribute(rowSpanKey, rowSpan) + attribute(columnSpanKey, columnSpan);
    }
    m_cells += table.cells();
    return spans;
}

/// The place in m_open, or -1.
template <typename Name>
qsizetype HarmlessTree::innermost(const Name &name) const
{
    qsizetype place = m_open.size() - 1;
    while (place >= 0 && m_open.at(place).name != name)
        --place;
    return place;
}

void HarmlessTree::closeDownTo(qsizetype size)
{
    while (m_open.size() > size)
        m_html += QLatin1String("</") + m_open.takeLast().reduced + QLatin1Char('>');
}

void HarmlessTree::putOpening(const HtmlTag &tag, const QString &reduced, const QString &more)
{
    m_html += QLatin1Char('<') + reduced + more;
    if (const QString style = m_whiteSpace.styleOf(tag); !style.isEmpty())
        m_html += QStringLiteral(" style=\"%1\"").arg(style);
    m_html += QLatin1Char('>');
}
