#pragma once

#include "plotka_scene_export.h"

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <vector>

class QIODevice;

/// Writes XML with the attributes of an element in the order in which they are encoded.
///
/// Any text may be given: what XML 1.0 forbids is dropped, lone halves of surrogate pairs included,
/// and white space in attributes is written so that it reads back. Numbers are written in the C locale
/// with the digits they need to read back equal. The same calls give the same bytes.
class PLOTKA_SCENE_EXPORT PO_XmlWriter
{
public:
    /// Collects the text in memory.
    PO_XmlWriter() = default;
    /// Passes the text on to a borrowed device, in blocks; flush() passes on the rest.
    explicit PO_XmlWriter(QIODevice *device);
    PO_XmlWriter(const PO_XmlWriter &) = delete;
    PO_XmlWriter &operator=(const PO_XmlWriter &) = delete;

    /// The text not yet passed on to a device; all of it when there is none.
    const QByteArray &bytes() const { return m_bytes; }
    /// False once the device has refused something.
    bool flush();

    void beginDocument();
    void beginElement(const QString &name);
    void endElement();

    /// @name Attributes of the element just begun
    /// They come before its children. A null text is written as an empty one.
    /// @{
    void encodeStringAttr(const QString &name, const QString &value);
    void encodeIntAttr(const QString &name, int value);
    void encodeBoolAttr(const QString &name, bool value);
    void encodeDoubleAttr(const QString &name, double value);
    /// A colour as QColor::rgba() or QColor::rgb() gives it.
    void encodeColorAttr(const QString &name, unsigned int colour);
    /// @}

    /// A whole element whose one attribute holds the bytes.
    void encodeBinaryElement(const QString &element, const QString &attribute, const char *bytes, qsizetype length);

    /// Puts well-formed XML as it stands into the current element, white space included.
    void writeMarkup(const QString &markup);

    /// @name Text taken apart
    /// Of a writer without a device.
    /// @{
    /// Ends the tag that is open, so that what comes next begins at the end of bytes().
    void endTag() { closeTag(); }
    /// Forgets the text; the elements that are open stay open.
    void forgetText();
    /// Hands the text over, which this writer then has no more.
    QByteArray takeText();
    /// Puts in whole elements that another writer wrote in the same depth, line breaks before them included.
    void writeElements(const QByteArray &elements);
    /// @}

private:
    void closeTag();
    void newLine();
    void beginAttr(const QString &name);
    void appendPlain(QStringView text);
    void appendEscaped(QStringView text);
    QStringView appendSpecial(QStringView text);

    QIODevice *m_device = nullptr;
    bool m_failed = false;
    bool m_started = false;
    bool m_tagIsOpen = false;
    bool m_endOnSameLine = false;
    QByteArray m_bytes;
    std::vector<QString> m_elements;
};
