#include "scene/storage/XmlBounds_p.h"

#include <QByteArrayView>

#include <algorithm>

namespace
{

class Scanner
{
public:
    Scanner(const QByteArray &text, int deepest) : m_text(text), m_deepest(deepest) {}

    XmlBounds::Excess find()
    {
        while (m_message.isEmpty()) {
            m_at = m_text.indexOf('<', m_at);
            if (m_at < 0)
                return {};
            scanMarkup();
        }
        const qsizetype lineStart = m_text.lastIndexOf('\n', m_tag) + 1;
        const qint64 line = std::count(m_text.begin(), m_text.begin() + lineStart, '\n') + 1;
        return {{line, m_tag - lineStart + 1}, m_message};
    }

private:
    void scanMarkup()
    {
        m_tag = m_at;
        if (startsWith("<!--"))
            skip("<!--", "-->");
        else if (startsWith("<![CDATA["))
            skip("<![CDATA[", "]]>");
        else if (startsWith("<?"))
            skip("<?", "?>");
        else if (startsWith("<!"))
            m_message = QStringLiteral("document types are not allowed");
        else
            scanTag();
    }

    void scanTag()
    {
        const bool closes = startsWith("</");
        int attributes = 0;
        char quote = 0;
        char last = 0;
        const qsizetype size = m_text.size();
        const char *const data = m_text.constData();
        for (++m_at; m_at < size; ++m_at) {
            const char c = data[m_at];
            if (quote) {
                if (c == quote)
                    quote = 0;
                continue;
            }
            if (c == '>')
                break;
            if (c == '"' || c == '\'')
                quote = c;
            else if (c == '=')
                ++attributes;
            last = c;
        }
        // An end without its start is where a reader stops; nothing may be counted against it.
        const int depth = closes ? std::max(0, m_depth - 1) : m_depth + 1;
        if (closes || last != '/')
            m_depth = depth;
        if (attributes > XmlBounds::attributeLimit)
            m_message = QStringLiteral("an element has more than %1 attributes").arg(XmlBounds::attributeLimit);
        else if (depth > m_deepest)
            m_message = XmlBounds::deeperThan(m_deepest);
    }

    bool startsWith(QByteArrayView start) const { return QByteArrayView(m_text).sliced(m_at).startsWith(start); }

    /// Goes to the end of what begins here. No character belongs to both: "<!-->" begins a comment that goes on.
    void skip(QByteArrayView begin, QByteArrayView end)
    {
        const qsizetype found = m_text.indexOf(end, m_at + begin.size());
        m_at = found < 0 ? m_text.size() : found + end.size();
    }

    const QByteArray &m_text;
    const int m_deepest;
    qsizetype m_at = 0;
    qsizetype m_tag = 0;
    int m_depth = 0;
    QString m_message;
};

} // namespace

QString XmlBounds::deeperThan(int depth)
{
    return QStringLiteral("elements nest deeper than %1").arg(depth);
}

XmlBounds::Excess XmlBounds::find(const QByteArray &text, int deepest)
{
    // In wide encodings nothing below would mean what it seems to.
    if (text.contains('\0') || text.startsWith("\xFE\xFF") || text.startsWith("\xFF\xFE"))
        return {{1, 1}, QStringLiteral("the text is not in UTF-8")};
    return Scanner(text, deepest).find();
}
