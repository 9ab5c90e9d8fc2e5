#include "infofields/HarmlessHtml_p.h"

#include <QHash>
#include <QList>
#include <QStringView>

#include <algorithm>
#include <utility>

namespace
{

constexpr QLatin1String kBody("body");
constexpr QLatin1String kCaption("caption");
constexpr QLatin1String kDd("dd");
constexpr QLatin1String kDl("dl");
constexpr QLatin1String kDt("dt");
constexpr QLatin1String kHead("head");
constexpr QLatin1String kLi("li");
constexpr QLatin1String kOl("ol");
constexpr QLatin1String kP("p");
constexpr QLatin1String kPre("pre");
constexpr QLatin1String kTable("table");
constexpr QLatin1String kTd("td");
constexpr QLatin1String kTh("th");
constexpr QLatin1String kTr("tr");
constexpr QLatin1String kUl("ul");

// The time to lay out a document grows with the square of these.
constexpr qsizetype depthLimit = 100; // for elements within a line and for all others
constexpr int imageLimit = 100;
// All rows of a table are as wide as its widest.
constexpr qint64 cellLimit = 10000;

bool isOneOf(QStringView name, std::initializer_list<QLatin1String> names)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// Elements that begin a new line.
bool isBlock(QStringView name)
{
    return isOneOf(name, {kBody, QLatin1String("div"), kDt});
}

/// Elements that begin a new line and end it.
bool isSpacedBlock(QStringView name)
{
    return isOneOf(name,
        {QLatin1String("blockquote"), QLatin1String("center"), kDl, kDd, kPre, QLatin1String("h1"), QLatin1String("h2"),
            QLatin1String("h3"), QLatin1String("h4"), QLatin1String("h5"), QLatin1String("h6")});
}

/// Elements that hold others and are laid out in a way of their own.
bool isStructure(QStringView name)
{
    return isOneOf(name, {kP, kUl, kOl, kLi, kTable, kCaption, kTr, kTd});
}

bool isTablePart(QStringView name)
{
    return isOneOf(name, {kTable, kCaption, kTr, kTd, kTh});
}

/// Elements whose content is no text.
bool isHidden(QStringView name)
{
    return isOneOf(name, {QLatin1String("title"), QLatin1String("style"), QLatin1String("script")});
}

/// Elements within a line. They end a run of blanks, so they count.
bool isInline(QStringView name)
{
    return isOneOf(name,
        {QLatin1String("a"), QLatin1String("address"), QLatin1String("b"), QLatin1String("big"), QLatin1String("cite"),
            QLatin1String("code"), QLatin1String("del"), QLatin1String("dfn"), QLatin1String("em"),
            QLatin1String("font"), QLatin1String("i"), QLatin1String("kbd"), QLatin1String("nobr"), QLatin1String("s"),
            QLatin1String("samp"), QLatin1String("small"), QLatin1String("span"), QLatin1String("strong"),
            QLatin1String("sub"), QLatin1String("sup"), QLatin1String("tt"), QLatin1String("u"), QLatin1String("var")});
}

bool isWord(QChar unit)
{
    return unit.isLetterOrNumber();
}

bool isSpace(QChar unit)
{
    return unit.isSpace();
}

/// What @p name becomes, or nothing for an element that says nothing about the text.
QString reducedName(const QString &name)
{
    if (isInline(name))
        return QStringLiteral("span");
    if (isBlock(name))
        return QStringLiteral("div");
    if (isSpacedBlock(name))
        return QStringLiteral("blockquote");
    if (name == kTh)
        return QStringLiteral("td");
    return isStructure(name) ? name : QString();
}

/// The value of the last declaration of @p key, or nothing.
QString declared(const QString &declarations, QLatin1String key)
{
    QString value;
    const auto all = QStringView(declarations).split(u';');
    for (const QStringView declaration : all) {
        const qsizetype colon = declaration.indexOf(u':');
        if (colon >= 0 && declaration.first(colon).trimmed() == key)
            value = declaration.sliced(colon + 1).trimmed().toString();
    }
    return value;
}

/// How blanks count, or nothing when that is not declared.
QString whiteSpaceOf(const QString &declarations)
{
    const QString value = declared(declarations, QLatin1String("white-space"));
    const bool isKnown = isOneOf(value,
        {QLatin1String("normal"), QLatin1String("nowrap"), kPre, QLatin1String("pre-wrap"), QLatin1String("pre-line")});
    return isKnown ? value : QString();
}

class Reducer
{
public:
    explicit Reducer(QStringView html) : m_html(html) { m_result.reserve(html.size()); }

    QString result()
    {
        while (m_at < m_html.size()) {
            const qsizetype tag = endOr(m_html.indexOf(u'<', m_at));
            if (m_at >= m_endOfHead)
                m_result += m_html.sliced(m_at, tag - m_at);
            m_at = tag;
            if (tag < m_html.size())
                takeTag();
        }
        return m_result;
    }

private:
    struct Tag {
        QString name; // lower case
        bool closes = false;
        bool closesItself = false; // as <p/> does
        QString style;             // lower case
    };

