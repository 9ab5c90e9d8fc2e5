#include "pdf/properties/PKC_PropertyFromList.h"

#include "pdf/properties/PropertyStream_p.h"
#include "pdf/properties/PropertyText_p.h"

#include <QDataStream>

PKC_PropertyFromList::PKC_PropertyFromList(const QString &name) : PKC_Property(name) {}

PKC_PropertyFromList::PKC_PropertyFromList(const QString &name, const QVariant &value,
    const QMap<QString, QVariant> &possibleValues, bool allowEmpty, bool allowMultiple,
    UT_SharedPtr<PKC_PropertyDefinition> definition) :
    PKC_Property(name, value, std::move(definition)),
    m_possibleValues(possibleValues), m_allowEmpty(allowEmpty), m_allowMultiple(allowMultiple)
{
    PKC_PropertyFromList::validate(true);
}

PKC_PropertyFromList::PKC_PropertyFromList(const QString &name, const PKC_Property &from,
    const QMap<QString, QVariant> &possibleValues, bool allowEmpty, bool allowMultiple,
    UT_SharedPtr<PKC_PropertyDefinition> definition) :
    PKC_PropertyFromList(name, from.value(), possibleValues, allowEmpty, allowMultiple, std::move(definition))
{
}

PKC_PropertyFromList::~PKC_PropertyFromList() = default;

bool PKC_PropertyFromList::validate(bool fix)
{
    QMetaType type = value().metaType();
    if (m_allowMultiple && type.id() == QMetaType::QVariantList) {
        const QVariantList chosen = value().toList();
        type = chosen.isEmpty() ? QMetaType() : chosen.first().metaType();
    }
    if (!type.isValid())
        return false;
    for (const QVariant &possible : std::as_const(m_possibleValues)) {
        if (possible.metaType() == type)
            continue;
        if (fix)
            replaceValue(QVariant());
        return false;
    }
    return true;
}

bool PKC_PropertyFromList::store(QDataStream &stream) const
{
    const QVariant possibleValues(m_possibleValues);
    if (!isStorable(possibleValues) || !PKC_Property::store(stream))
        return false;
    stream << possibleValues << int(m_allowEmpty) << int(m_allowMultiple);
    return stream.status() == QDataStream::Ok;
}

bool PKC_PropertyFromList::load(QDataStream &stream)
{
    const StreamFields fields = readFields(stream);
    const QVariant possibleValues = PropertyStream::read(stream);
    int allowEmpty = 0;
    int allowMultiple = 0;
    stream >> allowEmpty >> allowMultiple;
    if (stream.status() != QDataStream::Ok)
        return false;
    take(fields);
    m_possibleValues = possibleValues.toMap();
    m_allowEmpty = allowEmpty != 0;
    m_allowMultiple = allowMultiple != 0;
    validate(true);
    return true;
}

PKC_Property *PKC_PropertyFromList::clone() const
{
    return new PKC_PropertyFromList(*this);
}

QString PKC_PropertyFromList::regenarationScript(const QString &object)
{
    const QString script = toScriptString();
    if (script.isEmpty())
        return QString();
    // One variable is declared and another one used: the readers of these scripts know them so.
    const QString declaration = QStringLiteral("var possValues = %1;\n").arg(toScriptString(m_possibleValues));
    return declaration
        + QStringLiteral("%1.addPropertyFromList( %2, %3, %4, %5, possibleValues, %6, %7, %8, %9 );\n")
              .arg(object, name(), ldesc(), sdesc(), script, PropertyText::scriptOf(m_allowEmpty),
                  PropertyText::scriptOf(m_allowMultiple), PropertyText::scriptOf(isReadOnly()),
                  PropertyText::scriptOf(isInternal()));
}

int PKC_PropertyFromList::propertyType() const
{
    return 1;
}
