#pragma once

#include "scene/metadata/PIO_Metadata.h"

/// A record of a type that nobody here knows, kept as it came and written back unchanged.
class PLOTKA_SCENE_EXPORT PIO_MetadataUnknown : public PIO_Metadata
{
public:
    PIO_MetadataUnknown(
        const QString &type, const QString &name, const QString &creator, const QString &version, QString content);

    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    PIO_Metadata *clone() const override;
    void dumpToString(QString &text) const override;

    /// The XML between the tags of the enclosing element, white space included.
    const QString &content() const { return m_content; }

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;

private:
    QString m_content;
};
