#include "scene/metadata/PIO_ComponentReader.h"
#include "scene/metadata/PIO_MetadataFactory.h"
#include "scene/metadata/PIO_MetadataUnknown.h"
#include "support/Records.h"

#include <QXmlAttributes>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <memory>

namespace
{

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

/// Writes down what it is told. It refuses elements called "refused".
class NotingReader : public PIO_XML::ComponentReader
{
public:
    NotingReader(QString *notes, QString path) : m_notes(notes), m_path(std::move(path)) {}

    UT_SharedPtr<ComponentReader> startElement(
        const QString &nameSpace, const QString &localName, const QXmlAttributes &attributes) override
    {
        EXPECT_TRUE(nameSpace.isEmpty());
        *m_notes += m_path + QStringLiteral("<") + localName;
        for (int i = 0; i < attributes.count(); ++i)
            *m_notes += QStringLiteral(" %1=%2").arg(attributes.localName(i), attributes.value(i));
        if (attributes.value(QStringLiteral("empty")).isNull() && attributes.index(QStringLiteral("empty")) >= 0)
            *m_notes += QStringLiteral(" NULL");
        if (!attributes.value(QStringLiteral("absent")).isNull())
            *m_notes += QStringLiteral(" NOT NULL");
        *m_notes += QStringLiteral("> ");
        if (localName == QStringLiteral("refused"))
            return nullptr;
        return new NotingReader(m_notes, m_path + QStringLiteral("."));
    }
    bool endElement(const QString &, const QString &localName) override
    {
        *m_notes += m_path + QStringLiteral("</%1> ").arg(localName);
        return true;
    }
    void handleCDATA(const QString &content) override { *m_notes += QStringLiteral("'%1' ").arg(content); }

private:
    QString *m_notes;
    QString m_path;
};

class NotingRecord : public PlainRecord
{
public:
    NotingRecord(QString *notes, const QString &name) : PlainRecord(name), m_notes(notes) {}
    PIO_XML::ComponentReader *componentReader() override { return new NotingReader(m_notes, QString()); }

private:
    QString *m_notes;
};

class NotingFactory : public PIO_MetadataFactory
{
public:
    NotingFactory() { registerImpl(this); }
    PIO_Metadata *createMeta(
        const QString &type, const QString &name, const QString &creator, const QString &version) override
    {
        notes += QStringLiteral("%1,%2,%3,%4 ").arg(type, name, creator, version);
        return type == QStringLiteral("noting") ? new NotingRecord(&notes, name) : nullptr;
    }
    QString notes;
};

std::string rewritten(const char *markup)
{
    const PIO_RecordResult result = readRecord(text(markup));
    EXPECT_EQ(result.message, QString());
    return markupOf(*result.record);
}

} // namespace

TEST(RecordReader, MakesTheRecordBeforeItsPayloadAndFeedsItDepthFirst)
{
    NotingFactory factory;
    const PIO_RecordResult result =
        readRecord(text("<metadata type='noting' name='n' creator='c' version='2.0'>\n"
                        "  <p a='1' empty=''><c b='x&#10;y'/>words<d/></p>\n  <q/>\n</metadata>"));
    EXPECT_EQ(result.message, QString());
    EXPECT_EQ(factory.notes, text("noting,n,c,2.0 <p a=1 empty=> .<c b=x\ny> .</c> 'words' .<d> .</d> </p> <q> </q> "));
}

TEST(RecordReader, SkipsWhatAReaderRefusesAndGoesOnWithItsSiblings)
{
    NotingFactory factory;
    readRecord(text("<metadata type='noting'><p><refused a='1'><x/>words</refused><d/></p></metadata>"));
    EXPECT_EQ(factory.notes, text("noting,,, <p> .<refused a=1> .<d> .</d> </p> "));
}

TEST(RecordReader, CutsPrefixesOff)
{
    NotingFactory factory;
    readRecord(text("<metadata type='noting'><x:p y:a='1'/></metadata>"));
    EXPECT_EQ(factory.notes, text("noting,,, <p a=1> </p> "));
}

TEST(RecordReader, LeavesTheStreamAtTheEndOfTheRecord)
{
    for (const char *type : {"noting", "unheard of", ""}) {
        NotingFactory factory;
        QXmlStreamReader xml(
            QStringLiteral("<all><metadata type='%1'><p><q/></p></metadata><next/></all>").arg(text(type)));
        xml.setNamespaceProcessing(false);
        xml.readNextStartElement();
        xml.readNextStartElement();
        PIO_RecordReader::read(xml);
        EXPECT_TRUE(xml.isEndElement());
        EXPECT_EQ(xml.name().toString(), text("metadata"));
        EXPECT_TRUE(xml.readNextStartElement());
        EXPECT_EQ(xml.name().toString(), text("next"));
    }
}