    struct Element {
        QString name;
        QString reduced;
        qsizetype inlines = 0; // how many of the open elements up to this one stand within a line
        // of a table
        qint64 rows = 0;
        qint64 cellsOfRow = 0;
        qint64 widestRow = 0;

        /// As the document makes them: rows without a cell have one as well.
        qint64 cells() const { return rows * std::max<qint64>(widestRow, 1); }
    };

    qsizetype endOr(qsizetype place) const { return place < 0 ? m_html.size() : place; }
    bool atEnd() const { return m_at >= m_html.size(); }
    QChar here() const { return m_html.at(m_at); }

    void skipBehind(QStringView mark)
    {
        const qsizetype place = m_html.indexOf(mark, m_at);
        m_at = place < 0 ? m_html.size() : place + mark.size();
    }

    template <typename Predicate>
    QStringView takeWhile(Predicate belongs)
    {
        const qsizetype from = m_at;
        while (!atEnd() && belongs(here()))
            ++m_at;
        return m_html.sliced(from, m_at - from);
    }

    void takeTag()
    {
        if (const QStringView rest = m_html.sliced(m_at); rest.startsWith(u"<!")) {
            const bool isComment = rest.startsWith(u"<!--");
            m_at += isComment ? 4 : 2;
            skipBehind(isComment ? u"-->" : u">");
            m_result += QLatin1String("<!>"); // blanks behind it count as those behind a comment
            return;
        }
        if (m_html.sliced(m_at).startsWith(u"<?"))
            return skipBehind(u">");
        const Tag tag = readTag();
        if (isHidden(tag.name) && !tag.closes)
            skipContent(tag.name);
        else if (tag.name == kHead && !tag.closes)
            beginHead();
        else if (m_at > m_endOfHead)
            keep(tag);
    }

    /// The tag at whose "<" this stands, up to and with its ">".
    Tag readTag()
    {
        Tag tag;
        ++m_at;
        if (!atEnd() && here() == u'/') {
            tag.closes = true;
            ++m_at;
        }
        tag.name = takeWhile(isWord).toString().toLower();
        while (!atEnd() && here() != u'>') {
            const QStringView key =
                takeWhile([](QChar unit) { return isWord(unit) || unit == u'-' || unit == u'_' || unit == u':'; });
            if (key.isEmpty()) {
                tag.closesItself = tag.closesItself || here() == u'/';
                ++m_at;
                continue;
            }
            const QStringView value = takeValue();
            if (key.compare(QLatin1String("style"), Qt::CaseInsensitive) == 0)
                tag.style = value.toString().toLower();
        }
        if (!atEnd())
            ++m_at;
        return tag;
    }

    /// What follows an attribute's name: nothing, or "=" and a text in quotes or without.
    QStringView takeValue()
    {
        takeWhile(isSpace);
        if (atEnd() || here() != u'=')
            return {};
        ++m_at;
        takeWhile(isSpace);
        if (atEnd())
            return {};
        const QChar quote = here();
        if (quote != u'"' && quote != u'\'')
            return takeWhile([](QChar unit) { return !unit.isSpace() && unit != u'>'; });
        ++m_at;
        const QStringView value = takeWhile([quote](QChar unit) { return unit != quote; });
        if (!atEnd())
            ++m_at;
        return value;
    }

    /// The text of the head is hidden. One that does not end hides nothing, nor does a second one.
    void beginHead()
    {
        if (std::exchange(m_hasHead, true))
            return;
        const qsizetype end = m_html.indexOf(QLatin1String("</head"), m_at, Qt::CaseInsensitive);
        const qsizetype body = m_html.first(endOr(end)).indexOf(QLatin1String("<body"), m_at, Qt::CaseInsensitive);
        m_endOfHead = body < 0 ? end : body;
    }

    void skipContent(const QString &name)
    {
        const qsizetype end = endOr(m_html.indexOf(QString(QStringLiteral("</") + name), m_at, Qt::CaseInsensitive));
        if (name == QLatin1String("style"))
            takeSheet(m_html.sliced(m_at, end - m_at).toString().toLower());
        m_at = end;
    }

    /// Of a style sheet counts what it says of all elements of a name.
    void takeSheet(const QString &sheet)
    {
        const auto rules = QStringView(sheet).split(u'}');
        for (const QStringView rule : rules) {
            const qsizetype brace = rule.indexOf(u'{');
            const QString whiteSpace = brace < 0 ? QString() : whiteSpaceOf(rule.sliced(brace + 1).toString());
            if (whiteSpace.isEmpty())
                continue;
            const auto names = rule.first(brace).split(u',');
            for (const QStringView name : names)
                m_sheet.insert(name.trimmed().toString(), whiteSpace);
        }
    }

    void keep(const Tag &tag)
    {
        if (isOneOf(tag.name, {QLatin1String("br"), QLatin1String("hr")}) && !tag.closes)
            putOpening(tag, tag.name);
        else if (tag.name == QLatin1String("img") && !tag.closes)
            keepImage(tag);
        else if (const QString name = reducedName(tag.name); !name.isEmpty() && !tag.closes)
            open(tag, name);
        else if (!name.isEmpty())
            close(tag.name);
    }

