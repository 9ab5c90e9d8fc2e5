#pragma once

#include "pdf/properties/PKC_Property.h"

/// A number with limits, all three of one type: int, unsigned int, long long, unsigned long long or double.
class PLOTKA_EXPORT PKC_PropertyFromRange : public PKC_Property
{
public:
    /// No limits yet: no value can be set until load() brings them.
    explicit PKC_PropertyFromRange(const QString &name);
    PKC_PropertyFromRange(const QString &name, const QVariant &value, const QVariant &min, const QVariant &max,
        UT_SharedPtr<PKC_PropertyDefinition> definition);
    PKC_PropertyFromRange(const QString &name, const PKC_Property &from, const QVariant &min, const QVariant &max,
        UT_SharedPtr<PKC_PropertyDefinition> definition);
    ~PKC_PropertyFromRange() override;

    /// A value above the range becomes the maximum, with or without @p fix, and is good. One below is bad and becomes
    /// the minimum only with @p fix. What are no three numbers of one type is bad and all become 0 with @p fix.
    bool validate(bool fix) override;
    using PKC_Property::load;
    using PKC_Property::store;
    bool store(QDataStream &stream) const override;
    /// The value is taken as it comes, also from outside the range.
    bool load(QDataStream &stream) override;
    PKC_Property *clone() const override;
    int propertyType() const override; ///< 2

    const QVariant &min() const { return m_min; }
    const QVariant &max() const { return m_max; }

protected:
    PKC_PropertyFromRange(const PKC_PropertyFromRange &) = default;

private:
    QVariant m_min;
    QVariant m_max;
};
