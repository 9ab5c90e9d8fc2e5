#pragma once

#include "scene/metadata/PIO_MetadataGeneric.h"

/// A whole number under a name.
class PLOTKA_SCENE_EXPORT PIO_MetadataInt : public PIO_MetadataGeneric
{
public:
    /// The type keyword, "int".
    static QString keyword() { return QStringLiteral("int"); }

    explicit PIO_MetadataInt(const QString &name = QString());
    PIO_MetadataInt(const QString &name, const QString &creator, const QString &version);

    PIO_Metadata *clone() const override;

    /// 0 before a value is set.
    int valueInt() const { return m_value; }
    /// Makes the record valid. Silent.
    void setValue(int value);

protected:
    bool parseValue(const QString &text) override;
    void encodeValue(PO_XmlWriter &writer) const override;
    QString valueText() const override;

private:
    int m_value = 0;
};
