#pragma once

#include "infofields/HtmlScanner_p.h"
#include "infofields/HtmlWhiteSpace_p.h"

#include <QList>
#include <QString>

#include <initializer_list>

/// Writes html that is a tree: every element is closed, and none begins where a document would end others by itself or
/// make a table around it. So elements nest as deep as those that are open here, and all tables are counted.
class HarmlessTree
{
public:
    HtmlWhiteSpace &whiteSpace() { return m_whiteSpace; }
    const QString &html() const { return m_html; }

    /// Text or a tag that neither opens nor closes an element, as it stands.
    void put(QStringView text) { m_html += text; }
    /// An element that holds nothing.
    void putEmpty(const HtmlTag &tag);
    /// An image, or the character that stands for one when there are many.
    void putImage(const HtmlTag &tag);
    /// An element that does what @p reduced does. One that has no place becomes a new line or nothing.
    void open(const HtmlTag &tag, const QString &reduced);
    /// Closes the innermost element called @p name and all within it.
    void close(const QString &name);

private:
    /// A cell that reaches into later rows.
    struct Span {
        qint64 endRow;
        qint64 columns;
    };

    struct Element {
        QString name;
        QString reduced;
        qsizetype inlines = 0; // how many of the open elements up to this one stand within a line
        // of a table
        qint64 rows = 0;
        qint64 cellsOfRow = 0;
        qint64 widestRow = 0;
        QList<Span> spans = {};

        /// As the document makes them: rows without a cell have one as well.
        qint64 cells() const;
        void addRow();
        void addCell(qint64 rowSpan, qint64 columnSpan);
    };

    void makeWay(const QString &name);
    void makeWayInTable(const QString &name);
    template <typename Predicate>
    void closeSibling(std::initializer_list<QLatin1String> names, Predicate endsTheSearch);
    bool hasPlace(const QString &name) const;
    QString countedInTable(const HtmlTag &tag);
    qsizetype openInlines() const { return m_open.isEmpty() ? 0 : m_open.last().inlines; }
    template <typename Name>
    qsizetype innermost(const Name &name) const;
    template <typename Name>
    bool isOpen(const Name &name) const
    {
        return innermost(name) >= 0;
    }
    void closeDownTo(qsizetype size);
    void putOpening(const HtmlTag &tag, const QString &reduced, const QString &more = {});

    HtmlWhiteSpace m_whiteSpace;
    QString m_html;
    QList<Element> m_open;
    int m_images = 0;
    qint64 m_cells = 0;
};
