#include "scene/metadata/PO_XmlWriter.h"

#include <QIODevice>
#include <QLocale>

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{

constexpr qsizetype blockSize = 1 << 16;
// Deeper elements are indented like this one: blanks that grow with the depth would outgrow the text.
constexpr std::size_t deepestIndented = 100;

bool isPlain(char16_t unit)
{
    return unit >= 0x20 && unit < 0x7F && unit != u'&' && unit != u'<' && unit != u'>' && unit != u'"';
}

/// The reference for a character that cannot stand for itself in an attribute, or null.
const char *referenceFor(char16_t unit)
{
    switch (unit) {
    case u'&':
        return "&amp;";
    case u'<':
        return "&lt;";
    case u'>':
        return "&gt;";
    case u'"':
        return "&quot;";
    case u'\t':
        return "&#9;";
    case u'\n':
        return "&#10;";
    case u'\r':
        return "&#13;";
    default:
        return nullptr;
    }
}

void appendUtf8(QByteArray &bytes, char32_t point)
{
    const auto tail = [&bytes, point](int shift) { bytes.append(char(0x80 | ((point >> shift) & 0x3F))); };
    if (point < 0x80) {
        bytes.append(char(point));
    } else if (point < 0x800) {
        bytes.append(char(0xC0 | (point >> 6)));
        tail(0);
    } else if (point < 0x10000) {
        bytes.append(char(0xE0 | (point >> 12)));
        tail(6);
        tail(0);
    } else {
        bytes.append(char(0xF0 | (point >> 18)));
        tail(12);
        tail(6);
        tail(0);
    }
}

} // namespace

PO_XmlWriter::PO_XmlWriter(QIODevice *device) : m_device(device)
{
    m_bytes.reserve(blockSize + blockSize / 4);
}

bool PO_XmlWriter::flush()
{
    if (m_device && !m_bytes.isEmpty()) {
        m_failed = m_failed || m_device->write(m_bytes) != m_bytes.size();
        m_bytes.resize(0); // keeps the room
    }
    return !m_failed;
}

void PO_XmlWriter::beginDocument()
{
    m_started = true;
    m_bytes.append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
}

void PO_XmlWriter::beginElement(const QString &name)
{
    closeTag();
    if (m_device && m_bytes.size() >= blockSize)
        flush();
    newLine();
    m_elements.push_back(name);
    m_bytes.append('<');
    appendEscaped(name);
    m_tagIsOpen = true;
    m_endOnSameLine = false;
}

void PO_XmlWriter::endElement()
{
    Q_ASSERT(!m_elements.empty());
    if (m_elements.empty())
        return;
    const QString name = m_elements.back();
    m_elements.pop_back();
    if (m_tagIsOpen) {
        m_bytes.append("/>");
    } else {
        if (!m_endOnSameLine)
            newLine();
        m_bytes.append("</");
        appendEscaped(name);
        m_bytes.append('>');
    }
    m_tagIsOpen = false;
    m_endOnSameLine = false;
    if (m_elements.empty())
        m_bytes.append('\n');
}

void PO_XmlWriter::encodeStringAttr(const QString &name, const QString &value)
{
    beginAttr(name);
    appendEscaped(value);
    m_bytes.append('"');
}

void PO_XmlWriter::encodeIntAttr(const QString &name, int value)
{
    beginAttr(name);
    m_bytes.append(QByteArray::number(value)).append('"');
}

void PO_XmlWriter::encodeBoolAttr(const QString &name, bool value)
{
    beginAttr(name);
    m_bytes.append(value ? "true\"" : "false\"");
}

void PO_XmlWriter::encodeDoubleAttr(const QString &name, double value)
{
    beginAttr(name);
    if (value == 0.0 && std::signbit(value))
        m_bytes.append('-'); // number() forgets the sign of 0
    m_bytes.append(QByteArray::number(value, 'g', QLocale::FloatingPointShortest)).append('"');
}

void PO_XmlWriter::encodeColorAttr(const QString &name, unsigned int colour)
{
    beginAttr(name);
    m_bytes.append('#').append(QByteArray::number(colour, 16).rightJustified(8, '0')).append('"');
}

void PO_XmlWriter::encodeBinaryElement(
    const QString &element, const QString &attribute, const char *bytes, qsizetype length)
{
    beginElement(element);
    beginAttr(attribute);
    if (bytes && length > 0)
        m_bytes.append(QByteArray::fromRawData(bytes, length).toBase64());
    m_bytes.append('"');
    endElement();
}

void PO_XmlWriter::writeMarkup(const QString &markup)
{
    if (markup.isEmpty())
        return;
    closeTag();
    m_bytes.append(markup.toUtf8());
    m_endOnSameLine = true;
}

void PO_XmlWriter::forgetText()
{
    closeTag();
    m_bytes.resize(0); // keeps the room
}

QByteArray PO_XmlWriter::takeText()
{
    return std::exchange(m_bytes, QByteArray());
}

void PO_XmlWriter::writeElements(const QByteArray &elements)
{
    closeTag();
    m_bytes.append(elements);
}

void PO_XmlWriter::closeTag()
{
    if (m_tagIsOpen)
        m_bytes.append('>');
    m_tagIsOpen = false;
}

void PO_XmlWriter::newLine()
{
    if (m_started)
        m_bytes.append('\n').append(qsizetype(2 * std::min(m_elements.size(), deepestIndented)), ' ');
    m_started = true;
}

void PO_XmlWriter::beginAttr(const QString &name)
{
    Q_ASSERT(m_tagIsOpen);
    m_bytes.append(' ');
    appendEscaped(name);
    m_bytes.append("=\"");
}

void PO_XmlWriter::appendPlain(QStringView text)
{
    const qsizetype old = m_bytes.size();
    m_bytes.resize(old + text.size());
    std::transform(text.begin(), text.end(), m_bytes.begin() + old, [](QChar unit) { return char(unit.unicode()); });
}

void PO_XmlWriter::appendEscaped(QStringView text)
{
    while (!text.isEmpty()) {
        const auto special =
            std::find_if_not(text.begin(), text.end(), [](QChar unit) { return isPlain(unit.unicode()); });
        if (const qsizetype plain = special - text.begin(); plain > 0) {
            appendPlain(text.first(plain));
            text = text.sliced(plain);
        } else {
            text = appendSpecial(text);
        }
    }
}

/// Writes the first character, which is not plain, unless XML forbids it, and gives the text behind it.
QStringView PO_XmlWriter::appendSpecial(QStringView text)
{
    const char16_t unit = text.front().unicode();
    const QStringView rest = text.sliced(1);
    if (const char *reference = referenceFor(unit)) {
        m_bytes.append(reference);
    } else if (QChar::isHighSurrogate(unit) && !rest.isEmpty() && rest.front().isLowSurrogate()) {
        appendUtf8(m_bytes, QChar::surrogateToUcs4(unit, rest.front().unicode()));
        return rest.sliced(1);
    } else if (unit >= 0x20 && !QChar::isSurrogate(unit) && unit < 0xFFFE) {
        appendUtf8(m_bytes, unit);
    }
    return rest;
}
