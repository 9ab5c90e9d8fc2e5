#include "infofields/PKC_ExtraInfoFieldDescList.h"

#include "infofields/FieldAttributes_p.h"
#include "records/RecordAttributes_p.h"
#include "records/RecordClone_p.h"
#include "records/RecordReader_p.h"
#include "scene/base/whoami.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

namespace
{

class ExtraFieldDescListMetadataReader : public RecordReader<PKC_ExtraInfoFieldDescList, ReadsUntil::OwnEnd>
{
public:
    using RecordReader::RecordReader;

protected:
    void readElement(
        PKC_ExtraInfoFieldDescList &list, const QString &localName, const QXmlAttributes &attributes) override
    {
        if (localName != FieldAttributes::kField)
            return;
        int position = -1;
        RecordAttributes::readInt(attributes, FieldAttributes::kPosition, position);
        list.emplace_back(FieldAttributes::typeOf(attributes), attributes.value(FieldAttributes::kName), position);
    }
};

} // namespace

const QString PKC_ExtraInfoFieldDescList::kPIO_PKMETA_Keyword = QStringLiteral("extraInfoFieldList");
const QString PKC_ExtraInfoFieldDescList::kPIO_PKMETA_Version = QStringLiteral("1.0");

PKC_ExtraInfoFieldDescList::PKC_ExtraInfoFieldDescList(const QString &name) :
    PKC_ExtraInfoFieldDescList(name, whoami::progName(), kPIO_PKMETA_Version)
{
}

PKC_ExtraInfoFieldDescList::PKC_ExtraInfoFieldDescList(
    const QString &name, const QString &creator, const QString &version) :
    PIO_Metadata(kPIO_PKMETA_Keyword, name, creator, version)
{
}

PKC_ExtraInfoFieldDescList::~PKC_ExtraInfoFieldDescList() = default;

bool PKC_ExtraInfoFieldDescList::isValid() const
{
    return true;
}

PIO_XML::ComponentReader *PKC_ExtraInfoFieldDescList::componentReader()
{
    return new ExtraFieldDescListMetadataReader(this);
}

PIO_Metadata *PKC_ExtraInfoFieldDescList::clone() const
{
    return cloneRecord(*this);
}

void PKC_ExtraInfoFieldDescList::dumpToString(QString &text) const
{
    PIO_Metadata::dumpToString(text);
    if (empty())
        text += QStringLiteral("EMPTY\n");
    for (const PKC_ExtraInfoFieldDesc &field : *this) {
        text += QStringLiteral("Field: name=%1, type=%2, position=%3\n")
                    .arg(field.name(), FieldAttributes::typeWord(field.type()), QString::number(field.position()));
    }
}

void PKC_ExtraInfoFieldDescList::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    if (empty())
        return;
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(kPIO_PKMETA_Keyword);
    for (const PKC_ExtraInfoFieldDesc &field : *this) {
        writer.beginElement(FieldAttributes::kField);
        writer.encodeStringAttr(FieldAttributes::kName, field.name());
        FieldAttributes::encodeTypeOfExtra(writer, field.type());
        writer.encodeIntAttr(FieldAttributes::kPosition, field.position());
        writer.endElement();
    }
    writer.endElement();
}
