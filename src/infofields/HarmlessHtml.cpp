#include "infofields/HarmlessHtml_p.h"

#include "infofields/HarmlessTree_p.h"
#include "infofields/HtmlElements_p.h"
#include "infofields/HtmlScanner_p.h"

#include <utility>

namespace
{

/// What documents write into their html, and what makes them read it as their own: blanks and nested lists then count
/// in another way.
const QString kEditorMark = QStringLiteral("<meta name=\"qrichtext\" content=\"1\">");

bool isEditorMark(const HtmlTag &tag)
{
    return tag.name == QLatin1String("meta")
        && tag.attributes.value(QStringLiteral("name")) == QLatin1String("qrichtext")
        && tag.attributes.value(QStringLiteral("content")) == QLatin1String("1");
}

class Reducer
{
public:
    explicit Reducer(QStringView html) : m_html(html) {}

    QString result()
    {
        while (!m_html.atEnd()) {
            const bool isShown = m_html.place() >= m_endOfHead;
            if (m_html.atTag())
                takeTag();
            else if (const QStringView text = m_html.takeText(); isShown)
                m_tree.put(text);
        }
        return m_tree.html();
    }

private:
    void takeTag()
    {
        if (m_html.startsWith(u"<!")) {
            const bool isComment = m_html.startsWith(u"<!--");
            m_html.skipBehind(isComment ? u"-->" : u">", isComment ? 4 : 2);
            m_tree.put(u"<!>"); // blanks behind it count as those behind a comment
            return;
        }
        if (m_html.startsWith(u"<?"))
            return m_html.skipBehind(u">", 2);
        const HtmlTag tag = m_html.takeTag();
        if (HtmlElements::isHidden(tag.name) && !tag.closes)
            skipContent(tag.name);
        else if (tag.name == HtmlElements::kHead && !tag.closes)
            beginHead();
        else if (isEditorMark(tag) && !tag.closes)
            m_tree.put(kEditorMark);
        else if (m_html.place() > m_endOfHead)
            keep(tag);
    }

    /// The text of the head is hidden. One that does not end hides nothing, nor does a second one.
    void beginHead()
    {
        if (std::exchange(m_hasHead, true))
            return;
        const qsizetype end = m_html.find(QLatin1String("</head"));
        const qsizetype body = m_html.find(QLatin1String("<body"));
        m_endOfHead = body >= 0 && (end < 0 || body < end) ? body : end;
    }

    void skipContent(const QString &name)
    {
        const QStringView content = m_html.takeUpTo(QLatin1String("</") + name);
        if (name == QLatin1String("style"))
            m_tree.whiteSpace().addSheet(content.toString());
    }

    void keep(const HtmlTag &tag)
    {
        if (HtmlElements::isOneOf(tag.name, {QLatin1String("br"), QLatin1String("hr")}) && !tag.closes)
            m_tree.putEmpty(tag);
        else if (tag.name == QLatin1String("img") && !tag.closes)
            m_tree.putImage(tag);
        else if (const QString name = HtmlElements::reducedName(tag.name); !name.isEmpty() && !tag.closes)
            m_tree.open(tag, name);
        else if (!name.isEmpty())
            m_tree.close(tag.name);
    }

    HtmlScanner m_html;
    HarmlessTree m_tree;
    bool m_hasHead = false;
    qsizetype m_endOfHead = 0;
};

} // namespace

QString HarmlessHtml::reduced(const QString &html)
{
    return Reducer(html).result();
}
