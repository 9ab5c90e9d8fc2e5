#include "pdf/properties/PKC_PropertiedObject.h"

#include "pdf/properties/PKC_PropertyFromCaptionList.h"
#include "pdf/properties/PKC_PropertyFromFile.h"
#include "pdf/properties/PKC_PropertyFromFont.h"
#include "pdf/properties/PKC_PropertyFromList.h"
#include "pdf/properties/PKC_PropertyFromRange.h"

#include <QDomDocument>

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

namespace
{

using Definition = UT_SharedPtr<PKC_PropertyDefinition>;

/// Held by the caller until its call is over, and by the property from then on.
Definition newDefinition(const QString &ldesc, const QString &sdesc, bool readOnly, bool internal)
{
    return new PKC_PropertyDefinition(ldesc, sdesc, readOnly, internal);
}

} // namespace

struct PKC_PropertiedObject::Private {
    using List = std::list<PKC_Property *>;

    List ordered; // owned
    std::map<QString, List::iterator> byName;
    bool isDying = false;
};

PKC_PropertiedObject::PKC_PropertiedObject() : d(std::make_shared<Private>()) {}

PKC_PropertiedObject::PKC_PropertiedObject(const PKC_PropertiedObject &other) :
    PKC_PropertyObserver(), d(std::make_shared<Private>())
{
    propertiesCopyFrom(&other, true);
}

PKC_PropertiedObject &PKC_PropertiedObject::operator=(const PKC_PropertiedObject &other)
{
    propertiesSetFrom(&other);
    return *this;
}

PKC_PropertiedObject::~PKC_PropertiedObject()
{
    d->isDying = true;
    clearProperties();
}

QString PKC_PropertiedObject::nodeName() const
{
    return QStringLiteral("properties");
}

void PKC_PropertiedObject::getAllProperties(std::map<QString, PKC_Property *> &properties) const
{
    for (const auto &entry : d->byName)
        properties.emplace(entry.first, *entry.second);
}

void PKC_PropertiedObject::getAllProperties(std::list<PKC_Property *> &properties) const
{
    std::set<QString> names;
    for (const PKC_Property *property : properties)
        names.insert(property->name());
    for (PKC_Property *property : d->ordered) {
        if (names.insert(property->name()).second)
            properties.push_back(property);
    }
}

void PKC_PropertiedObject::getAllProperties(std::list<QString> &names) const
{
    std::set<QString> known(names.begin(), names.end());
    for (const PKC_Property *property : d->ordered) {
        if (known.insert(property->name()).second)
            names.push_back(property->name());
    }
}

PKC_Property *PKC_PropertiedObject::addProperty(const QString &name, const PKC_Property &from, const QString &ldesc,
    const QString &sdesc, bool readOnly, bool internal)
{
    return addProperty(name, from, newDefinition(ldesc, sdesc, readOnly, internal).get());
}

PKC_Property *PKC_PropertiedObject::addProperty(
    const QString &name, const PKC_Property &from, PKC_PropertyDefinition *definition)
{
    return addProperty(name, from.value(), definition);
}

PKC_Property *PKC_PropertiedObject::addProperty(const QString &name, const QVariant &value, const QString &ldesc,
    const QString &sdesc, bool readOnly, bool internal)
{
    return addProperty(name, value, newDefinition(ldesc, sdesc, readOnly, internal).get());
}

PKC_Property *PKC_PropertiedObject::addProperty(
    const QString &name, const QVariant &value, PKC_PropertyDefinition *definition)
{
    return own(std::make_unique<PKC_Property>(name, value, definition));
}

PKC_Property *PKC_PropertiedObject::addPropertyFromCaptionList(const QString &name, const QVariant &value,
    const QString &ldesc, const QString &sdesc, bool readOnly, bool internal)
{
    return addPropertyFromCaptionList(name, value, newDefinition(ldesc, sdesc, readOnly, internal).get());
}

PKC_Property *PKC_PropertiedObject::addPropertyFromCaptionList(
    const QString &name, const QVariant &value, PKC_PropertyDefinition *definition)
{
    return own(std::make_unique<PKC_PropertyFromCaptionList>(name, value, definition));
}

PKC_Property *PKC_PropertiedObject::addPropertyFromFile(const QString &name, const QVariant &value,
    const QString &fileFilter, const QString &ldesc, const QString &sdesc, bool readOnly, bool internal)
{
    return addPropertyFromFile(name, value, fileFilter, newDefinition(ldesc, sdesc, readOnly, internal).get());
}

