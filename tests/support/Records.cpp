#include "support/Records.h"

#include "metadata/PKC_MetadataFactory.h"
#include "scene/metadata/PIO_RecordWriter.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"
#include "scene/project/TUScene.h"

#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <utility>

namespace
{

std::unique_ptr<PIO_Metadata> soundRecord(const QString &markup)
{
    PKC_MetadataFactory::createInstance();
    PIO_RecordResult result = readRecord(markup);
    EXPECT_TRUE(result.message.isEmpty()) << result.message.toStdString();
    return std::move(result.record);
}

} // namespace

std::string markupOf(const PIO_Metadata &record)
{
    PO_XmlWriter writer;
    PIO_WritingContext context(writer);
    PIO_RecordWriter::write(record, context);
    return writer.bytes().toStdString();
}

std::string typesOf(const PIO_Metadatas &records)
{
    QStringList types;
    for (const PIO_Metadata *record : records)
        types += record->metaType();
    return types.join(u' ').toStdString();
}

std::string typesOf(const TUScene &scene)
{
    return typesOf(*scene.metadatas());
}

PIO_RecordResult readRecord(const QString &markup)
{
    QXmlStreamReader xml(markup);
    xml.setNamespaceProcessing(false);
    xml.readNextStartElement();
    return PIO_RecordReader::read(xml);
}

std::string textsOf(const PIO_Metadata &record)
{
    return QStringLiteral("%1 '%2' '%3' '%4'")
        .arg(record.metaType(), record.metaName(), record.creator(), record.version())
        .toStdString();
}

std::unique_ptr<PIO_Metadata> loadRecord(const QString &type, const QString &payload, const QString &version)
{
    return soundRecord(
        QStringLiteral("<metadata type='%1' name='inside' creator='elsewhere' version='%2'>%3</metadata>")
            .arg(type, version, payload));
}

std::unique_ptr<PIO_Metadata> readBack(const PIO_Metadata &record)
{
    return soundRecord(QString::fromStdString(markupOf(record)));
}

PlainRecord::PlainRecord(const QString &name) :
    PIO_Metadata(QStringLiteral("plain"), name, QStringLiteral("tests"), QStringLiteral("1.0"))
{
}