TEST(RecordReader, KeepsARecordOfUnknownTypeAsItCame)
{
    const char *const records[] = {
        "<metadata type=\"later\" name=\"n\" creator=\"c\" version=\"9\"/>\n",
        "<metadata type=\"later\" name=\"\" creator=\"\" version=\"\">\n  <x b=\"2\" a=\"1\">\n    <y/>\n  </x>\n"
        "</metadata>\n",
        "<metadata type=\"later\" name=\"\" creator=\"\" version=\"\">a<b/> &lt;c&gt; &amp; \"d\"<e></e></metadata>\n",
        "<metadata type=\"later\" name=\"\" creator=\"\" version=\"\"><!-- why --><?do "
        "it?><![CDATA[<raw>]]></metadata>\n",
        "<metadata type=\"later\" name=\"\" creator=\"\" version=\"\"><p:x xmlns:p=\"u\" "
        "q:a=\"1&#9;&quot;\"/></metadata>\n",
        "<metadata type=\"later\" name=\"\" creator=\"\" version=\"\">\n</metadata>\n",
        "<metadata version=\"9\" p:lock=\"yes&#10;\" type=\"later\"/>\n",
        "<metadata type=\"later\" name=\"\"/>\n",
    };
    for (const char *record : records) {
        std::string expected = record;
        if (const auto at = expected.find("<e></e>"); at != std::string::npos)
            expected.replace(at, 7, "<e/>"); // the one liberty: the short form of an empty element
        EXPECT_EQ(rewritten(record), expected);
        EXPECT_EQ(rewritten(expected.c_str()), expected);
    }
}

TEST(RecordReader, GivesAnUnknownRecordItsTextsAndContent)
{
    const PIO_RecordResult result =
        readRecord(text("<metadata type='later' name='n' creator='c' version='9'><x a='ż'/></metadata>"));
    auto *record = dynamic_cast<PIO_MetadataUnknown *>(result.record.get());
    ASSERT_NE(record, nullptr);
    EXPECT_TRUE(record->isValid());
    EXPECT_EQ(record->componentReader(), nullptr);
    EXPECT_EQ(record->metaType(), text("later"));
    EXPECT_EQ(record->content(), text("<x a=\"ż\"/>"));
    const std::unique_ptr<PIO_Metadata> copy(record->clone());
    EXPECT_EQ(markupOf(*copy), markupOf(*record));
    QString dump;
    record->dumpToString(dump);
    EXPECT_EQ(dump, text("type=later, name=n, creator=c, version=9, content=<x a=\"ż\"/>\n"));
}

TEST(RecordReader, ReadsMissingTextsAsNullAndEmptyOnesAsEmpty)
{
    const auto absent = readRecord(text("<metadata type='later'/>"));
    EXPECT_TRUE(absent.record->metaName().isNull());
    const auto empty = readRecord(text("<metadata type='later' name=''/>"));
    EXPECT_TRUE(empty.record->metaName().isEmpty());
    EXPECT_FALSE(empty.record->metaName().isNull());
}

TEST(RecordReader, ReportsARecordWithoutAType)
{
    for (const char *markup :
        {"<all>\n <metadata name='n'><x/></metadata></all>", "<all>\n <metadata type=''/></all>"}) {
        QXmlStreamReader xml(text(markup));
        xml.readNextStartElement();
        xml.readNextStartElement();
        const PIO_RecordResult result = PIO_RecordReader::read(xml);
        EXPECT_EQ(result.record, nullptr);
        EXPECT_EQ(result.message, text("a record without a type"));
        EXPECT_EQ(result.line, 2);
        EXPECT_GT(result.column, 0);
    }
}

TEST(RecordReader, LeavesOutARecordThatNestsTooDeep)
{
    NotingFactory factory;
    const int limit = PIO_RecordReader::depthLimit;
    for (const char *type : {"noting", "later"}) {
        const auto nested = [type](int depth) {
            return QStringLiteral("<metadata type='%1'>").arg(text(type)) + QStringLiteral("<x>").repeated(depth)
                + QStringLiteral("</x>").repeated(depth) + QStringLiteral("</metadata>");
        };
        EXPECT_NE(readRecord(nested(limit - 1)).record, nullptr);
        const PIO_RecordResult tooDeep = readRecord(nested(limit));
        EXPECT_EQ(tooDeep.record, nullptr);
        EXPECT_EQ(tooDeep.message, text("the record nests deeper than 20000 elements"));
        EXPECT_EQ(readRecord(nested(200000)).record, nullptr);
    }
}

TEST(RecordReader, EndsAtATruncatedText)
{
    for (const char *type : {"int", "later"})
        readRecord(QStringLiteral("<metadata type='%1'><int value='1'><x>").arg(text(type)));
    QXmlStreamReader xml(text("<metadata type='later'><x>"));
    xml.readNextStartElement();
    PIO_RecordReader::read(xml);
    EXPECT_TRUE(xml.hasError());
}
