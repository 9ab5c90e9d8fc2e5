#include "infofields/PKC_InfoFieldList.h"

#include "infofields/CaptionText_p.h"
#include "infofields/FieldAttributes_p.h"
#include "infofields/FieldLists_p.h"
#include "infofields/InfoFieldInserter_p.h"
#include "infofields/PKC_ExtraInfoFieldDescList.h"
#include "infofields/PKC_InfoFieldDescList.h"
#include "infofields/PKC_InfoFieldImage.h"
#include "infofields/PKC_InfoFieldText.h"
#include "records/RecordAttributes_p.h"
#include "records/RecordReader_p.h"
#include "scene/base/whoami.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

#include <memory>
#include <optional>

namespace
{

const QString kForDrag = QStringLiteral("for_drag");
const QString kDragName = QStringLiteral("dragName");
const QString kValue = QStringLiteral("value");

class InfoFieldListMetadataReader : public RecordReader<PKC_InfoFieldList, ReadsUntil::OwnEnd>
{
public:
    explicit InfoFieldListMetadataReader(PKC_InfoFieldList *target) : RecordReader(target) {}

protected:
    void readElement(PKC_InfoFieldList &list, const QString &localName, const QXmlAttributes &attributes) override
    {
        int id = 0;
        if (localName != FieldAttributes::kField || !RecordAttributes::readInt(attributes, FieldAttributes::kId, id))
            return;
        const PKC_InfoFieldDesc::Type type = FieldAttributes::typeOf(attributes);
        QString value = attributes.value(kValue);
        if (type == PKC_InfoFieldDesc::TEXT)
            value = CaptionText::richTextOf(value);
        PKC_InfoField &field = inserterFor(list).insert(type, attributes.value(FieldAttributes::kName), id,
            FieldAttributes::sizeOf(attributes), FieldAttributes::heightOf(attributes), value, list.end());
        if (const QString dragName = attributes.value(kDragName); !dragName.isEmpty())
            field.setDragName(dragName);
        m_size = list.size();
        m_last = list.back();
    }

private:
    /// A new one when somebody else has changed the list since the last field was read.
    InfoFieldInserter &inserterFor(PKC_InfoFieldList &list)
    {
        if (!m_inserter || list.size() != m_size || list.back() != m_last)
            m_inserter.emplace(list);
        return *m_inserter;
    }

    std::optional<InfoFieldInserter> m_inserter;
    std::size_t m_size = 0;
    UT_SharedPtr<PKC_InfoField> m_last;
};

/// An empty field of the descriptor's type, all of its bits, and id.
UT_SharedPtr<PKC_InfoField> emptyField(const PKC_InfoFieldDesc &desc)
{
    UT_SharedPtr<PKC_InfoField> field;
    if (desc.isImage())
        field = new PKC_InfoFieldImage(desc.id(), QString(), QString());
    else
        field = new PKC_InfoFieldText(desc.id(), QString(), QString());
    field->setType(desc.type());
    return field;
}

void encode(PO_XmlWriter &writer, const PKC_InfoField &field, bool forDrag)
{
    writer.beginElement(FieldAttributes::kField);
    writer.encodeIntAttr(FieldAttributes::kId, field.id());
    if (field.isLocal())
        writer.encodeStringAttr(FieldAttributes::kName, field.name());
    // What a dragged field is called where it lands is what it is called here, not where it once came from.
    if (forDrag)
        writer.encodeStringAttr(kDragName, field.name());
    FieldAttributes::encodeType(writer, field.type());
    FieldAttributes::encodeSizeAndHeight(writer, field);
    writer.encodeStringAttr(kValue, QString(field.value()).remove(QLatin1Char('\r')));
    writer.endElement();
}

} // namespace

const QString PKC_InfoFieldList::kPIO_PKMETA_Keyword = QStringLiteral("infoFields");
const QString PKC_InfoFieldList::kPIO_PKMETA_Version = QStringLiteral("1.0");

PKC_InfoFieldList::PKC_InfoFieldList(const QString &name) :
    PKC_InfoFieldList(name, whoami::progName(), kPIO_PKMETA_Version)
{
}