PKC_Property *PKC_PropertiedObject::addPropertyFromFile(
    const QString &name, const QVariant &value, const QString &fileFilter, PKC_PropertyDefinition *definition)
{
    return own(std::make_unique<PKC_PropertyFromFile>(name, value, fileFilter, definition));
}

PKC_Property *PKC_PropertiedObject::addPropertyFromFont(const QString &name, const QVariant &value,
    const QString &ldesc, const QString &sdesc, bool readOnly, bool internal)
{
    return addPropertyFromFont(name, value, newDefinition(ldesc, sdesc, readOnly, internal).get());
}

PKC_Property *PKC_PropertiedObject::addPropertyFromFont(
    const QString &name, const QVariant &value, PKC_PropertyDefinition *definition)
{
    return own(std::make_unique<PKC_PropertyFromFont>(name, value, definition));
}

PKC_Property *PKC_PropertiedObject::addPropertyFromList(const QString &name, const QVariant &value,
    const QVariant &possibleValues, bool allowEmpty, bool allowMultiple, const QString &ldesc, const QString &sdesc,
    bool readOnly, bool internal)
{
    return addPropertyFromList(
        name, value, possibleValues, allowEmpty, allowMultiple, newDefinition(ldesc, sdesc, readOnly, internal).get());
}

PKC_Property *PKC_PropertiedObject::addPropertyFromList(const QString &name, const QVariant &value,
    const QVariant &possibleValues, bool allowEmpty, bool allowMultiple, PKC_PropertyDefinition *definition)
{
    QMap<QString, QVariant> list;
    qVariantToPropertyList(possibleValues, list);
    if (list.isEmpty())
        return addProperty(name, value, definition);
    return own(std::make_unique<PKC_PropertyFromList>(name, value, list, allowEmpty, allowMultiple, definition));
}

PKC_Property *PKC_PropertiedObject::addPropertyFromRange(const QString &name, const QVariant &value,
    const QVariant &min, const QVariant &max, const QString &ldesc, const QString &sdesc, bool readOnly, bool internal)
{
    return addPropertyFromRange(name, value, min, max, newDefinition(ldesc, sdesc, readOnly, internal).get());
}

PKC_Property *PKC_PropertiedObject::addPropertyFromRange(const QString &name, const QVariant &value,
    const QVariant &min, const QVariant &max, PKC_PropertyDefinition *definition)
{
    return own(std::make_unique<PKC_PropertyFromRange>(name, value, min, max, definition));
}

PKC_Property *PKC_PropertiedObject::addProperty(PKC_Property *property)
{
    if (!property || getProperty(property->name()) == property)
        return property;
    return own(std::unique_ptr<PKC_Property>(property));
}

PKC_Property *PKC_PropertiedObject::addPropertyInternal(const QString &name, const QVariant &value, bool readOnly)
{
    const QString description = QStringLiteral("Internal");
    return addProperty(name, value, description, description, readOnly, /*internal*/ true);
}

/// Takes the place of the property of the same name, or the last one.
PKC_Property *PKC_PropertiedObject::own(std::unique_ptr<PKC_Property> property)
{
    if (d->isDying)
        return nullptr;
    PKC_Property *const added = property.release();
    added->m_keepsName = true;
    const auto known = d->byName.find(added->name());
    if (known == d->byName.end()) {
        d->byName.emplace(added->name(), d->ordered.insert(d->ordered.end(), added));
        return added;
    }
    const QString name = added->name();
    const std::weak_ptr<Private> watched = d;
    delete std::exchange(*known->second, added);
    return !watched.expired() && getProperty(name) == added ? added : nullptr;
}

bool PKC_PropertiedObject::exists(const QString &name) const
{
    return getProperty(name) != nullptr;
}

PKC_Property *PKC_PropertiedObject::getProperty(const QString &name) const
{
    const auto known = d->byName.find(name);
    return known != d->byName.end() ? *known->second : nullptr;
}

bool PKC_PropertiedObject::getPropertyBool(const QString &name, bool ifAbsent) const
{
    const PKC_Property *property = getProperty(name);
    return property ? property->toBool() : ifAbsent;
}

int PKC_PropertiedObject::getPropertyInt(const QString &name, int ifAbsent) const
{
    const PKC_Property *property = getProperty(name);
    return property ? property->toInt() : ifAbsent;
}

double PKC_PropertiedObject::getPropertyDouble(const QString &name, double ifAbsent) const
{
    const PKC_Property *property = getProperty(name);
    return property ? property->toDouble() : ifAbsent;
}

