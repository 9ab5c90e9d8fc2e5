#pragma once

#include "scene/metadata/PIO_MetadataGeneric.h"

/// A number under a name.
class PLOTKA_SCENE_EXPORT PIO_MetadataDouble : public PIO_MetadataGeneric
{
public:
    /// The type keyword, "double".
    static QString keyword() { return QStringLiteral("double"); }

    explicit PIO_MetadataDouble(const QString &name = QString());
    PIO_MetadataDouble(const QString &name, const QString &creator, const QString &version);

    PIO_Metadata *clone() const override;

    /// 0.0 before a value is set.
    double valueDouble() const { return m_value; }
    /// Makes the record valid. Silent.
    void setValue(double value);

protected:
    bool parseValue(const QString &text) override;
    void encodeValue(PO_XmlWriter &writer) const override;
    QString valueText() const override;

private:
    double m_value = 0.0;
};