PKC_InfoFieldList::PKC_InfoFieldList(const QString &name, const QString &creator, const QString &version) :
    PIO_Metadata(kPIO_PKMETA_Keyword, name, creator, version)
{
}

PKC_InfoFieldList::~PKC_InfoFieldList() = default;

bool PKC_InfoFieldList::isValid() const
{
    return true;
}

PIO_XML::ComponentReader *PKC_InfoFieldList::componentReader()
{
    return new InfoFieldListMetadataReader(this);
}

PIO_Metadata *PKC_InfoFieldList::clone() const
{
    auto copy = std::make_unique<PKC_InfoFieldList>(metaName(), creator(), version());
    for (const UT_SharedPtr<PKC_InfoField> &field : *this)
        copy->push_back(field ? field->clone() : nullptr);
    return copy.release();
}

void PKC_InfoFieldList::dumpToString(QString &text) const
{
    PIO_Metadata::dumpToString(text);
    if (empty())
        text += QStringLiteral("EMPTY\n");
    for (const UT_SharedPtr<PKC_InfoField> &field : *this) {
        if (!field)
            continue;
        text +=
            QStringLiteral("Field: name=%1, type=%2, size=%3, height=%4, id=%5, value=%6\n")
                .arg(field->name(), FieldAttributes::typeWord(field->type()), FieldAttributes::sizeWord(field->size()),
                    QString::number(field->height()), QString::number(field->id()), field->value());
    }
}

void PKC_InfoFieldList::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    if (empty())
        return;
    PO_XmlWriter &writer = context.xmlWriter();
    const bool forDrag = context.GetAttribute(kForDrag);
    writer.beginElement(kPIO_PKMETA_Keyword);
    for (const UT_SharedPtr<PKC_InfoField> &field : *this) {
        if (field)
            encode(writer, *field, forDrag);
    }
    writer.endElement();
}

PKC_InfoFieldList::iterator PKC_InfoFieldList::find(int id)
{
    return FieldLists::find(*this, id);
}

PKC_InfoFieldList::const_reverse_iterator PKC_InfoFieldList::rfind(int id) const
{
    if (id == PKC_InfoFieldDesc::endId)
        return rbegin();
    if (id == PKC_InfoFieldDesc::firstId)
        return rend();
    return std::find_if(
        rbegin(), rend(), [id](const UT_SharedPtr<PKC_InfoField> &field) { return FieldLists::hasId(field, id); });
}

bool PKC_InfoFieldList::contain(int id) const
{
    return FieldLists::find(*this, id) != end();
}

bool PKC_InfoFieldList::containsCustomSize() const
{
    return FieldLists::containsCustomSize(*this);
}

UT_SharedPtr<PKC_InfoField> PKC_InfoFieldList::getInfoField(int id)
{
    const iterator field = find(id);
    return field == end() ? nullptr : *field;
}

int PKC_InfoFieldList::getPreviousGlobalInfoField(int id) const
{
    if (id >= 0 || id == PKC_InfoFieldDesc::firstId)
        return id;
    int previous = id;
    for (const_reverse_iterator place = rfind(id); place != rend() && previous < 0; ++place) {
        if (*place)
            previous = (*place)->id();
    }
    return previous;
}

void PKC_InfoFieldList::getIds(std::list<int> &ids) const
{
    FieldLists::mergeIds(*this, ids);
}

void PKC_InfoFieldList::getIds(std::set<int> &ids) const
{
    FieldLists::collectIds(*this, ids);
}

int PKC_InfoFieldList::getUniqId() const
{
    return -1 - static_cast<int>(FieldLists::firstFreePlace(*this, [](int id) { return quint64(-1 - qint64(id)); }));
}

int PKC_InfoFieldList::insertInfoField(UT_SharedPtr<PKC_InfoField> field, int beforeId)
{
    if (!field)
        return PKC_InfoFieldDesc::endId;
    const iterator place = find(beforeId);
    if (FieldLists::isReserved(field->id()))
        field->setId(getUniqId());
    insert(place, field);
    return field->id();
}

int PKC_InfoFieldList::insertInfoField(PKC_InfoFieldDesc::Type type, const QString &name, int id,
    PKC_InfoFieldDesc::Size size, int height, const QString &value, int beforeId)
{
    const int ownId = FieldLists::isReserved(id) ? getUniqId() : id;
    return InfoFieldInserter(*this).insert(type, name, ownId, size, height, value, find(beforeId)).id();
}

