#pragma once

#include "pdf/properties/PKC_PropertyDefinition.h"
#include "pdf/properties/PKC_PropertyObservable.h"
#include "scene/base/UT_SharedPtr.h"

#include <QColor>
#include <QMap>
#include <QString>
#include <QVariant>

class QDataStream;
class QDomDocument;
class QDomElement;

/// A named value that keeps the type it was born with, with an optional shared definition.
///
/// A value that is refused leaves the old one. Why it was refused is logged as a warning in the category
/// "plotka.properties". Observers hear of every value that was taken, and of the end.
class PLOTKA_EXPORT PKC_Property : public PKC_PropertyObservable
{
public:
    /// No value, and so no type yet, and no definition.
    explicit PKC_Property(const QString &name);
    /// The definition may be null.
    PKC_Property(const QString &name, const QVariant &value, UT_SharedPtr<PKC_PropertyDefinition> definition);
    PKC_Property(const QString &name, const PKC_Property &from, UT_SharedPtr<PKC_PropertyDefinition> definition);
    PKC_Property &operator=(const PKC_Property &) = delete;

    // The order of the virtual functions is relied on by those that derive from this class.
    ~PKC_Property() override;
    virtual bool setValue(const PKC_Property &other);
    /// A value of another type is converted. One that is read-only takes its first value only. False when the value was
    /// refused. Observers hear of one that was taken at once: news that one of them causes overtakes what the others are
    /// still to hear. An observer may have deleted the property when this returns.
    virtual bool setValue(const QVariant &value);
    /// Whether the value may stand; @p fix asks for a bad one to be repaired, which observers do not hear of.
    virtual bool validate(bool fix);
    /// Appends an element named as the property to @p parent. False, with a warning, when no element can be named so.
    virtual bool store(QDomDocument &document, QDomElement &parent) const;
    /// False, with a warning, and nothing is written, when a value is of a type that has no text and is no map, or has
    /// more than 32 lists and maps around it.
    virtual bool store(QDataStream &stream) const;
    /// Takes the text of an element that store() made, read by the type of the current value. False for an element of
    /// another name.
    virtual bool load(QDomElement &element);
    /// Takes what store() wrote, the name included. Observers do not hear of it, and a definition that others share
    /// changes for them too. False, and nothing has changed, when the stream ends too early, was bad before or holds
    /// what store() never writes: it may come from anywhere. An object's property takes no other name.
    virtual bool load(QDataStream &stream);
    /// A new property of the same kind, owned by the caller. Shares the definition; nobody observes it.
    virtual PKC_Property *clone() const;
    /// The statement of a script that makes the property in the script's @p object. Empty when the value has no script
    /// text.
    virtual QString regenarationScript(const QString &object);
    /// What PKC_PropertyFactory::create() knows the kind by: 0.
    virtual int propertyType() const;

    const QString &name() const { return m_name; }
    const QVariant &value() const { return m_value; }

    /// @name Type of the value
    /// @{
    /// A QMetaType::Type; QMetaType::UnknownType without a value.
    int type() const { return m_value.typeId(); }
    /// Null without a value.
    const char *typeName() const { return m_value.typeName(); }
    bool isNull() const { return m_value.isNull(); }
    bool isValid() const { return m_value.isValid(); }
    bool canConvert(int type) const { return m_value.canConvert(QMetaType(type)); }
    bool canConvert(QMetaType::Type type) const { return canConvert(static_cast<int>(type)); }
#if QT_DEPRECATED_SINCE(6, 0)
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    bool canConvert(QVariant::Type type) const
    {
        return canConvert(static_cast<int>(type));
    }
    QT_WARNING_POP
#endif
    /// @}

    /// @name Conversions of the value
    /// As QVariant does them.
    /// @{
    bool toBool() const
    {
        return m_value.toBool();
    }
    int toInt() const
    {
        return m_value.toInt();
    }
    unsigned int toUInt() const
    {
        return m_value.toUInt();
    }
    qlonglong toLongLong() const
    {
        return m_value.toLongLong();
    }
    qulonglong toULongLong() const
    {
        return m_value.toULongLong();
    }
    double toDouble() const
    {
        return m_value.toDouble();
    }
    QColor toColor() const
    {
        return m_value.value<QColor>();
    }
    QString toString() const
    {
        return m_value.toString();
    }
    /// @}

    /// @name Texts
    /// A type without a text of that kind gives an empty one and a warning.
    /// @{
    /// The text kept in XML. A double has six significant digits there.
    QString valueToString() const;
    /// Takes a text by the type of the current value; a number that cannot be read is 0. False when the type is not
    /// read from text or the value was refused.
    bool setValueFromString(const QString &text);
    /// Script source.
    QString toScriptString() const;
    static QString toScriptString(const QVariant &value);
    static QString toScriptString(const QMap<QString, QVariant> &values);
    /// @}

    /// @name Definition
    /// Without one: empty texts, false, and nothing is set. Setting reaches all properties that share it.
    /// @{
    const QString &ldesc() const;
    const QString &sdesc() const;
    bool isReadOnly() const;
    bool isInternal() const;
    void setReadOnly(bool readOnly);
    void setInternal(bool internal);
    /// @}

    /// Compares the values only. A null text equals an empty one.
    bool operator==(const PKC_Property &other) const;
    bool operator!=(const PKC_Property &other) const
    {
        return !(*this == other);
    }

protected:
    /// What every kind writes to a stream, read but not taken yet.
    struct StreamFields {
        QString name;
        QVariant value;
        QString ldesc;
        QString sdesc;
        int readOnly = 0;
        int internal = 0;
    };

    /// For clone(): all but the observers.
    PKC_Property(const PKC_Property &other);

    /// Sets the value as it is: nothing is checked and nobody hears of it.
    void replaceValue(const QVariant &value)
    {
        m_value = value;
    }
    StreamFields readFields(QDataStream &stream) const;
    void take(const StreamFields &fields);
    /// Whether store() may write the value; warns when not.
    bool isStorable(const QVariant &value) const;

private:
    friend class PKC_PropertiedObject;

    bool assign(const QVariant &value);

    QString m_name;
    UT_SharedPtr<PKC_PropertyDefinition> m_definition;
    QVariant m_value;
    bool m_keepsName = false; // an object finds it by that
};
