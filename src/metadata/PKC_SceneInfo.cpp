#include "metadata/PKC_SceneInfo.h"

#include "metadata/RecordAttributes_p.h"
#include "metadata/RecordDump_p.h"
#include "metadata/SceneInfoMetadataReader_p.h"
#include "scene/base/whoami.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

#include <memory>

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
    auto copy = std::make_unique<PKC_SceneInfo>(metaName(), creator(), version());
    *copy = *this;
    return copy.release();
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

UT_SharedPtr<PIO_XML::ComponentReader> SceneInfoMetadataReader::startElement(
    const QString &, const QString &localName, const QXmlAttributes &attributes)
{
    if (!m_target || localName != PKC_SceneInfo::kPIO_PKMETA_Keyword)
        return this;
    readName(attributes, kName, kNameFlag, m_target->name());
    readName(attributes, kSequenceName, kSequenceNameFlag, m_target->sequenceName());
    readName(attributes, kActName, kActNameFlag, m_target->actName());
    return this;
}

bool SceneInfoMetadataReader::endElement(const QString &, const QString &)
{
    m_target = nullptr;
    return true;
}