QColor PKC_PropertiedObject::getPropertyColor(const QString &name, const QColor &ifAbsent) const
{
    const PKC_Property *property = getProperty(name);
    return property ? property->toColor() : ifAbsent;
}

QString PKC_PropertiedObject::getPropertyString(const QString &name, const QString &ifAbsent) const
{
    const PKC_Property *property = getProperty(name);
    return property ? property->toString() : ifAbsent;
}

void PKC_PropertiedObject::setProperty(const QString &name, const QVariant &value)
{
    if (PKC_Property *property = getProperty(name))
        property->setValue(value);
    else
        addProperty(name, value, nullptr);
}

void PKC_PropertiedObject::setProperty(const QString &name, const PKC_Property &from)
{
    if (PKC_Property *property = getProperty(name))
        property->setValue(from);
    else
        addProperty(name, from, nullptr);
}

void PKC_PropertiedObject::removeProperty(const QString &name)
{
    const auto known = d->byName.find(name);
    if (known == d->byName.end())
        return;
    // Out of both first: those who hear of its end may ask for it.
    const std::unique_ptr<PKC_Property> removed(*known->second);
    d->ordered.erase(known->second);
    d->byName.erase(known);
}

void PKC_PropertiedObject::clearProperties()
{
    d->byName.clear();
    const Private::List removed = std::exchange(d->ordered, {});
    for (PKC_Property *property : removed)
        delete property;
}

int PKC_PropertiedObject::propertiesCount() const
{
    std::list<PKC_Property *> properties;
    getAllProperties(properties);
    return static_cast<int>(properties.size());
}

bool PKC_PropertiedObject::propertiesCompare(const PKC_PropertiedObject *other) const
{
    if (!other)
        return false;
    std::list<PKC_Property *> properties;
    other->getAllProperties(properties);
    return std::all_of(properties.begin(), properties.end(), [this](const PKC_Property *theirs) {
        const PKC_Property *ours = getProperty(theirs->name());
        return ours && (ours == theirs || *ours == *theirs);
    });
}

void PKC_PropertiedObject::propertiesCopyFrom(const PKC_PropertiedObject *other, bool addMissing)
{
    if (!other)
        return;
    std::list<PKC_Property *> properties;
    other->getAllProperties(properties);
    // Clones of all of them first: who hears of a new value may change either object.
    std::vector<std::unique_ptr<PKC_Property>> copies;
    for (const PKC_Property *theirs : properties) {
        if (getProperty(theirs->name()) != theirs)
            copies.emplace_back(theirs->clone());
    }
    const std::weak_ptr<Private> watched = d;
    for (std::unique_ptr<PKC_Property> &copy : copies) {
        if (PKC_Property *ours = getProperty(copy->name()))
            ours->setValue(*copy);
        else if (addMissing)
            own(std::move(copy));
        if (watched.expired())
            return;
    }
}

void PKC_PropertiedObject::propertiesSetFrom(const PKC_PropertiedObject *other)
{
    if (!other || other == this)
        return;
    const std::weak_ptr<Private> watched = d;
    const std::weak_ptr<Private> watchedOther = other->d;
    clearProperties();
    if (!watched.expired() && !watchedOther.expired())
        propertiesCopyFrom(other, true);
}

void PKC_PropertiedObject::propertyCopyFrom(
    const PKC_PropertiedObject *other, const QString &name, const QString &newName)
{
    const PKC_Property *source = other ? other->getProperty(name) : nullptr;
    if (source)
        setProperty(newName.isEmpty() ? name : newName, *source);
}

bool PKC_PropertiedObject::load(QDomElement &element)
{
    if (element.tagName() != nodeName())
        return false;
    const std::weak_ptr<Private> watched = d;
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        PKC_Property *property = getProperty(child.tagName());
        if (property && (!property->load(child) || watched.expired()))
            return false;
    }
    return true;
}

bool PKC_PropertiedObject::store(QDomDocument &document, QDomElement &parent) const
{
    QDomElement element = document.createElement(nodeName());
    parent.appendChild(element);
    for (const PKC_Property *property : d->ordered)
        property->store(document, element);
    return true;
}

void PKC_PropertiedObject::qVariantToPropertyList(const QVariant &values, QMap<QString, QVariant> &list)
{
    if (values.typeId() == QMetaType::QVariantMap) {
        list = values.toMap();
    } else if (values.typeId() == QMetaType::QVariantList) {
        const QVariantList items = values.toList();
        list.clear();
        for (qsizetype i = 0; i + 1 < items.size(); i += 2)
            list.insert(items.at(i).toString(), items.at(i + 1));
    }
}
