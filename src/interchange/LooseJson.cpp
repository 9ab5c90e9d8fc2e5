#include "interchange/LooseJson_p.h"

#include <QCoreApplication>
#include <QJsonDocument>

#include <algorithm>
#include <charconv>
#include <system_error>
#include <vector>

namespace
{

QString tr(const char *text)
{
    return QCoreApplication::translate("LooseJson", text);
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isWordPart(char c)
{
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

// Walks the tokens of one text, sees that they follow one another as they must, and writes them
// anew. Offsets of the new text are brought back to the old one through the places where a
// replacement changed the length.
class TokenPass
{
public:
    TokenPass(const QByteArray &text, LooseJson &result) : m_text(text), m_result(result) {}

    bool run()
    {
        m_out.reserve(m_text.size());
        while (m_at < m_text.size()) {
            if (!step())
                return false;
        }
        return m_next == Nothing || refuse(tr("the text ends before it is complete"));
    }

    const QByteArray &out() const { return m_out; }
    /// Where in the old text the byte at @p newOffset came from.
    qsizetype oldOffset(qsizetype newOffset) const
    {
        const auto isAfter = [](qsizetype offset, const Shift &shift) { return offset < shift.newOffset; };
        const auto after = std::upper_bound(m_shifts.begin(), m_shifts.end(), newOffset, isAfter);
        const qsizetype shift = after == m_shifts.begin() ? 0 : std::prev(after)->oldMinusNew;
        return std::min(newOffset + shift, m_text.size());
    }
    qsizetype position() const { return m_at; }
    const QString &refusal() const { return m_refusal; }

private:
    enum Expected { Value, ValueOrEnd, Key, KeyOrEnd, Colon, CommaOrEnd, Nothing };

    struct Shift {
        qsizetype newOffset;
        qsizetype oldMinusNew;
    };

    bool step()
    {
        const char c = m_text[m_at];
        if (isJsonSpace(c)) {
            copyTo(m_at + 1);
            return true;
        }
        switch (c) {
        case '{':
            return enter('}', KeyOrEnd);
        case '[':
            return enter(']', ValueOrEnd);
        case '}':
        case ']':
            return leave(c);
        case ',':
            return passComma();
        case ':':
            return m_next == Colon ? passMark(Value) : refuseUnexpected();
        case '"':
            return copyString();
        default:
            return copyScalar(c);
        }
    }

    bool passMark(Expected next)
    {
        copyTo(m_at + 1);
        m_next = next;
        return true;
    }

    bool enter(char closing, Expected next)
    {
        if (!isValueExpected())
            return refuseUnexpected();
        if (m_open.size() >= LooseJson::mostDepth)
            return refuse(tr("nested more than %1 deep").arg(LooseJson::mostDepth));
        m_open.append(closing);
        m_result.outline.open(m_text[m_at], m_at);
        return passMark(next);
    }

    bool leave(char closing)
    {
        const bool mayEnd = m_next == ValueOrEnd || m_next == KeyOrEnd || m_next == CommaOrEnd;
        if (!mayEnd || m_open.isEmpty() || m_open.back() != closing)
            return refuseUnexpected();
        m_open.chop(1);
        m_result.outline.close(m_at + 1);
        return passMark(afterValue());
    }

    bool passComma()
    {
        if (m_next != CommaOrEnd)
            return refuseUnexpected();
        if (++m_commas >= LooseJson::mostValues)
            return refuse(tr("more than %1 values").arg(LooseJson::mostValues));
        return passMark(m_open.back() == '}' ? Key : Value);
    }

    bool copyString()
    {
        const bool isKey = m_next == Key || m_next == KeyOrEnd;
        if (!isKey && !isValueExpected())
            return refuseUnexpected();
        qsizetype end = m_at + 1;
        while (end < m_text.size() && m_text[end] != '"')
            end += m_text[end] == '\\' ? 2 : 1;
        if (end >= m_text.size())
            return refuse(tr("the text ends within this string"));
        if (isKey)
            m_result.outline.passKey(QByteArrayView(m_text).sliced(m_at + 1, end - m_at - 1));
        copyTo(end + 1);
        m_next = isKey ? Colon : afterValue();
        return true;
    }

    // A number or a word.
    bool copyScalar(char c)
    {
        if (!isValueExpected())
            return refuseUnexpected();
        const qsizetype afterSign = m_at + (c == '-' || c == '+' ? 1 : 0); // numbers have no plus, words may
        const bool isWord = afterSign < m_text.size() && isWordPart(m_text[afterSign]) && !isDigit(m_text[afterSign]);
        if (!(isWord ? copyWord(afterSign) : copyNumber(afterSign)))
            return false;
        m_next = afterValue();
        return true;
    }

    bool copyWord(qsizetype from)
    {
        qsizetype end = from;
        while (end < m_text.size() && isWordPart(m_text[end]))
            ++end;
        const QByteArray word = m_text.mid(from, end - from);
        if (word == "NaN" || word == "Inf" || word == "Infinity") {
            ++m_result.notFinite;
            replaceTo(end, QByteArrayLiteral("null"));
            return true;
        }
        if (from > m_at || (word != "true" && word != "false" && word != "null"))
            return refuse(tr("%1 is no value").arg(QString::fromLatin1(word.left(40))));
        copyTo(end);
        return true;
    }

    // Only what QJsonDocument would refuse or read wrong is touched; the rest, right or wrong, is its
    // business.
    bool copyNumber(qsizetype afterSign)
    {
        qsizetype end = afterSign;
        bool isInteger = true;
        for (; end < m_text.size(); ++end) {
            const char c = m_text[end];
            const bool isMore = c == '.' || c == 'e' || c == 'E' || c == '+' || c == '-';
            if (!isDigit(c) && !isMore)
                break;
            isInteger = isInteger && !isMore;
        }
        if (end == afterSign)
            return refuse(tr("a value is expected here"));
        const char *first = m_text.constData() + m_at;
        const char *last = m_text.constData() + end;
        double value = 0.0;
        const std::from_chars_result read = std::from_chars(first, last, value);
        if (read.ptr != last)
            return refuse(tr("this is no number"));
        bool fits = false;
        if (isInteger)
            QByteArray::fromRawData(first, end - m_at).toLongLong(&fits);

        if (read.ec == std::errc::result_out_of_range && isTiny(first, last)) {
            replaceTo(end, QByteArrayLiteral("0"));
        } else if (read.ec == std::errc::result_out_of_range) {
            ++m_result.notFinite;
            replaceTo(end, QByteArrayLiteral("null"));
        } else if (isInteger && !fits) {
            ++m_result.longIntegers;
            replaceTo(end, QByteArray::number(value, 'e', 17));
        } else {
            copyTo(end);
        }
        return true;
    }

    // Of a number outside the range of a double: whether it is too near to 0 rather than too far. The power
    // of ten of its first digit tells.
    static bool isTiny(const char *first, const char *last)
    {
        const char *mark = std::find_if(first, last, [](char c) { return c == 'e' || c == 'E'; });
        const char *point = std::find(first, mark, '.');
        const char *digit = std::find_if(first, mark, [](char c) { return c >= '1' && c <= '9'; });
        const char *power = std::find_if(mark, last, [](char c) { return c == '-' || isDigit(c); });
        int exponent = 0;
        if (std::from_chars(power, last, exponent).ec == std::errc::result_out_of_range)
            return *power == '-'; // there are fewer digits than that
        return point - digit + qint64(exponent) < 0;
    }

    bool isValueExpected() const { return m_next == Value || m_next == ValueOrEnd; }
    Expected afterValue() const { return m_open.isEmpty() ? Nothing : CommaOrEnd; }

    bool refuseUnexpected()
    {
        switch (m_next) {
        case Value:
        case ValueOrEnd:
            return refuse(tr("a value is expected here"));
        case Key:
        case KeyOrEnd:
            return refuse(tr("a name in quotes is expected here"));
        case Colon:
            return refuse(tr("a colon is expected here"));
        case CommaOrEnd:
            return refuse(tr("a comma or %1 is expected here").arg(QLatin1Char(m_open.back())));
        case Nothing:
            break;
        }
        return refuse(tr("nothing is expected after the end of the object"));
    }

    bool refuse(const QString &reason)
    {
        m_refusal = reason;
        return false;
    }

    void copyTo(qsizetype end)
    {
        m_out.append(m_text.constData() + m_at, end - m_at);
        m_at = end;
    }

    void replaceTo(qsizetype end, const QByteArray &replacement)
    {
        m_out.append(replacement);
        m_at = end;
        m_shifts.push_back({m_out.size(), m_at - m_out.size()});
    }

    const QByteArray &m_text;
    LooseJson &m_result;
    QByteArray m_out;
    QByteArray m_open; ///< the closing marks of what is open
    std::vector<Shift> m_shifts;
    QString m_refusal;
    qsizetype m_at = 0;
    qsizetype m_commas = 0;
    Expected m_next = Value;
};

void setError(LooseJson &result, const QByteArray &text, qsizetype offset, const QString &reason)
{
    result.error = reason;
    result.line = 1;
    result.column = 1;
    for (qsizetype i = 0; i < std::min(offset, text.size()); ++i) {
        const char c = text[i];
        const bool isLineEnd = c == '\n' || (c == '\r' && !(i + 1 < text.size() && text[i + 1] == '\n'));
        if (isLineEnd) {
            ++result.line;
            result.column = 1;
        } else if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U) {
            ++result.column; // continuation bytes of a character count nothing
        }
    }
}

bool isUtf16(const QByteArray &bytes)
{
    return bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF")
        || (bytes.size() > 1 && (bytes[0] == '\0') != (bytes[1] == '\0'));
}

} // namespace

LooseJson LooseJson::parse(const QByteArray &bytes)
{
    LooseJson result;
    if (bytes.size() > mostBytes) {
        setError(result, bytes, 0, tr("larger than %1 MB").arg(mostBytes / (1024 * 1024)));
        return result;
    }
    if (isUtf16(bytes)) {
        setError(result, bytes, 0, tr("the text is not UTF-8"));
        return result;
    }
    result.text = bytes.startsWith("\xEF\xBB\xBF") ? bytes.mid(3) : bytes;
    const QByteArray &text = result.text;
    if (std::all_of(text.begin(), text.end(), isJsonSpace)) {
        setError(result, text, 0, tr("the file is empty"));
        return result;
    }

    TokenPass pass(text, result);
    if (!pass.run()) {
        setError(result, text, pass.position(), pass.refusal());
        return result;
    }
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(pass.out(), &parseError);
    if (parseError.error != QJsonParseError::NoError)
        setError(result, text, pass.oldOffset(parseError.offset), parseError.errorString());
    else if (!document.isObject())
        setError(result, text, 0, tr("the file does not hold an object"));
    else
        result.root = document.object();
    return result;
}
