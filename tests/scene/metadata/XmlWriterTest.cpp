#include "scene/metadata/DB_MemFile.h"
#include "scene/metadata/PIO_ComponentReader.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_Utils.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QBuffer>
#include <QXmlAttributes>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <limits>

namespace
{

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

QString attributeReadBack(const QString &value)
{
    PO_XmlWriter writer;
    writer.beginElement(text("e"));
    writer.encodeStringAttr(text("a"), value);
    writer.endElement();
    QXmlStreamReader xml(writer.bytes());
    EXPECT_TRUE(xml.readNextStartElement()) << writer.bytes().toStdString();
    const QString read = xml.attributes().value(QLatin1String("a")).toString();
    xml.readNext();
    xml.readNext();
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return read;
}

/// Exposes the decoder of binary attributes.
class Decoder : public PIO_XML::ComponentReader
{
public:
    UT_SharedPtr<ComponentReader> startElement(const QString &, const QString &, const QXmlAttributes &) override
    {
        return this;
    }
    bool endElement(const QString &, const QString &) override { return true; }
};

/// A device that is full from the start.
class FullDevice : public QIODevice
{
protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64) override { return -1; }
};

} // namespace

TEST(XmlWriter, WritesAttributesInTheOrderOfTheCalls)
{
    PO_XmlWriter writer;
    writer.beginDocument();
    writer.beginElement(text("z"));
    writer.encodeStringAttr(text("b"), text("B"));
    writer.encodeIntAttr(text("a"), -3);
    writer.encodeBoolAttr(text("d"), true);
    writer.encodeBoolAttr(text("c"), false);
    writer.encodeDoubleAttr(text("f"), 0.1);
    writer.encodeColorAttr(text("e"), 0x00ABCDEFu);
    writer.beginElement(text("y"));
    writer.endElement();
    writer.beginElement(text("x"));
    writer.beginElement(text("w"));
    writer.endElement();
    writer.endElement();
    writer.endElement();
    EXPECT_EQ(writer.bytes().toStdString(),
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<z b=\"B\" a=\"-3\" d=\"true\" c=\"false\" f=\"0.1\" e=\"#00abcdef\">\n"
        "  <y/>\n  <x>\n    <w/>\n  </x>\n</z>\n");
}

TEST(XmlWriter, WritesANullTextAsAnEmptyAttribute)
{
    PO_XmlWriter writer;
    writer.beginElement(text("e"));
    writer.encodeStringAttr(text("a"), QString());
    writer.endElement();
    EXPECT_EQ(writer.bytes().toStdString(), "<e a=\"\"/>\n");
}

TEST(XmlWriter, KeepsEveryTextThatXmlAllows)
{
    const QString odd = text(" <>&\"' \t\n\r\r\n ]]> Płotka \xE2\x80\xA8 \xF0\x9F\x8E\xAC \x7F \xC2\x85 ");
    EXPECT_EQ(attributeReadBack(odd), odd);
    const char32_t edges[] = {0x20, 0xD7FF, 0xE000, 0xFFFD, 0x10000, 0x10FFFD};
    const QString edge = QString::fromUcs4(edges, 6);
    EXPECT_EQ(attributeReadBack(edge), edge);
}

TEST(XmlWriter, DropsWhatXmlForbids)
{
    QString forbidden = text("a");
    for (char16_t unit :
        {u'\0', u'\x01', u'\x08', u'\x0B', u'\x0C', u'\x1F', char16_t(0xFFFE), char16_t(0xFFFF), char16_t(0xDC00)})
        forbidden += QChar(unit);
    forbidden += text("b");
    forbidden += QChar(0xD800);
    forbidden += text("c");
    forbidden += QChar(0xD83C); // half of a pair at the very end
    EXPECT_EQ(attributeReadBack(forbidden), text("abc"));
}

TEST(XmlWriter, WritesEveryCharacterSoThatTheTextReadsBack)
{
    for (char32_t from = 0; from < 0x110000; from += 0x400) {
        QString all;
        QString allowed;
        for (char32_t point = from; point < from + 0x400; ++point) {
            const QString one = point < 0x10000 ? QString(QChar(char16_t(point))) : QString::fromUcs4(&point, 1);
            all += one;
            // A gap, so that halves of pairs stay alone.
            all += QLatin1Char('.');
            const bool surrogate = point >= 0xD800 && point < 0xE000;
            const bool control = point < 0x20 && point != 9 && point != 10 && point != 13;
            if (!surrogate && !control && point != 0xFFFE && point != 0xFFFF)
                allowed += one;
            allowed += QLatin1Char('.');
        }
        ASSERT_EQ(attributeReadBack(all), allowed) << "from code point " << unsigned(from);
    }
}

