#include "pdf/properties/PKC_PropertyFromFile.h"

#include <QDataStream>

PKC_PropertyFromFile::PKC_PropertyFromFile(const QString &name) :
    PKC_Property(name), m_fileFilter(QStringLiteral("*.*"))
{
}

PKC_PropertyFromFile::PKC_PropertyFromFile(const QString &name, const QVariant &value, const QString &fileFilter,
    UT_SharedPtr<PKC_PropertyDefinition> definition) :
    PKC_Property(name, value, std::move(definition)),
    m_fileFilter(fileFilter)
{
}

PKC_PropertyFromFile::PKC_PropertyFromFile(const QString &name, const PKC_Property &from, const QString &fileFilter,
    UT_SharedPtr<PKC_PropertyDefinition> definition) :
    PKC_PropertyFromFile(name, from.value(), fileFilter, std::move(definition))
{
}

PKC_PropertyFromFile::~PKC_PropertyFromFile() = default;

bool PKC_PropertyFromFile::store(QDataStream &stream) const
{
    if (!PKC_Property::store(stream))
        return false;
    stream << m_fileFilter;
    return stream.status() == QDataStream::Ok;
}

bool PKC_PropertyFromFile::load(QDataStream &stream)
{
    const StreamFields fields = readFields(stream);
    QString fileFilter;
    stream >> fileFilter;
    if (stream.status() != QDataStream::Ok)
        return false;
    take(fields);
    m_fileFilter = fileFilter;
    return true;
}

PKC_Property *PKC_PropertyFromFile::clone() const
{
    return new PKC_PropertyFromFile(*this);
}

int PKC_PropertyFromFile::propertyType() const
{
    return 3;
}
