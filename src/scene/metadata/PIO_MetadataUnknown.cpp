#include "scene/metadata/PIO_MetadataUnknown.h"

#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <utility>

PIO_MetadataUnknown::PIO_MetadataUnknown(
    const QString &type, const QString &name, const QString &creator, const QString &version, QString content) :
    PIO_Metadata(type, name, creator, version),
    m_content(std::move(content))
{
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
