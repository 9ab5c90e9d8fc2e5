#include "listing/JsonWriter.h"

#include "listing/NumberText.h"
#include "listing/TextSafety.h"

#include <cmath>

namespace
{

QString escaped(const QString &text)
{
    QString result;
    result.reserve(text.size() + 2);
    result += u'"';
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text[i];
        const bool isPair = character.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (isPair) {
            result += character;
            result += text[++i];
        } else if (character.isSurrogate()) {
            result += QChar(QChar::ReplacementCharacter); // half a character is no UTF-8
        } else if (character == u'"' || character == u'\\') {
            result += u'\\';
            result += character;
        } else if (character == u'\n') {
            result += QLatin1String("\\n");
        } else if (character == u'\t') {
            result += QLatin1String("\\t");
        } else if (TextSafety::isActing(character.unicode())) {
            result += TextSafety::escape(character);
        } else {
            result += character;
        }
    }
    return result + u'"';
}

QString valueText(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return QStringLiteral("null");
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QMetaType::Double: {
        const double number = value.toDouble();
        return std::isfinite(number) ? numberText(number) : QStringLiteral("null");
    }
    case QMetaType::QString:
        return escaped(value.toString());
    default:
        return value.toString();
    }
}

} // namespace

void JsonWriter::beginObject(Layout layout)
{
    if (!m_open.empty())
        startMember();
    begin(u'{', layout);
}

void JsonWriter::beginObject(QLatin1String key, Layout layout)
{
    writeKey(key);
    begin(u'{', layout);
}

void JsonWriter::endObject()
{
    end(u'}');
}

void JsonWriter::beginArray(QLatin1String key)
{
    writeKey(key);
    begin(u'[', Lines);
}

void JsonWriter::endArray()
{
    end(u']');
}

void JsonWriter::field(const QString &key, const QVariant &value)
{
    writeKey(key);
    m_text += valueText(value);
}

void JsonWriter::startMember()
{
    Container &container = m_open.back();
    if (!container.isEmpty)
        m_text += u',';
    if (!container.isOneLine)
        breakLine();
    else if (!container.isEmpty)
        m_text += u' ';
    container.isEmpty = false;
}

void JsonWriter::writeKey(const QString &key)
{
    startMember();
    m_text += escaped(key) + QLatin1String(": ");
}

void JsonWriter::begin(QChar bracket, Layout layout)
{
    const bool isWithinLine = !m_open.empty() && m_open.back().isOneLine;
    m_text += bracket;
    m_open.push_back({layout == OneLine || isWithinLine, /*isEmpty*/ true});
}

void JsonWriter::end(QChar bracket)
{
    const Container container = m_open.back();
    m_open.pop_back();
    if (!container.isOneLine && !container.isEmpty)
        breakLine();
    m_text += bracket;
}

void JsonWriter::breakLine()
{
    m_text += u'\n';
    m_text += QString(2 * static_cast<qsizetype>(m_open.size()), u' ');
}