int PKC_InfoFieldList::insertInfoField(
    PKC_InfoFieldDesc::Type type, const QString &name, int id, const QString &value, int beforeId)
{
    return insertInfoField(
        type, name, id, PKC_InfoFieldDesc::DEFAULT, PKC_InfoFieldDesc::DEFAULT_HEIGHT, value, beforeId);
}

int PKC_InfoFieldList::insertInfoField(PKC_InfoFieldDesc::Type type, int id, const QString &value, int beforeId)
{
    return insertInfoField(type, QString(), id, value, beforeId);
}

int PKC_InfoFieldList::insertInfoField(PKC_InfoFieldDesc::Type type, int id, int beforeId)
{
    return insertInfoField(type, id, QString(), beforeId);
}

void PKC_InfoFieldList::reserveInfoFields(const PKC_InfoFieldDescList &descs)
{
    clear();
    for (const PKC_InfoFieldDesc &desc : descs)
        push_back(emptyField(desc));
}

void PKC_InfoFieldList::reserveExtraInfoFields(const PKC_ExtraInfoFieldDescList &descs)
{
    std::map<int, iterator> places; // of the first entry of each id
    for (iterator place = begin(); place != end(); ++place) {
        if (*place)
            places.emplace((*place)->id(), place);
    }
    const auto placeOf = [&](int id) {
        const auto known = places.find(id);
        return FieldLists::isReserved(id) ? find(id) : known == places.end() ? end() : known->second;
    };
    InfoFieldInserter inserter(*this);
    for (const PKC_ExtraInfoFieldDesc &desc : descs) {
        const iterator next = placeOf(desc.position());
        const PKC_InfoField &field = inserter.insert(desc.type(), desc.name(), PKC_InfoFieldDesc::endId,
            PKC_InfoFieldDesc::DEFAULT, PKC_InfoFieldDesc::DEFAULT_HEIGHT, QString(), next);
        places.emplace(field.id(), std::prev(next)); // a later descriptor may stand before this one
    }
}

void PKC_InfoFieldList::copyExtra(PKC_ExtraInfoFieldDescList *descs) const
{
    if (!descs)
        return;
    int position = PKC_InfoFieldDesc::endId;
    PKC_ExtraInfoFieldDescList_t extras;
    for (auto place = rbegin(); place != rend(); ++place) {
        const UT_SharedPtr<PKC_InfoField> &field = *place;
        if (field && field->isGlobal())
            position = field->id();
        else if (field && !field->name().isEmpty())
            extras.emplace_front(field->type(), field->name(), position);
    }
    descs->splice(descs->end(), extras);
}

int PKC_InfoFieldList::move(int id, int beforeId)
{
    return FieldLists::move(*this, id, beforeId);
}

bool PKC_InfoFieldList::remap(const std::map<int, int> &ids)
{
    FieldLists::remap(*this, ids);
    return true;
}

bool PKC_InfoFieldList::remove(const std::set<int> &ids)
{
    FieldLists::remove(*this, ids);
    return true;
}

UT_SharedPtr<PKC_InfoField> PKC_InfoFieldList::removeInfoField(int id)
{
    const auto place = std::find_if(
        begin(), end(), [id](const UT_SharedPtr<PKC_InfoField> &field) { return FieldLists::hasId(field, id); });
    if (place == end())
        return nullptr;
    const UT_SharedPtr<PKC_InfoField> field = *place;
    field->setNextId(FieldLists::idAt(*this, erase(place)));
    return field;
}

int PKC_InfoFieldList::renameInfoField(int id, const QString &name, QString &oldName)
{
    const UT_SharedPtr<PKC_InfoField> field = getInfoField(id);
    if (!field || field->isGlobal())
        return PKC_InfoFieldDesc::endId;
    const QString newName = name; // may be the one text with oldName
    oldName = field->name();
    field->setName(newName);
    return field->id();
}

int PKC_InfoFieldList::renameInfoField(int id, const QString &name)
{
    QString oldName;
    return renameInfoField(id, name, oldName);
}
