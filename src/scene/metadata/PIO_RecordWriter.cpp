#include "scene/metadata/PIO_RecordWriter.h"

#include "scene/metadata/PIO_Metadata.h"
#include "scene/metadata/PIO_MetadataUnknown.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <cstddef>
#include <typeinfo>

void PIO_RecordWriter::write(const PIO_Metadata &record, PIO_WritingContext &context)
{
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(QStringLiteral("metadata"));
    if (typeid(record) == typeid(PIO_MetadataUnknown)) {
        static_cast<const PIO_MetadataUnknown &>(record).encodeAttributes(writer);
    } else {
        writer.encodeStringAttr(QStringLiteral("type"), record.metaType());
        writer.encodeStringAttr(QStringLiteral("name"), record.metaName());
        writer.encodeStringAttr(QStringLiteral("creator"), record.creator());
        writer.encodeStringAttr(QStringLiteral("version"), record.version());
    }
    record.writeMetadataSubnodes(context);
    writer.endElement();
}

void PIO_RecordWriter::write(const PIO_Metadatas *records, PIO_WritingContext &context)
{
    if (!records)
        return;
    // By place: a record that is being written may ask for another one, which is then made.
    const std::size_t count = records->view().size();
    for (std::size_t place = 0; place < count; ++place)
        write(records->view()[place], context);
}
