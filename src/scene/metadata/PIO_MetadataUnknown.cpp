#include "scene/metadata/PIO_MetadataUnknown.h"

#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QLatin1String>

#include <algorithm>
#include <utility>

namespace
{

/// Null when there is no such attribute.
QString valueOf(const PIO_MetadataUnknown::Attributes &attributes, QLatin1String name)
{
    const auto found = std::find_if(attributes.begin(), attributes.end(),
        [name](const std::pair<QString, QString> &attribute) { return attribute.first == name; });
    return found == attributes.end() ? QString() : found->second;
}

} // namespace

PIO_MetadataUnknown::PIO_MetadataUnknown(Attributes attributes, QString content) :
    PIO_Metadata(valueOf(attributes, QLatin1String("type")), valueOf(attributes, QLatin1String("name")),
        valueOf(attributes, QLatin1String("creator")), valueOf(attributes, QLatin1String("version"))),
    m_attributes(std::move(attributes)), m_content(std::move(content))
{
}

PIO_MetadataUnknown::PIO_MetadataUnknown(
    const QString &type, const QString &name, const QString &creator, const QString &version, QString content) :
    PIO_MetadataUnknown({{QStringLiteral("type"), type}, {QStringLiteral("name"), name},
                            {QStringLiteral("creator"), creator}, {QStringLiteral("version"), version}},
        std::move(content))
{
}

void PIO_MetadataUnknown::encodeAttributes(PO_XmlWriter &writer) const
{
    for (const auto &attribute : m_attributes)
        writer.encodeStringAttr(attribute.first, attribute.second);
}

bool PIO_MetadataUnknown::isValid() const
{
    return true;
}

PIO_XML::ComponentReader *PIO_MetadataUnknown::componentReader()
{
    return nullptr;
}

PIO_Metadata *PIO_MetadataUnknown::clone() const
{
    return new PIO_MetadataUnknown(*this);
}

void PIO_MetadataUnknown::dumpToString(QString &text) const
{
    PIO_Metadata::dumpToString(text);
    text += QStringLiteral("content=%1\n").arg(m_content);
}

void PIO_MetadataUnknown::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    context.xmlWriter().writeMarkup(m_content);
}
