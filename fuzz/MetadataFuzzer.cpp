#include "metadata/PKC_MetadataFactory.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "scene/metadata/PIO_RecordReader.h"
#include "scene/metadata/PIO_RecordWriter.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlStreamReader>

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace
{

/// The records that stand in the root element of a text.
void readAll(const QByteArray &text, PIO_Metadatas &records)
{
    QXmlStreamReader xml(text);
    xml.setNamespaceProcessing(false);
    xml.readNextStartElement();
    while (xml.readNextStartElement()) {
        PIO_RecordResult result = PIO_RecordReader::read(xml);
        if (result.record && !xml.hasError())
            records.add(result.record.release());
    }
}

QByteArray written(const PIO_Metadatas &records)
{
    PO_XmlWriter writer;
    PIO_WritingContext context(writer);
    writer.beginElement(QStringLiteral("records"));
    PIO_RecordWriter::write(&records, context);
    writer.endElement();
    return writer.bytes();
}

} // namespace

// Records of every type, whatever their payload holds: they are kept, copied and told, and what they write reads the
// same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    PKC_MetadataFactory::createInstance();
    PIO_Metadatas records;
    readAll(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)), records);
    PIO_Metadatas copies;
    for (const PIO_Metadata *record : records) {
        QString text;
        record->dumpToString(text);
        record->isValid();
        copies.add(record->clone());
    }
    const QByteArray saved = written(records);
    if (written(copies) != saved)
        std::abort();
    PIO_Metadatas back;
    readAll(saved, back);
    if (written(back) != saved)
        std::abort();
    return 0;
}
