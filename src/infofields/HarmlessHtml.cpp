#include "infofields/HarmlessHtml_p.h"

#include <QStringList>
#include <QStringView>

#include <algorithm>
#include <iterator>

namespace
{

// The time to lay out a document grows with the square of these.
constexpr int depthLimit = 100;
constexpr int imageLimit = 100;

bool isOneOf(QStringView name, std::initializer_list<QLatin1String> names)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// Elements that hold others.
bool isContainer(QStringView name)
{
    return isOneOf(name,
        {QLatin1String("div"), QLatin1String("ul"), QLatin1String("ol"), QLatin1String("li"), QLatin1String("dl"),
            QLatin1String("dt"), QLatin1String("dd"), QLatin1String("table"), QLatin1String("tr"), QLatin1String("td"),
            QLatin1String("th"), QLatin1String("blockquote"), QLatin1String("center"), QLatin1String("address")});
}

/// Elements that hold others and have a font of their own.
bool hasFont(QStringView name)
{
    return isOneOf(name,
        {QLatin1String("pre"), QLatin1String("h1"), QLatin1String("h2"), QLatin1String("h3"), QLatin1String("h4"),
            QLatin1String("h5"), QLatin1String("h6")});
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
        {QLatin1String("a"), QLatin1String("b"), QLatin1String("big"), QLatin1String("cite"), QLatin1String("code"),
            QLatin1String("del"), QLatin1String("dfn"), QLatin1String("em"), QLatin1String("font"), QLatin1String("i"),
            QLatin1String("kbd"), QLatin1String("nobr"), QLatin1String("s"), QLatin1String("samp"),
            QLatin1String("small"), QLatin1String("span"), QLatin1String("strong"), QLatin1String("sub"),
            QLatin1String("sup"), QLatin1String("tt"), QLatin1String("u"), QLatin1String("var")});
}

bool isWord(QChar unit)
{
    return unit.isLetterOrNumber();
}

class Reducer
{
public:
    explicit Reducer(QStringView html) : m_html(html) { m_result.reserve(html.size()); }

    QString result()
    {
        while (m_at < m_html.size()) {
            const qsizetype tag = endOr(m_html.indexOf(u'<', m_at));
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
        QString style;
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
        if (m_html.sliced(m_at).startsWith(u"<!--"))
            return skipBehind(u"-->");
        if (m_html.sliced(m_at).startsWith(u"<!") || m_html.sliced(m_at).startsWith(u"<?"))
            return skipBehind(u">");
        const Tag tag = readTag();
        if (isHidden(tag.name) && !tag.closes)
            skipContent(tag.name);
        else
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
                ++m_at;
                continue;
            }
            const QStringView value = takeValue();
            if (key.compare(QLatin1String("style"), Qt::CaseInsensitive) == 0)
                tag.style = value.toString().toLower().remove(QLatin1Char(' '));
        }
        if (!atEnd())
            ++m_at;
        return tag;
    }

    /// What follows an attribute's name: nothing, or "=" and a text in quotes or without.
    QStringView takeValue()
    {
        const auto isSpace = [](QChar unit) { return unit.isSpace(); };
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

    void skipContent(const QString &name)
    {
        const qsizetype end = endOr(m_html.indexOf(QString(QStringLiteral("</") + name), m_at, Qt::CaseInsensitive));
        if (m_html.sliced(m_at, end - m_at).contains(QLatin1String("white-space: pre-wrap")))
            m_keepsBlanks = true;
        m_at = end;
    }

    void keep(const Tag &tag)
    {
        if (tag.name == QLatin1String("p")
            || (isOneOf(tag.name, {QLatin1String("br"), QLatin1String("hr")}) && !tag.closes))
            put(tag, tag.name);
        else if (tag.name == QLatin1String("img") && !tag.closes)
            keepImage(tag);
        else if (isInline(tag.name))
            keepNesting(tag, QStringLiteral("span"));
        else if (hasFont(tag.name))
            keepNesting(tag, QStringLiteral("div"));
        else if (isContainer(tag.name))
            keepNesting(tag, tag.name);
    }

    void keepImage(const Tag &tag)
    {
        if (m_images++ < imageLimit)
            put(tag, tag.name);
        else
            m_result += QChar::ObjectReplacementCharacter; // what an image is in plain text
    }

    /// Elements that are open stand in m_open; a closing tag ends the last of its name and all within.
    void keepNesting(const Tag &tag, const QString &name)
    {
        if (!tag.closes) {
            if (m_open.size() >= depthLimit)
                return;
            m_open += tag.name;
        } else {
            const qsizetype place = m_open.lastIndexOf(tag.name);
            if (place < 0)
                return;
            m_open.resize(place);
        }
        put(tag, name);
    }

    void put(const Tag &tag, const QString &name)
    {
        m_result += QLatin1String(tag.closes ? "</" : "<") + name;
        if (const QString style = tag.closes ? QString() : styleOf(tag); !style.isEmpty())
            m_result += QStringLiteral(" style=\"%1\"").arg(style);
        m_result += QLatin1Char('>');
    }

    QString styleOf(const Tag &tag) const
    {
        QString style;
        const bool isTextOfSheet = isOneOf(tag.name, {QLatin1String("p"), QLatin1String("li")});
        if (tag.style.contains(QLatin1String("white-space:pre-wrap")) || (m_keepsBlanks && isTextOfSheet))
            style += QLatin1String("white-space:pre-wrap;");
        else if (tag.style.contains(QLatin1String("white-space:pre")) || tag.name == QLatin1String("pre"))
            style += QLatin1String("white-space:pre;");
        if (tag.style.contains(QLatin1String("-qt-paragraph-type:empty")))
            style += QLatin1String("-qt-paragraph-type:empty;");
        return style;
    }

    QStringView m_html;
    qsizetype m_at = 0;
    QString m_result;
    bool m_keepsBlanks = false; // as the style sheet says that captions are written with
    QStringList m_open;
    int m_images = 0;
};

} // namespace

QString HarmlessHtml::reduced(const QString &html)
{
    return Reducer(html).result();
}
