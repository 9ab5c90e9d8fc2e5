#include "metadata/PKC_SceneInfo.h"

#include "records/RecordAttributes_p.h"
#include "records/RecordClone_p.h"
#include "records/RecordDump_p.h"
#include "records/RecordReader_p.h"
#include "scene/base/whoami.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

namespace
{

const QString kName = QStringLiteral("name");
const QString kNameFlag = QStringLiteral("nameFlag");
const QString kSequenceName = QStringLiteral("sequenceName");
const QString kSequenceNameFlag = QStringLiteral("sequenceNameFlag");
const QString kActName = QStringLiteral("actName");
const QString kActNameFlag = QStringLiteral("actNameFlag");

void encodeName(PO_XmlWriter &writer, const QString &textKey, const QString &flagKey, const PKC_ObjectName &name)
{
    writer.encodeStringAttr(textKey, name.value());
    writer.encodeIntAttr(flagKey, name.flag());
}

void readName(const QXmlAttributes &attributes, const QString &textKey, const QString &flagKey, PKC_ObjectName &name)
{
    name.setValue(attributes.value(textKey));
    name.setFlag(RecordAttributes::intOf(attributes, flagKey));
}

class SceneInfoMetadataReader : public RecordReader<PKC_SceneInfo, ReadsUntil::FirstEnd>
{
public:
    using RecordReader::RecordReader;

protected:
    void readElement(PKC_SceneInfo &info, const QString &localName, const QXmlAttributes &attributes) override
    {
        if (localName != PKC_SceneInfo::kPIO_PKMETA_Keyword)
            return;
        readName(attributes, kName, kNameFlag, info.name());
        readName(attributes, kSequenceName, kSequenceNameFlag, info.sequenceName());
        readName(attributes, kActName, kActNameFlag, info.actName());
    }
};

} // namespace

const QString PKC_SceneInfo::kPIO_PKMETA_Keyword = QStringLiteral("sceneInfo");
const QString PKC_SceneInfo::kPIO_PKMETA_Version = QStringLiteral("1.0");

PKC_SceneInfo::PKC_SceneInfo(const QString &name) : PKC_SceneInfo(name, whoami::progName(), kPIO_PKMETA_Version) {}

PKC_SceneInfo::PKC_SceneInfo(const QString &name, const QString &creator, const QString &version) :
    PKC_ObjInfo(kPIO_PKMETA_Keyword, name, creator, version)
{
    PKC_ObjectName &shotName = this->name();
    shotName.setFlag(shotName.flag() | PKC_ObjectName::customBit);
}

PKC_SceneInfo::~PKC_SceneInfo() = default;

bool PKC_SceneInfo::isValid() const
{
    return isNameValid();
}

PIO_XML::ComponentReader *PKC_SceneInfo::componentReader()
{
    return new SceneInfoMetadataReader(this);
}

PIO_Metadata *PKC_SceneInfo::clone() const
{
    return cloneRecord(*this);
}

void PKC_SceneInfo::dumpToString(QString &text) const
{
    PIO_Metadata::dumpToString(text);
    RecordDump dump(text);
    dump.next(kName, name().value());
    dump.next(kNameFlag, name().flag());
    dump.next(kSequenceName, m_sequenceName.value());
    dump.next(kSequenceNameFlag, m_sequenceName.flag());
    dump.next(kActName, m_actName.value());
    dump.last(kActNameFlag, m_actName.flag());
}

void PKC_SceneInfo::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(kPIO_PKMETA_Keyword);
    encodeName(writer, kName, kNameFlag, name());
    encodeName(writer, kSequenceName, kSequenceNameFlag, m_sequenceName);
    encodeName(writer, kActName, kActNameFlag, m_actName);
    writer.endElement();
}
