#include "scene/metadata/PIO_MetadataString.h"

#include "scene/metadata/PO_XmlWriter.h"

PIO_MetadataString::PIO_MetadataString(const QString &name) : PIO_MetadataGeneric(keyword(), name) {}

PIO_MetadataString::PIO_MetadataString(const QString &name, const QString &creator, const QString &version) :
    PIO_MetadataGeneric(keyword(), name, creator, version)
{
}

PIO_Metadata *PIO_MetadataString::clone() const
{
    return new PIO_MetadataString(*this);
}

void PIO_MetadataString::setValue(const QString &value)
{
    m_value = value;
    setValid();
}

bool PIO_MetadataString::parseValue(const QString &text)
{
    m_value = text;
    return true;
}

void PIO_MetadataString::encodeValue(PO_XmlWriter &writer) const
{
    writer.encodeStringAttr(QStringLiteral("value"), m_value);
}

QString PIO_MetadataString::valueText() const
{
    return m_value;
}