TEST(XmlWriter, PassesALongTextOnToItsDevice)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    PO_XmlWriter direct;
    PO_XmlWriter passed(&buffer);
    for (PO_XmlWriter *writer : {&direct, &passed}) {
        writer->beginDocument();
        writer->beginElement(text("all"));
        for (int i = 0; i < 20000; ++i) {
            writer->beginElement(text("one"));
            writer->encodeIntAttr(text("number"), i);
            writer->endElement();
        }
        writer->endElement();
        EXPECT_TRUE(writer->flush());
    }
    EXPECT_TRUE(passed.bytes().isEmpty());
    EXPECT_TRUE(buffer.data() == direct.bytes());
}

TEST(XmlWriter, TellsThatItsDeviceRefused)
{
    FullDevice device;
    device.open(QIODevice::WriteOnly);
    PO_XmlWriter writer(&device);
    writer.beginElement(text("e"));
    writer.endElement();
    EXPECT_FALSE(writer.flush());
    EXPECT_FALSE(writer.flush());
}

TEST(XmlWriter, WritesBytesThatReadBack)
{
    QByteArray all;
    for (int i = 0; i < 256; ++i)
        all.append(char(i));
    for (const QByteArray &bytes : {QByteArray(), QByteArray("a"), QByteArray("\0\0", 2), all}) {
        PO_XmlWriter writer;
        writer.encodeBinaryElement(text("value"), text("data"), bytes.constData(), bytes.size());
        QXmlStreamReader xml(writer.bytes());
        ASSERT_TRUE(xml.readNextStartElement());
        EXPECT_EQ(xml.name().toString(), text("value"));
        QXmlAttributes attributes;
        attributes.append(text("data"), QString(), text("data"),
            QString::fromLatin1("") + xml.attributes().value(QLatin1String("data")).toString());
        DB_MemFile file(QByteArrayLiteral("old"));
        EXPECT_TRUE(Decoder().decodeBinaryAttr(attributes, text("data"), file));
        EXPECT_EQ(QByteArray(file.GetBuffer(), file.GetLength()), bytes);
    }
}

TEST(ComponentReader, LeavesTheFileAloneWhenTheAttributeIsAbsentOrMalformed)
{
    QXmlAttributes attributes;
    attributes.append(text("data"), QString(), text("data"), text("a*b="));
    DB_MemFile file(QByteArrayLiteral("old"));
    EXPECT_FALSE(Decoder().decodeBinaryAttr(attributes, text("data"), file));
    EXPECT_FALSE(Decoder().decodeBinaryAttr(attributes, text("other"), file));
    EXPECT_EQ(file.GetLength(), 3);
    Decoder().handleCDATA(text("ignored"));
}

TEST(WritingContext, KnowsTheModesThatWereSet)
{
    PO_XmlWriter writer;
    PIO_WritingContext context(writer);
    EXPECT_EQ(&context.xmlWriter(), &writer);
    EXPECT_FALSE(context.GetAttribute(text("for_drag")));
    context.setAttribute(text("for_drag"));
    context.setAttribute(text("for_drag"));
    EXPECT_TRUE(context.GetAttribute(text("for_drag")));
    EXPECT_FALSE(context.GetAttribute(text("for_Drag")));
    context.setAttribute(text("for_drag"), false);
    EXPECT_FALSE(context.GetAttribute(text("for_drag")));
}

TEST(Attributes, ReadBoolsExactly)
{
    bool value = false;
    EXPECT_TRUE(PO_Utils::parseBoolAttr(text("true"), value));
    EXPECT_TRUE(value);
    for (const char *bad : {"", "True", "1", "true ", "yes"})
        EXPECT_FALSE(PO_Utils::parseBoolAttr(text(bad), value)) << bad;
    EXPECT_FALSE(PO_Utils::parseBoolAttr(QString(), value));
    EXPECT_TRUE(value);
    EXPECT_TRUE(PO_Utils::parseBoolAttr(text("false"), value));
    EXPECT_FALSE(value);
}

TEST(Attributes, ReadColoursAsTheyAreWritten)
{
    for (unsigned int colour : {0u, 0xFF000000u, 0x12ABCDEFu, 0xFFFFFFFFu}) {
        PO_XmlWriter writer;
        writer.beginElement(text("e"));
        writer.encodeColorAttr(text("c"), colour);
        writer.endElement();
        QXmlStreamReader xml(writer.bytes());
        xml.readNextStartElement();
        unsigned int read = 1;
        EXPECT_TRUE(PO_Utils::parseColorAttr(xml.attributes().value(QLatin1String("c")).toString(), read));
        EXPECT_EQ(read, colour);
    }
    unsigned int kept = 7;
    for (const char *bad : {"", "#", "#1234567", "#123456789", "12345678", "#1234567g", "#-1234567"})
        EXPECT_FALSE(PO_Utils::parseColorAttr(text(bad), kept)) << bad;
    EXPECT_EQ(kept, 7u);
}
