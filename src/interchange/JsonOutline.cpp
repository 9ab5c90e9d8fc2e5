#include "interchange/JsonOutline_p.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace
{

QByteArray unescaped(QByteArrayView key)
{
    constexpr qsizetype longest = 60; // with every letter escaped, the names looked for are shorter
    if (!key.contains('\\') || key.size() > longest)
        return key.toByteArray();
    const QByteArray list = "[\"" + key.toByteArray() + "\"]";
    return QJsonDocument::fromJson(list).array().at(0).toString().toUtf8();
}

JsonOutline::Member memberOf(QByteArrayView key)
{
    const QByteArray name = unescaped(key);
    if (name == "tracks")
        return JsonOutline::Tracks;
    return name == "children" ? JsonOutline::Children : JsonOutline::Other;
}

/// One behind the closing quote of the string at @p from.
qsizetype stringEnd(const QByteArray &text, qsizetype from)
{
    qsizetype end = from + 1;
    while (text[end] != '"')
        end += text[end] == '\\' ? 2 : 1;
    return end + 1;
}

bool isScalarEnd(char c)
{
    return c == ',' || c == '}' || c == ']' || isJsonSpace(c);
}

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20;
}

} // namespace

/// Walks one object of a sound text. Its cost is that of the object without the objects of the tree below it, where the
/// member that holds them is left out: those are jumped over.
class JsonOutline::Cutter
{
public:
    Cutter(const JsonOutline &outline, const QByteArray &text, int object, qsizetype mostBytes) :
        m_outline(outline), m_text(text), m_end(outline.m_objects[static_cast<std::size_t>(object)].end - 1),
        m_mostBytes(mostBytes), m_at(outline.m_objects[static_cast<std::size_t>(object)].from + 1), m_below(object + 1)
    {
    }

    QString run(Member without)
    {
        m_out = "{";
        while (skipTo() < m_end && m_out.size() < m_mostBytes) {
            const qsizetype keyEnd = stringEnd(m_text, m_at);
            const QByteArrayView key = QByteArrayView(m_text).sliced(m_at + 1, keyEnd - m_at - 2);
            const bool isWanted = without == Other || memberOf(key) != without;
            if (isWanted && m_out.size() > 1)
                m_out += ',';
            passString(isWanted);
            passValue(isWanted);
        }
        m_out += '}';
        return m_at < m_end || m_out.size() > m_mostBytes ? QString() : QString::fromUtf8(m_out);
    }

private:
    /// To the next key or the end of the object, over white space and commas.
    qsizetype skipTo()
    {
        while (m_at < m_end && (isJsonSpace(m_text[m_at]) || m_text[m_at] == ','))
            ++m_at;
        return m_at;
    }

    /// The colon, and all that follows it up to the end of the value.
    void passValue(bool isWanted)
    {
        int depth = 0;
        bool isComplete = false;
        while (!isComplete && m_out.size() <= m_mostBytes) {
            const char c = m_text[m_at];
            if (c == '"') {
                passString(isWanted);
            } else if (!isWanted && c == '{' && jumpOver()) {
                // an object below, of which nothing is wanted either
            } else if (isScalarEnd(c) || c == ':' || c == '{' || c == '[') {
                depth += c == '{' || c == '[' ? 1 : c == '}' || c == ']' ? -1 : 0;
                if (isWanted && !isJsonSpace(c))
                    m_out += c;
                ++m_at;
                isComplete = depth == 0 && (c == '}' || c == ']');
                continue;
            } else {
                passScalar(isWanted);
            }
            isComplete = depth == 0;
        }
    }

    void passScalar(bool isWanted)
    {
        const qsizetype from = m_at;
        while (!isScalarEnd(m_text[m_at]))
            ++m_at;
        if (isWanted)
            m_out.append(m_text.constData() + from, m_at - from);
    }

