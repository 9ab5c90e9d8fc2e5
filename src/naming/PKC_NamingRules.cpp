#include "naming/PKC_NamingRules.h"

#include "records/RecordAttributes_p.h"
#include "records/RecordClone_p.h"
#include "records/RecordReader_p.h"
#include "scene/base/whoami.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"
#include "scene/preferences/PR_Preference.h"

#include <QXmlAttributes>

namespace
{

const QString kAutoShowTotalPref = QStringLiteral("ST_PANEL_NAME_AUTO_SHOW_TOTAL");
const QString kEnableActPref = QStringLiteral("ST_ENABLE_ACT");

const QString kSequenceRules = QStringLiteral("sequence_rules");
const QString kShotRules = QStringLiteral("shot_rules");
const QString kPanelRules = QStringLiteral("panel_rules");
const QString kOverloadingPref = QStringLiteral("overloadingPref");
const QString kAutoShowTotal = QStringLiteral("autoShowTotal");
const QString kEnabledAct = QStringLiteral("enabledAct");

bool globalSetting(const QString &key)
{
    return tuPref && tuPref->getBool(key);
}

void readSwitches(PKC_NamingRules &rules, const QXmlAttributes &attributes)
{
    bool on = false;
    if (RecordAttributes::readBool(attributes, kOverloadingPref, on))
        rules.setOverloadingPref(on);
    if (RecordAttributes::readBool(attributes, kEnabledAct, on))
        rules.setEnabledAct(on);
    if (RecordAttributes::readBool(attributes, kAutoShowTotal, on))
        rules.setAutoShowTotal(on);
}

/// The one element of older files: the rules for shots, and few for panels.
void readFlatRules(PKC_NamingRules &rules, const QXmlAttributes &attributes)
{
    const auto number = [&attributes](const QString &key) { return RecordAttributes::intOf(attributes, key); };
    PKC_NamingRules::ObjRules &shot = rules.shotRules();
    PKC_NamingRules::ObjRules &panel = rules.panelRules();
    bool on = false;
    if (RecordAttributes::readBool(attributes, QStringLiteral("automaticLeadingZeros"), on))
        shot.setAutomaticLeadingZeros(on);
    if (RecordAttributes::readBool(attributes, QStringLiteral("allowCustomName"), on))
        panel.setAllowCustomName(on);
    if (RecordAttributes::readBool(attributes, QStringLiteral("smartShotNameOnDrop"), on))
        shot.setSmartNameOnDrop(on);
    shot.setNumberOfZeros(number(QStringLiteral("numberOfZeros")));
    panel.setAutoIncrementRule(PKC_NamingRules::NameRule_t(number(QStringLiteral("autoIncrementRule"))));
    shot.setAutoIncrementRule(PKC_NamingRules::NameRule_t(number(QStringLiteral("shotAutoIncrementRule"))));
    shot.setAutoIncrementValue(number(QStringLiteral("sceneNameIncrementValue")));
    shot.setNameSuffixDelimiter(PKC_NamingRules::Delimiter_t(number(QStringLiteral("shotConflictDelimiter"))));
    shot.setNameSuffixType(PKC_NamingRules::SuffixType_t(number(QStringLiteral("shotConflictType"))));
}

} // namespace

class NamingRulesMetadataReader : public RecordReader<PKC_NamingRules, ReadsUntil::Released>
{
public:
    using RecordReader::RecordReader;

protected:
    void readElement(PKC_NamingRules &rules, const QString &localName, const QXmlAttributes &attributes) override
    {
        if (localName == PKC_NamingRules::kPIO_PKMETA_Keyword)
            readRecord(rules, attributes);
        else if (localName == kSequenceRules)
            rules.sequenceRules().readFromXml(attributes);
        else if (localName == kShotRules)
            rules.shotRules().readFromXml(attributes);
        else if (localName == kPanelRules)
            rules.panelRules().readFromXml(attributes);
    }

private:
    void readRecord(PKC_NamingRules &rules, const QXmlAttributes &attributes)
    {
        const bool isFlat = rules.version() == QLatin1String("1.0");
        if (isFlat || rules.version() == PKC_NamingRules::kPIO_PKMETA_Version)
            readSwitches(rules, attributes);
        else
            remark(QStringLiteral("the rules have the unknown version \"%1\"").arg(rules.version()));
        if (isFlat)
            readFlatRules(rules, attributes);
    }
};

