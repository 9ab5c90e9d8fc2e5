#include "pdf/properties/PKC_Property.h"

#include "pdf/properties/PKC_PropertyObserver.h"
#include "pdf/properties/PropertyLog_p.h"
#include "pdf/properties/PropertyStream_p.h"
#include "pdf/properties/PropertyText_p.h"

#include <QDataStream>
#include <QDomDocument>

namespace
{

const QString kValue = QStringLiteral("value");

const QString &emptyText()
{
    static const QString *const text = new QString(QStringLiteral(""));
    return *text;
}

} // namespace

PKC_Property::PKC_Property(const QString &name) : m_name(name) {}

PKC_Property::PKC_Property(
    const QString &name, const QVariant &value, UT_SharedPtr<PKC_PropertyDefinition> definition) :
    m_name(name),
    m_definition(std::move(definition))
{
    PKC_Property::setValue(value);
}

PKC_Property::PKC_Property(
    const QString &name, const PKC_Property &from, UT_SharedPtr<PKC_PropertyDefinition> definition) :
    PKC_Property(name, from.value(), std::move(definition))
{
}

// A clone belongs to no object yet.
PKC_Property::PKC_Property(const PKC_Property &other) :
    PKC_PropertyObservable(), m_name(other.m_name), m_definition(other.m_definition), m_value(other.m_value)
{
}

PKC_Property::~PKC_Property()
{
    m_value.clear();
    m_definition = nullptr;
    m_name.clear();
    tell(&PKC_PropertyObserver::onPropertyDeleted, this);
}

bool PKC_Property::setValue(const PKC_Property &other)
{
    return setValue(other.value());
}

bool PKC_Property::setValue(const QVariant &value)
{
    const QVariant old = m_value;
    if (isReadOnly() && old.metaType().isValid()) {
        qCWarning(
            plotkaProperties, "Could not change value of property %s, property is read only", qUtf8Printable(m_name));
        return false;
    }
    if (!assign(value))
        return false;
    if (!validate(false)) {
        m_value = old;
        return false;
    }
    tell(&PKC_PropertyObserver::onPropertyModified, this);
    return true;
}

/// Converts what is of another type. False, with a warning, when that fails.
bool PKC_Property::assign(const QVariant &value)
{
    if (value.metaType() == m_value.metaType() || !m_value.metaType().isValid()) {
        m_value = value;
        return true;
    }
    QVariant converted = value;
    if (!converted.convert(m_value.metaType())) {
        qCWarning(plotkaProperties, "Could not change value of property %s, type is not compatible -- from %s to %s",
            qUtf8Printable(m_name), typeNameOf(value), typeNameOf(m_value));
        return false;
    }
    m_value = converted;
    return true;
}

bool PKC_Property::validate(bool)
{
    return true;
}

bool PKC_Property::store(QDomDocument &document, QDomElement &parent) const
{
    if (!PropertyText::isXmlName(m_name)) {
        qCWarning(plotkaProperties, "Could not store property %s, no element can be named so", qUtf8Printable(m_name));
        return false;
    }
    QDomElement element = document.createElement(m_name);
    element.setAttribute(kValue, PropertyText::xmlTextOf(valueToString()));
    parent.appendChild(element);
    return true;
}

bool PKC_Property::store(QDataStream &stream) const
{
    if (!isStorable(m_value))
        return false;
    stream << m_name << m_value << ldesc() << sdesc() << int(isReadOnly()) << int(isInternal());
    return stream.status() == QDataStream::Ok;
}

bool PKC_Property::isStorable(const QVariant &value) const
{
    if (PropertyStream::keeps(value))
        return true;
    qCWarning(plotkaProperties, "Could not store property %s, streams keep no such value", qUtf8Printable(m_name));
    return false;
}

bool PKC_Property::load(QDomElement &element)
{
    if (element.tagName() != m_name)
        return false;
    return setValueFromString(element.attribute(kValue));
}

bool PKC_Property::load(QDataStream &stream)
{
    const StreamFields fields = readFields(stream);
    if (stream.status() != QDataStream::Ok)
        return false;
    take(fields);
    return true;
}

PKC_Property::StreamFields PKC_Property::readFields(QDataStream &stream) const
{
    StreamFields fields;
    stream >> fields.name;
    fields.value = PropertyStream::read(stream);
    stream >> fields.ldesc >> fields.sdesc >> fields.readOnly >> fields.internal;
    if (m_keepsName && fields.name != m_name)
        stream.setStatus(QDataStream::ReadCorruptData);
    return fields;
}

void PKC_Property::take(const StreamFields &fields)
{
    m_name = fields.name;
    m_value = fields.value;
    if (!m_definition)
        m_definition = new PKC_PropertyDefinition;
    m_definition->setDescriptions(fields.ldesc, fields.sdesc);
    m_definition->setReadOnly(fields.readOnly != 0);
    m_definition->setInternal(fields.internal != 0);
}

PKC_Property *PKC_Property::clone() const
{
    return new PKC_Property(*this);
}

QString PKC_Property::regenarationScript(const QString &object)
{
    const QString script = toScriptString();
    if (script.isEmpty())
        return QString();
    return QStringLiteral("%1.addProperty( %2, %3, %4, %5, %6, %7 );\n")
        .arg(object, m_name, ldesc(), sdesc(), script, PropertyText::scriptOf(isReadOnly()),
            PropertyText::scriptOf(isInternal()));
}

int PKC_Property::propertyType() const
{
    return 0;
}

QString PKC_Property::valueToString() const
{
    return PropertyText::textOf(m_value);
}

bool PKC_Property::setValueFromString(const QString &text)
{
    const std::optional<QVariant> value = PropertyText::valueOf(m_value, text);
    return value && setValue(*value);
}

QString PKC_Property::toScriptString() const
{
    return toScriptString(m_value);
}

QString PKC_Property::toScriptString(const QVariant &value)
{
    return PropertyText::scriptOf(value);
}

QString PKC_Property::toScriptString(const QMap<QString, QVariant> &values)
{
    return PropertyText::scriptOf(values);
}

const QString &PKC_Property::ldesc() const
{
    return m_definition ? m_definition->ldesc() : emptyText();
}

const QString &PKC_Property::sdesc() const
{
    return m_definition ? m_definition->sdesc() : emptyText();
}

bool PKC_Property::isReadOnly() const
{
    return m_definition && m_definition->isReadOnly();
}

bool PKC_Property::isInternal() const
{
    return m_definition && m_definition->isInternal();
}

void PKC_Property::setReadOnly(bool readOnly)
{
    if (m_definition)
        m_definition->setReadOnly(readOnly);
}

void PKC_Property::setInternal(bool internal)
{
    if (m_definition)
        m_definition->setInternal(internal);
}

bool PKC_Property::operator==(const PKC_Property &other) const
{
    if (m_value == other.m_value)
        return true;
    return type() == QMetaType::QString && other.type() == QMetaType::QString && toString() == other.toString();
}
