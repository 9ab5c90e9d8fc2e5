#pragma once

#include "pdf/properties/PKC_Property.h"
#include "pdf/properties/PKC_PropertyObserver.h"

#include <list>
#include <map>
#include <memory>

/// Properties by name, in the order in which they were added.
///
/// The object owns them, and they keep their names. Adding a name again replaces its property, at the same place: what
/// was returned for it before is gone. Observers of the properties may change the object when they are told, or delete
/// it: what was under way ends there.
class PLOTKA_EXPORT PKC_PropertiedObject : public PKC_PropertyObserver
{
public:
    PKC_PropertiedObject();
    /// Clones the properties. Nobody observes the clones, and the copy observes nothing.
    PKC_PropertiedObject(const PKC_PropertiedObject &other);
    PKC_PropertiedObject &operator=(const PKC_PropertiedObject &other);

    // The order of the virtual functions is relied on by those that derive from this class.
    ~PKC_PropertiedObject() override;
    /// The XML element of the object.
    virtual QString nodeName() const;
    /// @name All properties
    /// Added to @p properties unless one of that name is there already.
    /// @{
    virtual void getAllProperties(std::map<QString, PKC_Property *> &properties) const;
    virtual void getAllProperties(std::list<PKC_Property *> &properties) const;
    virtual void getAllProperties(std::list<QString> &names) const;
    /// @}

    /// @name Adding
    /// The new property, which the object owns. A given definition may be null; otherwise a new one is made. Null when
    /// the property is gone again: those who heard of the end of the one it replaced removed it, or the object is dying.
    /// @{
    PKC_Property *addProperty(const QString &name, const PKC_Property &from, const QString &ldesc, const QString &sdesc,
        bool readOnly, bool internal);
    PKC_Property *addProperty(const QString &name, const PKC_Property &from, PKC_PropertyDefinition *definition);
    PKC_Property *addProperty(const QString &name, const QVariant &value, const QString &ldesc, const QString &sdesc,
        bool readOnly, bool internal);
    PKC_Property *addProperty(const QString &name, const QVariant &value, PKC_PropertyDefinition *definition);
    PKC_Property *addPropertyFromCaptionList(const QString &name, const QVariant &value, const QString &ldesc,
        const QString &sdesc, bool readOnly, bool internal);
    PKC_Property *addPropertyFromCaptionList(
        const QString &name, const QVariant &value, PKC_PropertyDefinition *definition);
    PKC_Property *addPropertyFromFile(const QString &name, const QVariant &value, const QString &fileFilter,
        const QString &ldesc, const QString &sdesc, bool readOnly, bool internal);
    PKC_Property *addPropertyFromFile(
        const QString &name, const QVariant &value, const QString &fileFilter, PKC_PropertyDefinition *definition);
    PKC_Property *addPropertyFromFont(const QString &name, const QVariant &value, const QString &ldesc,
        const QString &sdesc, bool readOnly, bool internal);
    PKC_Property *addPropertyFromFont(const QString &name, const QVariant &value, PKC_PropertyDefinition *definition);
    /// @p possibleValues as qVariantToPropertyList() takes them. Without any, the property is a plain one.
    PKC_Property *addPropertyFromList(const QString &name, const QVariant &value, const QVariant &possibleValues,
        bool allowEmpty, bool allowMultiple, const QString &ldesc, const QString &sdesc, bool readOnly, bool internal);
    PKC_Property *addPropertyFromList(const QString &name, const QVariant &value, const QVariant &possibleValues,
        bool allowEmpty, bool allowMultiple, PKC_PropertyDefinition *definition);
    PKC_Property *addPropertyFromRange(const QString &name, const QVariant &value, const QVariant &min,
        const QVariant &max, const QString &ldesc, const QString &sdesc, bool readOnly, bool internal);
    PKC_Property *addPropertyFromRange(const QString &name, const QVariant &value, const QVariant &min,
        const QVariant &max, PKC_PropertyDefinition *definition);
    /// Takes a ready one over. Null gives null; one that is here already stays where it is.
    PKC_Property *addProperty(PKC_Property *property);
    /// A plain property for the program's own use.
    PKC_Property *addPropertyInternal(const QString &name, const QVariant &value, bool readOnly);
    /// @}

    /// @name By name
    /// @{
    bool exists(const QString &name) const;
    /// Null when absent.
    PKC_Property *getProperty(const QString &name) const;
    /// The value, converted as QVariant does it, or @p ifAbsent.
    bool getPropertyBool(const QString &name, bool ifAbsent) const;
    int getPropertyInt(const QString &name, int ifAbsent) const;
    double getPropertyDouble(const QString &name, double ifAbsent) const;
    QColor getPropertyColor(const QString &name, const QColor &ifAbsent) const;
    QString getPropertyString(const QString &name, const QString &ifAbsent) const;
    /// Sets the property, or adds a plain one without definition.
    void setProperty(const QString &name, const QVariant &value);
    void setProperty(const QString &name, const PKC_Property &from);
    void removeProperty(const QString &name);
    /// @}

    void clearProperties();
    /// As many as getAllProperties() lists.
    int propertiesCount() const;

    /// @name With another object
    /// Null is no object: not equal, and nothing to copy.
    /// @{
    /// Whether all that @p other has is here with an equal value. What only this one has is not looked at.
    bool propertiesCompare(const PKC_PropertiedObject *other) const;
    /// Sets what both have and, with @p addMissing, adds clones of the rest. A value that is refused stops nothing.
    void propertiesCopyFrom(const PKC_PropertiedObject *other, bool addMissing);
    /// Drops all properties for clones of the other's.
    void propertiesSetFrom(const PKC_PropertiedObject *other);
    /// Sets property @p newName, or @p name when that is empty, to the value of the other's @p name; a new one is plain
    /// and has no definition.
    void propertyCopyFrom(const PKC_PropertiedObject *other, const QString &name, const QString &newName);
    /// @}

    /// @name XML
    /// @{
    /// Loads the properties that @p element holds; makes none, and passes over what it does not know. False for an
    /// element of another name, and when a property refuses or the object dies: what came before is loaded then.
    bool load(QDomElement &element);
    bool store(QDomDocument &document, QDomElement &parent) const;
    /// @}

    /// Turns a map, or a list of keys and values in turn, into @p list; a last key without a value is dropped. Anything
    /// else leaves @p list as it is.
    static void qVariantToPropertyList(const QVariant &values, QMap<QString, QVariant> &list);

private:
    struct Private;

    PKC_Property *own(std::unique_ptr<PKC_Property> property);

    std::shared_ptr<Private> d; // watched where the object may die
};
