#include "naming/PKC_NamingRules.h"
#include "records/RecordAttributes_p.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"
#include "scene/preferences/PR_Preference.h"

#include <QXmlAttributes>

namespace
{

/// A preference of each kind of object, with its defaults. %1 is the kind in upper case.
struct Setting {
    QLatin1String key;
    int forSequences;
    int forShots;
    int forPanels;
};

constexpr Setting automaticLeadingZerosPref{QLatin1String("ST_%1_NAME_AUTOMATIC_LEADING_ZEROS"), 0, 0, 0};
constexpr Setting numberOfZerosPref{QLatin1String("ST_%1_NAME_NUMBER_OF_ZEROS"), 2, 2, 0};
constexpr Setting allowCustomNamePref{QLatin1String("ST_%1_NAME_ALLOW_CUSTOM"), 1, 1, 0};
constexpr Setting autoIncrementRulePref{QLatin1String("ST_%1_NAME_AUTO_INCREMENT_RULE"), 0, 0, 0};
constexpr Setting incrementByNPref{QLatin1String("ST_%1_NAME_AUTO_INCREMENT_BY_N"), 0, 0, 0};
constexpr Setting autoIncrementValuePref{QLatin1String("ST_%1_NAME_INCREMENT_VALUE"), 10, 10, 10};
constexpr Setting nameSuffixDelimiterPref{QLatin1String("ST_%1_NAME_CONFLICT_DELIMITER"), 1, 1, 1};
constexpr Setting nameSuffixTypePref{QLatin1String("ST_%1_NAME_CONFLICT_ADD_TYPE"), 0, 0, 2};
constexpr Setting smartNameOnDropPref{QLatin1String("ST_SMART_%1_NAME_ON_DROP"), 0, 0, 0};
constexpr Setting resetNameOnNewParentPref{QLatin1String("ST_%1_NAME_RESET_ON_NEW_PARENT"), 0, 0, 1};

// Files call the rules of all kinds of objects as they once called those of shots.
const QString kAutomaticLeadingZeros = QStringLiteral("automaticLeadingZeros");
const QString kNumberOfZeros = QStringLiteral("numberOfZeros");
const QString kAllowCustomName = QStringLiteral("allowCustomName");
const QString kAutoIncrementRule = QStringLiteral("autoIncrementRule");
const QString kAutoIncrementValue = QStringLiteral("sceneNameIncrementValue");
const QString kNameSuffixDelimiter = QStringLiteral("shotConflictDelimiter");
const QString kNameSuffixType = QStringLiteral("shotConflictType");
const QString kSmartNameOnDrop = QStringLiteral("smartShotNameOnDrop");
const QString kResetNameOnNewParent = QStringLiteral("resetNameOnNewParent");

int defaultOf(const Setting &setting, const QString &objName)
{
    const QString kind = objName.toLower();
    if (kind == QLatin1String("sequence"))
        return setting.forSequences;
    if (kind == QLatin1String("shot"))
        return setting.forShots;
    return kind == QLatin1String("panel") ? setting.forPanels : 0;
}

QString keyOf(const Setting &setting, const QString &objName)
{
    return QString(setting.key).arg(objName.toUpper());
}

bool preferredBool(const Setting &setting, const QString &objName)
{
    const bool byDefault = defaultOf(setting, objName) != 0;
    return tuPref ? tuPref->getBoolValue(keyOf(setting, objName), byDefault) : byDefault;
}

int preferredInt(const Setting &setting, const QString &objName)
{
    const int byDefault = defaultOf(setting, objName);
    return tuPref ? tuPref->getIntValue(keyOf(setting, objName), byDefault) : byDefault;
}

PKC_NamingRules::NameRule_t preferredRule(const QString &objName)
{
    const auto rule = PKC_NamingRules::NameRule_t(preferredInt(autoIncrementRulePref, objName));
    return preferredBool(incrementByNPref, objName) ? PKC_NamingRules::IncrementByN : rule;
}

} // namespace

PKC_NamingRules::ObjRules::ObjRules(const QString &objName) :
    m_automaticLeadingZeros(preferredBool(automaticLeadingZerosPref, objName)),
    m_numberOfZeros(preferredInt(numberOfZerosPref, objName)),
    m_allowCustomName(preferredBool(allowCustomNamePref, objName)), m_autoIncrementRule(preferredRule(objName)),
    m_autoIncrementValue(preferredInt(autoIncrementValuePref, objName)),
    m_nameSuffixDelimiter(Delimiter_t(preferredInt(nameSuffixDelimiterPref, objName))),
    m_nameSuffixType(SuffixType_t(preferredInt(nameSuffixTypePref, objName))),
    m_smartNameOnDrop(preferredBool(smartNameOnDropPref, objName)),
    m_resetNameOnNewParent(preferredBool(resetNameOnNewParentPref, objName)), m_objName(objName)
{
}

PKC_NamingRules::ObjRules &PKC_NamingRules::ObjRules::operator=(const ObjRules &other)
{
    m_automaticLeadingZeros = other.m_automaticLeadingZeros;
    m_numberOfZeros = other.m_numberOfZeros;
    m_allowCustomName = other.m_allowCustomName;
    m_autoIncrementRule = other.m_autoIncrementRule;
    m_autoIncrementValue = other.m_autoIncrementValue;
    m_nameSuffixDelimiter = other.m_nameSuffixDelimiter;
    m_nameSuffixType = other.m_nameSuffixType;
    m_smartNameOnDrop = other.m_smartNameOnDrop;
    m_resetNameOnNewParent = other.m_resetNameOnNewParent;
    return *this;
}

