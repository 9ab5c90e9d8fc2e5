#pragma once

#include "scene/metadata/PIO_MetadataGeneric.h"

/// A text under a name.
class PLOTKA_SCENE_EXPORT PIO_MetadataString : public PIO_MetadataGeneric
{
public:
    /// The type keyword, "string".
    static QString keyword() { return QStringLiteral("string"); }

    explicit PIO_MetadataString(const QString &name = QString());
    PIO_MetadataString(const QString &name, const QString &creator, const QString &version);

    PIO_Metadata *clone() const override;

    /// Empty before a value is set.
    const QString &valueString() const { return m_value; }
    /// Makes the record valid. Silent.
    void setValue(const QString &value);

protected:
    bool parseValue(const QString &text) override;
    void encodeValue(PO_XmlWriter &writer) const override;
    QString valueText() const override;

private:
    QString m_value;
};
