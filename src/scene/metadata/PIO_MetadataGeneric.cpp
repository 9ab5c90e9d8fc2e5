#include "scene/metadata/PIO_MetadataGeneric.h"

#include "scene/base/whoami.h"
#include "scene/metadata/PIO_ComponentReader.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

namespace
{

/// Reads the one element of a generic record. It does nothing once the element has ended.
class GenericMetadataReader : public PIO_XML::ComponentReader
{
public:
    explicit GenericMetadataReader(PIO_MetadataGeneric *target) : m_target(target) {}

    UT_SharedPtr<ComponentReader> startElement(
        const QString &, const QString &localName, const QXmlAttributes &attributes) override
    {
        if (m_target && localName == m_target->metaType())
            m_target->readValue(attributes.value(QStringLiteral("value")));
        return this;
    }

    bool endElement(const QString &, const QString &localName) override
    {
        if (m_target && localName == m_target->metaType())
            m_target = nullptr;
        return true;
    }

private:
    PIO_MetadataGeneric *m_target;
};

} // namespace

PIO_MetadataGeneric::PIO_MetadataGeneric(const QString &type, const QString &name) :
    PIO_MetadataGeneric(type, name, whoami::progName(), QStringLiteral("1.0"))
{
}

PIO_MetadataGeneric::PIO_MetadataGeneric(
    const QString &type, const QString &name, const QString &creator, const QString &version) :
    PIO_Metadata(type, name, creator, version)
{
}

PIO_XML::ComponentReader *PIO_MetadataGeneric::componentReader()
{
    return new GenericMetadataReader(this);
}

void PIO_MetadataGeneric::dumpToString(QString &text) const
{
    PIO_Metadata::dumpToString(text);
    text += QStringLiteral("value=%1\n").arg(m_valid ? valueText() : QStringLiteral("(none)"));
}

bool PIO_MetadataGeneric::readValue(const QString &text)
{
    m_valid = !text.isNull() && parseValue(text);
    return m_valid;
}

void PIO_MetadataGeneric::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    if (!m_valid)
        return;
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(metaType());
    encodeValue(writer);
    writer.endElement();
}