PKC_NamingRules::ObjRules::~ObjRules() = default;

bool PKC_NamingRules::ObjRules::operator==(const ObjRules &other) const
{
    return m_objName == other.m_objName && m_automaticLeadingZeros == other.m_automaticLeadingZeros
        && m_numberOfZeros == other.m_numberOfZeros && m_allowCustomName == other.m_allowCustomName
        && m_autoIncrementRule == other.m_autoIncrementRule && m_autoIncrementValue == other.m_autoIncrementValue
        && m_nameSuffixDelimiter == other.m_nameSuffixDelimiter && m_nameSuffixType == other.m_nameSuffixType
        && m_smartNameOnDrop == other.m_smartNameOnDrop && m_resetNameOnNewParent == other.m_resetNameOnNewParent;
}

bool PKC_NamingRules::ObjRules::automaticLeadingZeros() const
{
    return m_overloadingPref ? m_automaticLeadingZeros : preferredBool(automaticLeadingZerosPref, m_objName);
}

int PKC_NamingRules::ObjRules::numberOfZeros() const
{
    return m_overloadingPref ? m_numberOfZeros : preferredInt(numberOfZerosPref, m_objName);
}

bool PKC_NamingRules::ObjRules::allowCustomName() const
{
    return m_overloadingPref ? m_allowCustomName : preferredBool(allowCustomNamePref, m_objName);
}

PKC_NamingRules::NameRule_t PKC_NamingRules::ObjRules::autoIncrementRule() const
{
    return m_overloadingPref ? m_autoIncrementRule : preferredRule(m_objName);
}

int PKC_NamingRules::ObjRules::autoIncrementValue() const
{
    return m_overloadingPref ? m_autoIncrementValue : preferredInt(autoIncrementValuePref, m_objName);
}

PKC_NamingRules::Delimiter_t PKC_NamingRules::ObjRules::nameSuffixDelimiter() const
{
    return m_overloadingPref ? m_nameSuffixDelimiter : Delimiter_t(preferredInt(nameSuffixDelimiterPref, m_objName));
}

PKC_NamingRules::SuffixType_t PKC_NamingRules::ObjRules::nameSuffixType() const
{
    return m_overloadingPref ? m_nameSuffixType : SuffixType_t(preferredInt(nameSuffixTypePref, m_objName));
}

bool PKC_NamingRules::ObjRules::smartNameOnDrop() const
{
    return m_overloadingPref ? m_smartNameOnDrop : preferredBool(smartNameOnDropPref, m_objName);
}

bool PKC_NamingRules::ObjRules::resetNameOnNewParent() const
{
    return m_overloadingPref ? m_resetNameOnNewParent : preferredBool(resetNameOnNewParentPref, m_objName);
}

void PKC_NamingRules::ObjRules::readFromXml(const QXmlAttributes &attributes)
{
    RecordAttributes::readBool(attributes, kAutomaticLeadingZeros, m_automaticLeadingZeros);
    m_numberOfZeros = RecordAttributes::intOf(attributes, kNumberOfZeros);
    RecordAttributes::readBool(attributes, kAllowCustomName, m_allowCustomName);
    m_autoIncrementRule = NameRule_t(RecordAttributes::intOf(attributes, kAutoIncrementRule));
    m_autoIncrementValue = RecordAttributes::intOf(attributes, kAutoIncrementValue);
    m_nameSuffixDelimiter = Delimiter_t(RecordAttributes::intOf(attributes, kNameSuffixDelimiter));
    m_nameSuffixType = SuffixType_t(RecordAttributes::intOf(attributes, kNameSuffixType));
    RecordAttributes::readBool(attributes, kSmartNameOnDrop, m_smartNameOnDrop);
    RecordAttributes::readBool(attributes, kResetNameOnNewParent, m_resetNameOnNewParent);
}

void PKC_NamingRules::ObjRules::writeToXml(PIO_WritingContext &context) const
{
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(QStringLiteral("%1_rules").arg(m_objName.toLower()));
    writer.encodeBoolAttr(kAutomaticLeadingZeros, m_automaticLeadingZeros);
    writer.encodeIntAttr(kNumberOfZeros, m_numberOfZeros);
    writer.encodeBoolAttr(kAllowCustomName, m_allowCustomName);
    writer.encodeIntAttr(kAutoIncrementRule, m_autoIncrementRule);
    writer.encodeIntAttr(kAutoIncrementValue, m_autoIncrementValue);
    writer.encodeIntAttr(kNameSuffixDelimiter, m_nameSuffixDelimiter);
    writer.encodeIntAttr(kNameSuffixType, m_nameSuffixType);
    writer.encodeBoolAttr(kSmartNameOnDrop, m_smartNameOnDrop);
    writer.encodeBoolAttr(kResetNameOnNewParent, m_resetNameOnNewParent);
    writer.endElement();
}

void PKC_NamingRules::ObjRules::dumpToString(QString &) const {}
