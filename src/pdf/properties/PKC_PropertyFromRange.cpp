#include "pdf/properties/PKC_PropertyFromRange.h"

#include "pdf/properties/PropertyLog_p.h"
#include "pdf/properties/PropertyStream_p.h"

#include <QDataStream>

namespace
{

enum class Place { Below, Within, Above, NoNumber };

template <typename Number>
Place placeOf(const QVariant &value, const QVariant &min, const QVariant &max)
{
    const auto number = value.value<Number>();
    if (number > max.value<Number>())
        return Place::Above;
    return number < min.value<Number>() ? Place::Below : Place::Within;
}

Place placeIn(const QVariant &value, const QVariant &min, const QVariant &max)
{
    if (value.metaType() != min.metaType() || value.metaType() != max.metaType())
        return Place::NoNumber;
    switch (value.typeId()) {
    case QMetaType::Int:
        return placeOf<int>(value, min, max);
    case QMetaType::UInt:
        return placeOf<unsigned int>(value, min, max);
    case QMetaType::LongLong:
        return placeOf<qlonglong>(value, min, max);
    case QMetaType::ULongLong:
        return placeOf<qulonglong>(value, min, max);
    case QMetaType::Double:
        return placeOf<double>(value, min, max);
    default:
        return Place::NoNumber;
    }
}

} // namespace

PKC_PropertyFromRange::PKC_PropertyFromRange(const QString &name) : PKC_Property(name) {}

PKC_PropertyFromRange::PKC_PropertyFromRange(const QString &name, const QVariant &value, const QVariant &min,
    const QVariant &max, UT_SharedPtr<PKC_PropertyDefinition> definition) :
    PKC_Property(name, value, std::move(definition)),
    m_min(min), m_max(max)
{
    PKC_PropertyFromRange::validate(true);
}

PKC_PropertyFromRange::PKC_PropertyFromRange(const QString &name, const PKC_Property &from, const QVariant &min,
    const QVariant &max, UT_SharedPtr<PKC_PropertyDefinition> definition) :
    PKC_PropertyFromRange(name, from.value(), min, max, std::move(definition))
{
}

PKC_PropertyFromRange::~PKC_PropertyFromRange() = default;

bool PKC_PropertyFromRange::validate(bool fix)
{
    switch (placeIn(value(), m_min, m_max)) {
    case Place::Above:
        qCWarning(plotkaProperties, "Invalid PKC_PropertyFromRange, out of range (over). Init value to max.");
        replaceValue(m_max);
        return true;
    case Place::Below:
        qCWarning(plotkaProperties, "Invalid PKC_PropertyFromRange, out of range (lower). Init value to min.");
        if (fix)
            replaceValue(m_min);
        return false;
    case Place::NoNumber:
        qCWarning(plotkaProperties, "Invalid PKC_PropertyFromRange, not numerical or not the same type.");
        if (fix) {
            m_min = 0;
            m_max = 0;
            replaceValue(0);
        }
        return false;
    case Place::Within:
        break;
    }
    return true;
}

bool PKC_PropertyFromRange::store(QDataStream &stream) const
{
    if (!PKC_Property::store(stream))
        return false;
    stream << m_min << m_max;
    return stream.status() == QDataStream::Ok;
}

bool PKC_PropertyFromRange::load(QDataStream &stream)
{
    const StreamFields fields = readFields(stream);
    const QVariant min = PropertyStream::read(stream);
    const QVariant max = PropertyStream::read(stream);
    if (stream.status() != QDataStream::Ok)
        return false;
    take(fields);
    m_min = min;
    m_max = max;
    return true;
}

PKC_Property *PKC_PropertyFromRange::clone() const
{
    return new PKC_PropertyFromRange(*this);
}

int PKC_PropertyFromRange::propertyType() const
{
    return 2;
}
