#pragma once

#include "scene/metadata/PIO_Metadata.h"

class PO_XmlWriter;

/// Base of the records that hold one value and are known by their name alone.
///
/// Such a record is not valid until its value is set. A valid one writes one element named by its
/// type with the attribute "value"; one that is not valid writes nothing.
class PLOTKA_SCENE_EXPORT PIO_MetadataGeneric : public PIO_Metadata
{
public:
    bool isValid() const override { return m_valid; }
    PIO_XML::ComponentReader *componentReader() override;
    void dumpToString(QString &text) const override;

    /// Takes the value from its text. False when the text is none: the record is then not valid.
    bool readValue(const QString &text);

protected:
    PIO_MetadataGeneric(const QString &type, const QString &name);
    PIO_MetadataGeneric(const QString &type, const QString &name, const QString &creator, const QString &version);

    void setValid() { m_valid = true; }
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;

    virtual bool parseValue(const QString &text) = 0;
    virtual void encodeValue(PO_XmlWriter &writer) const = 0;
    virtual QString valueText() const = 0;

private:
    bool m_valid = false;
};
