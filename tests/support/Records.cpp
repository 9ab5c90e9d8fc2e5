#include "support/Records.h"

#include "scene/metadata/PIO_RecordWriter.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlStreamReader>

std::string markupOf(const PIO_Metadata &record)
{
    PO_XmlWriter writer;
    PIO_WritingContext context(writer);
    PIO_RecordWriter::write(record, context);
    return writer.bytes().toStdString();
}

PIO_RecordResult readRecord(const QString &markup)
{
    QXmlStreamReader xml(markup);
    xml.setNamespaceProcessing(false);
    xml.readNextStartElement();
    return PIO_RecordReader::read(xml);
}

PlainRecord::PlainRecord(const QString &name) :
    PIO_Metadata(QStringLiteral("plain"), name, QStringLiteral("tests"), QStringLiteral("1.0"))
{
}