const QString PKC_NamingRules::kPIO_PKMETA_Keyword = QStringLiteral("namingRules");
const QString PKC_NamingRules::kPIO_PKMETA_Version = QStringLiteral("2.0");

PKC_NamingRules::PKC_NamingRules(const QString &name) : PKC_NamingRules(name, whoami::progName(), kPIO_PKMETA_Version)
{
}

PKC_NamingRules::PKC_NamingRules(const QString &name, const QString &creator, const QString &version) :
    PIO_Metadata(kPIO_PKMETA_Keyword, name, creator, version), m_autoShowTotal(globalSetting(kAutoShowTotalPref)),
    m_enabledAct(globalSetting(kEnableActPref)), m_sequenceRules(QStringLiteral("sequence")),
    m_shotRules(QStringLiteral("shot")), m_panelRules(QStringLiteral("panel"))
{
    setOverloadingPref(m_overloadingPref);
}

PKC_NamingRules &PKC_NamingRules::operator=(const PKC_NamingRules &other)
{
    PIO_Metadata::operator=(other);
    m_autoShowTotal = other.m_autoShowTotal;
    m_enabledAct = other.m_enabledAct;
    m_sequenceRules = other.m_sequenceRules;
    m_shotRules = other.m_shotRules;
    m_panelRules = other.m_panelRules;
    setOverloadingPref(other.m_overloadingPref);
    return *this;
}

PKC_NamingRules::~PKC_NamingRules() = default;

bool PKC_NamingRules::isValid() const
{
    return true;
}

PIO_XML::ComponentReader *PKC_NamingRules::componentReader()
{
    return new NamingRulesMetadataReader(this);
}

PIO_Metadata *PKC_NamingRules::clone() const
{
    return cloneRecord(*this);
}

void PKC_NamingRules::dumpToString(QString &text) const
{
    PIO_Metadata::dumpToString(text);
}

void PKC_NamingRules::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(kPIO_PKMETA_Keyword);
    writer.encodeBoolAttr(kOverloadingPref, m_overloadingPref);
    writer.encodeBoolAttr(kAutoShowTotal, m_autoShowTotal);
    writer.encodeBoolAttr(kEnabledAct, m_enabledAct);
    m_sequenceRules.writeToXml(context);
    m_shotRules.writeToXml(context);
    m_panelRules.writeToXml(context);
    writer.endElement();
}

bool PKC_NamingRules::operator==(const PKC_NamingRules &other) const
{
    return m_overloadingPref == other.m_overloadingPref && m_autoShowTotal == other.m_autoShowTotal
        && m_enabledAct == other.m_enabledAct && m_sequenceRules == other.m_sequenceRules
        && m_shotRules == other.m_shotRules && m_panelRules == other.m_panelRules;
}

void PKC_NamingRules::setOverloadingPref(bool on)
{
    m_overloadingPref = on;
    m_sequenceRules.setOverloadingPref(on);
    m_shotRules.setOverloadingPref(on);
    m_panelRules.setOverloadingPref(on);
}

bool PKC_NamingRules::autoShowTotal() const
{
    return m_overloadingPref ? m_autoShowTotal : globalSetting(kAutoShowTotalPref);
}

bool PKC_NamingRules::enabledAct() const
{
    return m_overloadingPref ? m_enabledAct : globalSetting(kEnableActPref);
}

QString PKC_NamingRules::delimiterStr(Delimiter_t delimiter)
{
    switch (delimiter) {
    case Underscore:
        return QStringLiteral("_");
    case Dot:
        return QStringLiteral(".");
    case NoDelimiter:
        break;
    }
    return QString();
}

QString PKC_NamingRules::suffixTypeStr(SuffixType_t type)
{
    switch (type) {
    case NumberSuffix:
        return QStringLiteral("1");
    case UpperCaseSuffix:
        return QStringLiteral("A");
    case LowerCaseSuffix:
        return QStringLiteral("a");
    case NoSuffix:
        break;
    }
    return QString();
}
