#include "infofields/PKC_InfoFieldDescList.h"

#include "infofields/FieldAttributes_p.h"
#include "infofields/FieldLists_p.h"
#include "records/RecordAttributes_p.h"
#include "records/RecordReader_p.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

namespace
{

class FieldDescListMetadataReader : public RecordReader<PKC_InfoFieldDescList, ReadsUntil::OwnEnd>
{
public:
    using RecordReader::RecordReader;

protected:
    void readElement(PKC_InfoFieldDescList &list, const QString &localName, const QXmlAttributes &attributes) override
    {
        int id = 0;
        if (localName != FieldAttributes::kField || !RecordAttributes::readInt(attributes, FieldAttributes::kId, id))
            return;
        list.add(FieldAttributes::typeOf(attributes), id, attributes.value(FieldAttributes::kName),
            FieldAttributes::sizeOf(attributes), FieldAttributes::heightOf(attributes));
    }
};

} // namespace

PKC_InfoFieldDescList::PKC_InfoFieldDescList(
    const QString &type, const QString &name, const QString &creator, const QString &version) :
    PIO_Metadata(type, name, creator, version)
{
}

PKC_InfoFieldDescList::~PKC_InfoFieldDescList() = default;

bool PKC_InfoFieldDescList::isValid() const
{
    return true;
}

PIO_XML::ComponentReader *PKC_InfoFieldDescList::componentReader()
{
    return new FieldDescListMetadataReader(this);
}

void PKC_InfoFieldDescList::dumpToString(QString &text) const
{
    PIO_Metadata::dumpToString(text);
    if (empty())
        text += QStringLiteral("EMPTY\n");
    for (const PKC_InfoFieldDesc &field : *this) {
        text += QStringLiteral("Field: name=%1, type=%2, id=%3, size=%4, height=%5\n")
                    .arg(field.name(), FieldAttributes::typeWord(field.type()), QString::number(field.id()),
                        FieldAttributes::sizeWord(field.size()), QString::number(field.height()));
    }
}

void PKC_InfoFieldDescList::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    if (empty())
        return;
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(metaType());
    for (const PKC_InfoFieldDesc &field : *this) {
        writer.beginElement(FieldAttributes::kField);
        writer.encodeIntAttr(FieldAttributes::kId, field.id());
        writer.encodeStringAttr(FieldAttributes::kName, field.name());
        FieldAttributes::encodeType(writer, field.type());
        FieldAttributes::encodeSizeAndHeight(writer, field);
        writer.endElement();
    }
    writer.endElement();
}

void PKC_InfoFieldDescList::add(
    PKC_InfoFieldDesc::Type type, int id, const QString &name, PKC_InfoFieldDesc::Size size, int height)
{
    emplace_back(type, id, name, size, height);
}

PKC_InfoFieldDescList::iterator PKC_InfoFieldDescList::find(int id)
{
    return FieldLists::find(*this, id);
}

PKC_InfoFieldDescList::const_iterator PKC_InfoFieldDescList::find(const QString &name) const
{
    if (name.isEmpty())
        return end();
    return std::find_if(begin(), end(), [&name](const PKC_InfoFieldDesc &field) { return field.name() == name; });
}

bool PKC_InfoFieldDescList::contain(int id) const
{
    return FieldLists::find(*this, id) != end();
}

bool PKC_InfoFieldDescList::contain(const QString &name) const
{
    return find(name) != end();
}

bool PKC_InfoFieldDescList::containsCustomSize() const
{
    return FieldLists::containsCustomSize(*this);
}

void PKC_InfoFieldDescList::getIds(std::list<int> &ids) const
{
    FieldLists::mergeIds(*this, ids);
}

void PKC_InfoFieldDescList::getIds(std::set<int> &ids) const
{
    FieldLists::collectIds(*this, ids);
}

int PKC_InfoFieldDescList::getUniqId() const
{
    return static_cast<int>(FieldLists::firstFreePlace(*this, [](int id) { return static_cast<quint64>(id); }));
}

int PKC_InfoFieldDescList::move(int id, int beforeId)
{
    return FieldLists::move(*this, id, beforeId);
}

bool PKC_InfoFieldDescList::remap(const std::map<int, int> &ids)
{
    FieldLists::remap(*this, ids);
    return true;
}

bool PKC_InfoFieldDescList::remove(const std::set<int> &ids)
{
    FieldLists::remove(*this, ids);
    return true;
}
