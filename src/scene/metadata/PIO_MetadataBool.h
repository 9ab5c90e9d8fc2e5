#pragma once

#include "scene/metadata/PIO_MetadataGeneric.h"

/// A yes or no under a name.
class PLOTKA_SCENE_EXPORT PIO_MetadataBool : public PIO_MetadataGeneric
{
public:
    /// The type keyword, "bool".
    static QString keyword() { return QStringLiteral("bool"); }

    explicit PIO_MetadataBool(const QString &name = QString());
    PIO_MetadataBool(const QString &name, const QString &creator, const QString &version);

    PIO_Metadata *clone() const override;

    /// False before a value is set.
    bool valueBool() const { return m_value; }
    /// Makes the record valid. Silent.
    void setValue(bool value);

protected:
    bool parseValue(const QString &text) override;
    void encodeValue(PO_XmlWriter &writer) const override;
    QString valueText() const override;

private:
    bool m_value = false;
};
