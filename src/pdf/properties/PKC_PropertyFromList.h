#pragma once

#include "pdf/properties/PKC_Property.h"

/// A property that offers values to choose from, by label. Only their type is checked: a value that is not among them
/// is taken.
class PLOTKA_EXPORT PKC_PropertyFromList : public PKC_Property
{
public:
    /// Nothing to choose from, both flags false.
    explicit PKC_PropertyFromList(const QString &name);
    PKC_PropertyFromList(const QString &name, const QVariant &value, const QMap<QString, QVariant> &possibleValues,
        bool allowEmpty, bool allowMultiple, UT_SharedPtr<PKC_PropertyDefinition> definition);
    PKC_PropertyFromList(const QString &name, const PKC_Property &from, const QMap<QString, QVariant> &possibleValues,
        bool allowEmpty, bool allowMultiple, UT_SharedPtr<PKC_PropertyDefinition> definition);
    ~PKC_PropertyFromList() override;

    /// Whether every possible value has the value's type, or that of its first item when it is a list and several may
    /// be chosen. If not, @p fix clears the value. Never true without a type.
    bool validate(bool fix) override;
    using PKC_Property::load;
    using PKC_Property::store;
    bool store(QDataStream &stream) const override;
    bool load(QDataStream &stream) override;
    PKC_Property *clone() const override;
    QString regenarationScript(const QString &object) override;
    int propertyType() const override; ///< 1

    const QMap<QString, QVariant> &possibleValues() const { return m_possibleValues; }
    bool allowEmpty() const { return m_allowEmpty; }
    bool allowMultiple() const { return m_allowMultiple; }

protected:
    PKC_PropertyFromList(const PKC_PropertyFromList &) = default;

private:
    QMap<QString, QVariant> m_possibleValues;
    bool m_allowEmpty = false;
    bool m_allowMultiple = false;
};
