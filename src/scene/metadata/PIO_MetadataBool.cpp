#include "scene/metadata/PIO_MetadataBool.h"

#include "scene/metadata/PO_Utils.h"
#include "scene/metadata/PO_XmlWriter.h"

PIO_MetadataBool::PIO_MetadataBool(const QString &name) : PIO_MetadataGeneric(keyword(), name) {}

PIO_MetadataBool::PIO_MetadataBool(const QString &name, const QString &creator, const QString &version) :
    PIO_MetadataGeneric(keyword(), name, creator, version)
{
}

PIO_Metadata *PIO_MetadataBool::clone() const
{
    return new PIO_MetadataBool(*this);
}

void PIO_MetadataBool::setValue(bool value)
{
    m_value = value;
    setValid();
}

bool PIO_MetadataBool::parseValue(const QString &text)
{
    m_value = false;
    return PO_Utils::parseBoolAttr(text, m_value);
}

void PIO_MetadataBool::encodeValue(PO_XmlWriter &writer) const
{
    writer.encodeBoolAttr(QStringLiteral("value"), m_value);
}

QString PIO_MetadataBool::valueText() const
{
    return m_value ? QStringLiteral("true") : QStringLiteral("false");
}
