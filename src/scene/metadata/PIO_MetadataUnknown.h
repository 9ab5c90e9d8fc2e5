#pragma once

#include "scene/metadata/PIO_Metadata.h"

#include <utility>
#include <vector>

class PO_XmlWriter;

/// A record of a type that nobody here knows, kept as it came and written back unchanged.
class PLOTKA_SCENE_EXPORT PIO_MetadataUnknown : public PIO_Metadata
{
public:
    /// Names and values in the order in which they stand.
    using Attributes = std::vector<std::pair<QString, QString>>;

    /// The enclosing element has these attributes, of which "type", "name", "creator" and "version" are the four texts.
    PIO_MetadataUnknown(Attributes attributes, QString content);
    PIO_MetadataUnknown(
        const QString &type, const QString &name, const QString &creator, const QString &version, QString content);

    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    PIO_Metadata *clone() const override;
    void dumpToString(QString &text) const override;

    /// The XML between the tags of the enclosing element, white space included.
    const QString &content() const { return m_content; }
    void encodeAttributes(PO_XmlWriter &writer) const;

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;

private:
    Attributes m_attributes;
    QString m_content;
};
