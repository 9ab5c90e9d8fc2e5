#pragma once

#include "pdf/properties/PKC_Property.h"

/// The name of a file, with the filter by which people choose one. Whether the file is there is not asked.
class PLOTKA_EXPORT PKC_PropertyFromFile : public PKC_Property
{
public:
    /// The filter is "*.*".
    explicit PKC_PropertyFromFile(const QString &name);
    PKC_PropertyFromFile(const QString &name, const QVariant &value, const QString &fileFilter,
        UT_SharedPtr<PKC_PropertyDefinition> definition);
    PKC_PropertyFromFile(const QString &name, const PKC_Property &from, const QString &fileFilter,
        UT_SharedPtr<PKC_PropertyDefinition> definition);
    ~PKC_PropertyFromFile() override;

    using PKC_Property::load;
    using PKC_Property::store;
    bool store(QDataStream &stream) const override;
    bool load(QDataStream &stream) override;
    PKC_Property *clone() const override;
    int propertyType() const override; ///< 3

    const QString &fileFilter() const { return m_fileFilter; }

protected:
    PKC_PropertyFromFile(const PKC_PropertyFromFile &) = default;

private:
    QString m_fileFilter;
};