    void keepImage(const Tag &tag)
    {
        if (m_images++ < imageLimit)
            putOpening(tag, tag.name);
        else
            m_result += QChar::ObjectReplacementCharacter; // what an image is in plain text
    }

    // What is written is a tree: every element is closed, and none begins where the document would end others by
    // itself or make a table around it. So elements nest as deep as m_open says, and all tables are counted.

    void open(const Tag &tag, const QString &reduced)
    {
        makeWay(tag.name);
        if (isInline(tag.name) ? openInlines() >= depthLimit : !hasPlace(tag.name)) {
            if (!isInline(tag.name))
                m_result += QLatin1String("<br>");
            return;
        }
        putOpening(tag, reduced);
        m_open.append({tag.name, reduced, openInlines() + (isInline(tag.name) ? 1 : 0)});
        countCells(tag.name);
        if (tag.closesItself)
            closeDownTo(m_open.size() - 1);
    }

    void close(const QString &name)
    {
        if (const qsizetype place = innermost(name); place >= 0)
            closeDownTo(place);
    }

    /// Ends what the new element ends, as most do whose closing tag may be left out, and begins what it must stand in.
    void makeWay(const QString &name)
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
    void closeSibling(std::initializer_list<QLatin1String> names, Predicate endsTheSearch)
    {
        for (qsizetype place = m_open.size() - 1; place >= 0; --place) {
            if (isOneOf(m_open.at(place).name, names))
                return closeDownTo(place);
            if (endsTheSearch(m_open.at(place)))
                return;
        }
    }

    void makeWayInTable(const QString &name)
    {
        if (m_cells >= cellLimit) {
            while (innermost(kTable) >= 0) // text in a table that is in none of its cells would be lost
                closeDownTo(innermost(kTable));
        } else if (name != kTable) {
            const QLatin1String parent = isOneOf(name, {kTd, kTh}) ? kTr : kTable;
            if (innermost(parent) < 0 && name != kCaption)
                open({.name = parent, .style = {}}, parent);
            if (const qsizetype place = innermost(parent); place >= 0)
                closeDownTo(place + 1);
        }
    }

    bool hasPlace(const QString &name) const
    {
        const qsizetype depth = m_open.size() - openInlines();
        if (name == kTable)
            return depth < depthLimit - 2 && m_cells < cellLimit; // with a row and a cell
        if (isOneOf(name, {kTd, kTh}))
            return innermost(kTr) >= 0;
        if (isTablePart(name))
            return innermost(kTable) >= 0;
        return depth < depthLimit;
    }

    void countCells(const QString &name)
    {
        if (!isOneOf(name, {kTr, kTd, kTh}))
            return;
        Element &table = m_open[innermost(kTable)];
        m_cells -= table.cells();
        if (name == kTr) {
            ++table.rows;
            table.cellsOfRow = 0;
        } else {
            table.widestRow = std::max(table.widestRow, ++table.cellsOfRow);
        }
        m_cells += table.cells();
    }

    qsizetype openInlines() const { return m_open.isEmpty() ? 0 : m_open.last().inlines; }

    /// The place in m_open, or -1.
    template <typename Name>
    qsizetype innermost(const Name &name) const
    {
        qsizetype place = m_open.size() - 1;
        while (place >= 0 && m_open.at(place).name != name)
            --place;
        return place;
    }

    void closeDownTo(qsizetype size)
    {
        while (m_open.size() > size)
            m_result += QLatin1String("</") + m_open.takeLast().reduced + QLatin1Char('>');
    }

    void putOpening(const Tag &tag, const QString &reduced)
    {
        m_result += QLatin1Char('<') + reduced;
        if (const QString style = styleOf(tag); !style.isEmpty())
            m_result += QStringLiteral(" style=\"%1\"").arg(style);
        m_result += QLatin1Char('>');
    }

    QString styleOf(const Tag &tag) const
    {
        QString whiteSpace = whiteSpaceOf(tag.style);
        if (whiteSpace.isEmpty())
            whiteSpace = m_sheet.value(tag.name);
        if (whiteSpace.isEmpty() && tag.name == kPre)
            whiteSpace = kPre;
        QString style;
        if (!whiteSpace.isEmpty())
            style += QStringLiteral("white-space:%1;").arg(whiteSpace);
        if (declared(tag.style, QLatin1String("-qt-paragraph-type")) == QLatin1String("empty"))
            style += QLatin1String("-qt-paragraph-type:empty;");
        return style;
    }

    QStringView m_html;
    qsizetype m_at = 0;
    QString m_result;
    QHash<QString, QString> m_sheet; // how blanks count in elements of a name
    QList<Element> m_open;
    bool m_hasHead = false;
    qsizetype m_endOfHead = 0;
    int m_images = 0;
    qint64 m_cells = 0;
};

} // namespace

QString HarmlessHtml::reduced(const QString &html)
{
    return Reducer(html).result();
}
