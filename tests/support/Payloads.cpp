#include "support/Payloads.h"

#include "scene/metadata/PIO_ComponentReader.h"

#include <QXmlAttributes>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

void readPayload(PIO_Metadata &record, const QString &payload)
{
    const UT_SharedPtr<PIO_XML::ComponentReader> reader(record.componentReader());
    QXmlStreamReader xml(QStringLiteral("<payload>%1</payload>").arg(payload));
    xml.readNextStartElement();
    for (int depth = 0; !xml.atEnd();) {
        const auto token = xml.readNext();
        const QString localName = xml.name().toString();
        if (token == QXmlStreamReader::StartElement) {
            ++depth;
            QXmlAttributes attributes;
            const QXmlStreamAttributes present = xml.attributes();
            for (const QXmlStreamAttribute &attribute : present) {
                const QString key = attribute.name().toString();
                // A file keeps the difference between an absent attribute and an empty one.
                const QString value = attribute.value().isEmpty() ? QStringLiteral("") : attribute.value().toString();
                attributes.append(key, QString(), key, value);
            }
            EXPECT_EQ(reader->startElement(QString(), localName, attributes), reader);
        } else if (token == QXmlStreamReader::EndElement && depth-- > 0) {
            EXPECT_TRUE(reader->endElement(QString(), localName));
        }
    }
    ASSERT_FALSE(xml.hasError()) << xml.errorString().toStdString();
}

std::string dumpOf(const PIO_Metadata &record)
{
    QString text;
    record.dumpToString(text);
    return text.toStdString();
}