    void passString(bool isWanted)
    {
        const qsizetype end = stringEnd(m_text, m_at);
        for (; isWanted && m_at < end; ++m_at) {
            // Readers that forgive take a control after a backslash for itself.
            if (m_text[m_at] == '\\' && isControl(m_text[m_at + 1]))
                continue;
            if (m_text[m_at] == '\\')
                m_out += m_text[m_at++];
            appendStorable(end);
        }
        m_at = end;
    }

    void appendStorable(qsizetype end)
    {
        const char c = m_text[m_at];
        const QByteArrayView rest = QByteArrayView(m_text).sliced(m_at, end - m_at);
        if (isControl(c)) {
            m_out += "\\u00" + QByteArray::number(static_cast<int>(c), 16).rightJustified(2, '0');
        } else if (c == '\xEF' && (rest.startsWith("\xEF\xBF\xBE") || rest.startsWith("\xEF\xBF\xBF"))) {
            m_out += rest[2] == '\xBE' ? "\\ufffe" : "\\uffff";
            m_at += 2;
        } else {
            m_out += c;
        }
    }

    bool jumpOver()
    {
        const std::vector<Object> &objects = m_outline.m_objects;
        auto below = static_cast<std::size_t>(m_below);
        while (below < objects.size() && qsizetype(objects[below].from) < m_at)
            below = static_cast<std::size_t>(objects[below].next);
        m_below = static_cast<int>(below);
        if (below >= objects.size() || qsizetype(objects[below].from) != m_at)
            return false;
        m_at = objects[below].end;
        return true;
    }

    const JsonOutline &m_outline;
    const QByteArray &m_text;
    qsizetype m_end; ///< of its closing brace
    qsizetype m_mostBytes;
    qsizetype m_at;
    int m_below; ///< no object of the tree that begins at m_at or later comes before this one
    QByteArray m_out;
};

void JsonOutline::passKey(QByteArrayView key)
{
    Frame &frame = m_open.back();
    if (frame.object == none)
        return;
    frame.member = memberOf(key);
    if (frame.member == Other)
        return;
    // Came before: what it held then is not read.
    int &begin = frame.begins[frame.member];
    const auto count = static_cast<int>(m_objects.size());
    for (int i = begin; i != none && i < count; i = m_objects[static_cast<std::size_t>(i)].next) {
        Object &object = m_objects[static_cast<std::size_t>(i)];
        if (object.member == frame.member)
            object.member = Other;
    }
    begin = count;
}

void JsonOutline::open(char opening, qsizetype at)
{
    Frame frame;
    frame.isArray = opening == '[';
    const Member member = memberToOpen(opening);
    if (frame.isArray) {
        frame.member = member;
    } else if (m_objects.empty() || member != Other) {
        frame.object = static_cast<int>(m_objects.size());
        m_objects.push_back({static_cast<quint32>(at), 0, none, member});
    }
    m_open.push_back(frame);
}

// The member of the tree that holds what opens; Other where it is not of the tree.
JsonOutline::Member JsonOutline::memberToOpen(char opening) const
{
    if (m_open.empty())
        return Other;
    const Frame &around = m_open.back();
    const bool isHeld = around.isArray ? opening == '{' : around.object != none;
    return isHeld ? around.member : Other;
}

void JsonOutline::close(qsizetype end)
{
    const int object = m_open.back().object;
    m_open.pop_back();
    if (object == none)
        return;
    Object &closed = m_objects[static_cast<std::size_t>(object)];
    closed.end = static_cast<quint32>(end);
    closed.next = static_cast<int>(m_objects.size());
}

std::vector<int> JsonOutline::objectsIn(int object, Member member) const
{
    std::vector<int> held;
    if (object == none)
        return held;
    const int end = m_objects[static_cast<std::size_t>(object)].next;
    for (int i = object + 1; i < end; i = m_objects[static_cast<std::size_t>(i)].next) {
        if (m_objects[static_cast<std::size_t>(i)].member == member)
            held.push_back(i);
    }
    return held;
}

QString JsonOutline::textOf(const QByteArray &text, int object, Member without, qsizetype mostBytes) const
{
    return object == none ? QString() : Cutter(*this, text, object, mostBytes).run(without);
}
