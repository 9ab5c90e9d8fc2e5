#include "scene/metadata/PIO_MetadataInt.h"

#include "scene/metadata/PO_XmlWriter.h"

PIO_MetadataInt::PIO_MetadataInt(const QString &name) : PIO_MetadataGeneric(keyword(), name) {}

PIO_MetadataInt::PIO_MetadataInt(const QString &name, const QString &creator, const QString &version) :
    PIO_MetadataGeneric(keyword(), name, creator, version)
{
}

PIO_Metadata *PIO_MetadataInt::clone() const
{
    return new PIO_MetadataInt(*this);
}

void PIO_MetadataInt::setValue(int value)
{
    m_value = value;
    setValid();
}

bool PIO_MetadataInt::parseValue(const QString &text)
{
    bool ok = false;
    const int value = text.toInt(&ok, 10);
    m_value = ok ? value : 0;
    return ok;
}

void PIO_MetadataInt::encodeValue(PO_XmlWriter &writer) const
{
    writer.encodeIntAttr(QStringLiteral("value"), m_value);
}

QString PIO_MetadataInt::valueText() const
{
    return QString::number(m_value);
}
