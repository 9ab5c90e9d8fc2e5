#include "metadata/PKC_ClipInfo.h"

#include "records/RecordAttributes_p.h"
#include "records/RecordClone_p.h"
#include "records/RecordDump_p.h"
#include "records/RecordReader_p.h"
#include "scene/base/whoami.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

#include <algorithm>
#include <utility>

namespace
{

const QString kName = QStringLiteral("name");
const QString kNameFlag = QStringLiteral("nameFlag");
const QString kExportFlag = QStringLiteral("exportFlag");
const QString kColorIsValid = QStringLiteral("colorIsValid");
const QString kColor = QStringLiteral("color");
const QString kLinkedAudioClip = QStringLiteral("linkedAudioClip");
const QString kLinkedVideoClip = QStringLiteral("linkedVideoClip");

bool contains(const std::vector<SC_Id> &ids, const SC_Id &id)
{
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

bool link(std::vector<SC_Id> &ids, const SC_Id &id)
{
    if (contains(ids, id))
        return false;
    ids.push_back(id);
    return true;
}

bool unlink(std::vector<SC_Id> &ids, const SC_Id &id)
{
    const auto position = std::find(ids.begin(), ids.end(), id);
    if (position == ids.end())
        return false;
    ids.erase(position);
    return true;
}

} // namespace

class PanelInfoMetadataReader : public RecordReader<PKC_ClipInfo, ReadsUntil::FirstEnd>
{
public:
    using RecordReader::RecordReader;

protected:
    void readElement(PKC_ClipInfo &info, const QString &localName, const QXmlAttributes &attributes) override
    {
        if (localName != PKC_ClipInfo::kPIO_PKMETA_Keyword)
            return;
        RecordAttributes::mergeIds(attributes, kLinkedAudioClip, info.m_linkedAudioClips);
        RecordAttributes::mergeIds(attributes, kLinkedVideoClip, info.m_linkedVideoClips);
        unsigned int colour = 0;
        if (RecordAttributes::readColor(attributes, kColor, colour))
            info.setColor(QColor(colour));
        info.name().setValue(attributes.value(kName));
        info.name().setFlag(RecordAttributes::intOf(attributes, kNameFlag));
        info.setExportFlag(RecordAttributes::intOf(attributes, kExportFlag));
        bool isColorValid = false;
        RecordAttributes::readBool(attributes, kColorIsValid, isColorValid);
        info.setColorIsValid(isColorValid);
    }
};

const QString PKC_ClipInfo::kPIO_PKMETA_Keyword = QStringLiteral("panelInfo");
const QString PKC_ClipInfo::kPIO_PKMETA_Version = QStringLiteral("1.0");

PKC_ClipInfo::PKC_ClipInfo(const QString &name) : PKC_ClipInfo(name, whoami::progName(), kPIO_PKMETA_Version) {}

PKC_ClipInfo::PKC_ClipInfo(const QString &name, const QString &creator, const QString &version) :
    PKC_ObjInfo(kPIO_PKMETA_Keyword, name, creator, version)
{
}

PKC_ClipInfo::~PKC_ClipInfo() = default;

bool PKC_ClipInfo::isValid() const
{
    return isNameValid();
}

PIO_XML::ComponentReader *PKC_ClipInfo::componentReader()
{
    return new PanelInfoMetadataReader(this);
}

PIO_Metadata *PKC_ClipInfo::clone() const
{
    return cloneRecord(*this);
}

void PKC_ClipInfo::dumpToString(QString &text) const
{
    PIO_Metadata::dumpToString(text);
    RecordDump dump(text);
    dump.next(kName, name().value());
    dump.next(kNameFlag, name().flag());
    dump.nextClose(kExportFlag, m_exportFlag);
    dump.nextClose(kColorIsValid, m_colorIsValid);
    dump.nextClose(kColor, m_color.name());
    if (!m_linkedAudioClips.empty())
        dump.nextClose(kLinkedAudioClip, RecordAttributes::joined(m_linkedAudioClips));
    if (!m_linkedVideoClips.empty())
        dump.nextClose(kLinkedVideoClip, RecordAttributes::joined(m_linkedVideoClips));
}

void PKC_ClipInfo::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(kPIO_PKMETA_Keyword);
    writer.encodeStringAttr(kName, name().value());
    writer.encodeIntAttr(kNameFlag, name().flag());
    writer.encodeIntAttr(kExportFlag, m_exportFlag);
    writer.encodeBoolAttr(kColorIsValid, m_colorIsValid);
    writer.encodeColorAttr(kColor, m_color.rgb());
    RecordAttributes::encodeIds(writer, kLinkedAudioClip, m_linkedAudioClips);
    RecordAttributes::encodeIds(writer, kLinkedVideoClip, m_linkedVideoClips);
    writer.endElement();
}

int PKC_ClipInfo::setExportFlag(int flag)
{
    return std::exchange(m_exportFlag, flag);
}

bool PKC_ClipInfo::linkVideoClip(const SC_Id &id)
{
    return link(m_linkedVideoClips, id);
}

bool PKC_ClipInfo::linkAudioClip(const SC_Id &id)
{
    return link(m_linkedAudioClips, id);
}

bool PKC_ClipInfo::unlinkVideoClip(const SC_Id &id)
{
    return unlink(m_linkedVideoClips, id);
}

bool PKC_ClipInfo::unlinkAudioClip(const SC_Id &id)
{
    return unlink(m_linkedAudioClips, id);
}

bool PKC_ClipInfo::isLinkedToClip(const SC_Id &id) const
{
    return contains(m_linkedAudioClips, id) || contains(m_linkedVideoClips, id);
}

void PKC_ClipInfo::clearLinkedClips()
{
    m_linkedVideoClips.clear();
    m_linkedAudioClips.clear();
}
