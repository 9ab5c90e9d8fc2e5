#pragma once

#include "scene/metadata/PIO_ComponentReader.h"

class PKC_ClipInfo;

/// Reads the element "panelInfo" into a record that outlives the reading. The first closing element, of
/// whatever name, ends it: the rest is ignored.
class PanelInfoMetadataReader : public PIO_XML::ComponentReader
{
public:
    explicit PanelInfoMetadataReader(PKC_ClipInfo *target) : m_target(target) {}

    UT_SharedPtr<ComponentReader> startElement(
        const QString &nameSpace, const QString &localName, const QXmlAttributes &attributes) override;
    bool endElement(const QString &nameSpace, const QString &localName) override;

private:
    PKC_ClipInfo *m_target;
};
