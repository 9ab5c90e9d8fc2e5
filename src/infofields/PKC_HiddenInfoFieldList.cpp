#include "infofields/PKC_HiddenInfoFieldList.h"

#include "infofields/FieldAttributes_p.h"
#include "records/RecordClone_p.h"
#include "records/RecordReader_p.h"
#include "scene/base/whoami.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

namespace
{

const QString kKeyword = QStringLiteral("hiddenInfoField");
const QString kVersion = QStringLiteral("1.0");

class HiddenInfoFieldListMetadataReader : public RecordReader<PKC_HiddenInfoFieldList, ReadsUntil::OwnEnd>
{
public:
    using RecordReader::RecordReader;

protected:
    void readElement(
        PKC_HiddenInfoFieldList &names, const QString &localName, const QXmlAttributes &attributes) override
    {
        if (localName == FieldAttributes::kField)
            names.insert(attributes.value(FieldAttributes::kName));
    }
};

} // namespace

PKC_HiddenInfoFieldList::PKC_HiddenInfoFieldList(const QString &name) :
    PKC_HiddenInfoFieldList(name, whoami::progName(), kVersion)
{
}

PKC_HiddenInfoFieldList::PKC_HiddenInfoFieldList(const QString &name, const QString &creator, const QString &version) :
    PIO_Metadata(kKeyword, name, creator, version)
{
}

PKC_HiddenInfoFieldList::~PKC_HiddenInfoFieldList() = default;

bool PKC_HiddenInfoFieldList::isValid() const
{
    return true;
}

PIO_XML::ComponentReader *PKC_HiddenInfoFieldList::componentReader()
{
    return new HiddenInfoFieldListMetadataReader(this);
}

PIO_Metadata *PKC_HiddenInfoFieldList::clone() const
{
    return cloneRecord(*this);
}

void PKC_HiddenInfoFieldList::dumpToString(QString &text) const
{
    PIO_Metadata::dumpToString(text);
    if (empty())
        text += QStringLiteral("EMPTY\n");
    for (const QString &name : *this)
        text += QStringLiteral("Field: name=%1\n").arg(name);
}

void PKC_HiddenInfoFieldList::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    if (empty())
        return;
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(kKeyword);
    for (const QString &name : *this) {
        writer.beginElement(FieldAttributes::kField);
        writer.encodeStringAttr(FieldAttributes::kName, name);
        writer.endElement();
    }
    writer.endElement();
}
