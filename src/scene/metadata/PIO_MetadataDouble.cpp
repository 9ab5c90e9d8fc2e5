#include "scene/metadata/PIO_MetadataDouble.h"

#include "scene/metadata/PO_XmlWriter.h"

#include <QLocale>

PIO_MetadataDouble::PIO_MetadataDouble(const QString &name) : PIO_MetadataGeneric(keyword(), name) {}

PIO_MetadataDouble::PIO_MetadataDouble(const QString &name, const QString &creator, const QString &version) :
    PIO_MetadataGeneric(keyword(), name, creator, version)
{
}

PIO_Metadata *PIO_MetadataDouble::clone() const
{
    return new PIO_MetadataDouble(*this);
}

void PIO_MetadataDouble::setValue(double value)
{
    m_value = value;
    setValid();
}

bool PIO_MetadataDouble::parseValue(const QString &text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    m_value = ok ? value : 0.0;
    return ok;
}

void PIO_MetadataDouble::encodeValue(PO_XmlWriter &writer) const
{
    writer.encodeDoubleAttr(QStringLiteral("value"), m_value);
}

QString PIO_MetadataDouble::valueText() const
{
    return QString::number(m_value, 'g', QLocale::FloatingPointShortest);
}
