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

QByteArray written(const PIO_Metadata &record)
{
    PO_XmlWriter writer;
    PIO_WritingContext context(writer);
    PIO_RecordWriter::write(record, context);
    return writer.bytes();
}

QByteArray written(const PIO_Metadatas &records)
{
    QByteArray text = QByteArrayLiteral("<records>\n");
    for (const PIO_Metadata *record : records)
        text += written(*record);
    return text + QByteArrayLiteral("</records>\n");
}

/// What is written of what a text reads as.
QByteArray writtenAgain(const QByteArray &text)
{
    PIO_Metadatas records;
    readAll(text, records);
    return written(records);
}

void expect(bool isTrue)
{
    if (!isTrue)
        std::abort();
}

bool isOf(const PIO_Metadata &record, QLatin1String type)
{
    return record.metaType() == type;
}

/// The clone of one kind of record has no name of its own, and captions lose their heights.
bool clonesTheSame(const PIO_Metadata &record)
{
    return !isOf(record, QLatin1String("infoFields"))
        && (record.metaName().isEmpty() || !isOf(record, QLatin1String("layerInfos")));
}

/// Issues exchange two texts at each load, a deletion without a date happens at the time of loading, and plain captions
/// become html.
bool readsTheSame(const PIO_Metadata &record)
{
    return !isOf(record, QLatin1String("projectCompatibilityIssue")) && !isOf(record, QLatin1String("deletedPanels"))
        && !isOf(record, QLatin1String("infoFields"));
}

} // namespace

// Records of every type, whatever their payload holds: they are kept, copied and told, and what they write reads the
// same, or every other time the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    PKC_MetadataFactory::createInstance();
    PIO_Metadatas records;
    readAll(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)), records);
    bool readSame = true;
    for (const PIO_Metadata *record : records) {
        QString text;
        record->dumpToString(text);
        record->isValid();
        const std::unique_ptr<PIO_Metadata> copy(record->clone());
        expect(!clonesTheSame(*record) || written(*copy) == written(*record));
        readSame = readSame && readsTheSame(*record);
    }
    const QByteArray first = written(records);
    const QByteArray second = writtenAgain(first);
    if (readSame)
        expect(second == first);
    else
        expect(writtenAgain(writtenAgain(second)) == second);
    return 0;
}
