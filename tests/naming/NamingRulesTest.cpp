#include "naming/PKC_NamingRules.h"

#include "scene/preferences/PR_Preference.h"
#include "support/Golden.h"
#include "support/Payloads.h"
#include "support/Records.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <type_traits>
#include <utility>

namespace
{

using ObjRules = PKC_NamingRules::ObjRules;

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/// What the getters answer, in the order in which a file has it.
std::string answersOf(const ObjRules &rules)
{
    const auto bit = [](bool on) { return on ? text("yes") : text("no"); };
    return QStringList(
        {bit(rules.automaticLeadingZeros()), QString::number(rules.numberOfZeros()), bit(rules.allowCustomName()),
            QString::number(rules.autoIncrementRule()), QString::number(rules.autoIncrementValue()),
            QString::number(rules.nameSuffixDelimiter()), QString::number(rules.nameSuffixType()),
            bit(rules.smartNameOnDrop()), bit(rules.resetNameOnNewParent())})
        .join(QLatin1Char(' '))
        .toStdString();
}

/// What is stored, whether it counts or not.
std::string storedOf(PKC_NamingRules rules)
{
    rules.setOverloadingPref(true);
    return std::string(rules.autoShowTotal() ? "total " : "") + (rules.enabledAct() ? "act " : "") + "| "
        + answersOf(rules.sequenceRules()) + " | " + answersOf(rules.shotRules()) + " | "
        + answersOf(rules.panelRules());
}

const std::string defaults = "| no 2 yes 0 10 1 0 no no | no 2 yes 0 10 1 0 no no | no 0 no 0 10 1 2 no yes";

void setAll(ObjRules &rules, bool on, int number)
{
    rules.setAutomaticLeadingZeros(on);
    rules.setNumberOfZeros(number);
    rules.setAllowCustomName(on);
    rules.setAutoIncrementRule(PKC_NamingRules::NameRule_t(number + 1));
    rules.setAutoIncrementValue(number + 2);
    rules.setNameSuffixDelimiter(PKC_NamingRules::Delimiter_t(number + 3));
    rules.setNameSuffixType(PKC_NamingRules::SuffixType_t(number + 4));
    rules.setSmartNameOnDrop(on);
    rules.setResetNameOnNewParent(on);
}

/// A record in which no two numbers are equal.
PKC_NamingRules fullRules()
{
    PKC_NamingRules rules(text("inside"), text("elsewhere"), text("2.0"));
    rules.setOverloadingPref(true);
    rules.setAutoShowTotal(true);
    rules.setEnabledAct(true);
    setAll(rules.sequenceRules(), true, 10);
    setAll(rules.shotRules(), false, 20);
    setAll(rules.panelRules(), true, -30);
    return rules;
}

const std::string fullStored = "total act | yes 10 yes 11 12 13 14 yes yes | no 20 no 21 22 23 24 no no"
                               " | yes -30 yes -29 -28 -27 -26 yes yes";

void expectFullRules(const PKC_NamingRules &rules)
{
    EXPECT_EQ(textsOf(rules), "namingRules 'inside' 'elsewhere' '2.0'");
    EXPECT_TRUE(rules.overloadingPref());
    EXPECT_EQ(storedOf(rules), fullStored);
}

/// A record of the older version in which each switch is on and no two numbers are equal.
PKC_NamingRules fullOlderRules()
{
    PKC_NamingRules rules(text("inside"), text("elsewhere"), text("1.0"));
    rules.setOverloadingPref(true);
    rules.setAutoShowTotal(true);
    rules.setEnabledAct(true);
    setAll(rules.sequenceRules(), true, 10);
    setAll(rules.shotRules(), true, 20);
    setAll(rules.panelRules(), true, 30);
    return rules;
}

/// Rules whose own switch can be reached.
class OpenRules : public ObjRules
{
public:
    using ObjRules::dumpToString;
    using ObjRules::ObjRules;
    using ObjRules::overloadingPref;
    using ObjRules::setOverloadingPref;
};

class NamingRules : public testing::Test
{
protected:
    void SetUp() override { tuPref->clear(); }
    void TearDown() override { tuPref->clear(); }
};

/// Takes the preferences away for a time.
class NoPreferences
{
public:
    NoPreferences() : m_saved(std::exchange(tuPref, nullptr)) {}
    NoPreferences(const NoPreferences &) = delete;
    NoPreferences &operator=(const NoPreferences &) = delete;
    ~NoPreferences() { tuPref = m_saved; }

private:
    PR_Preference *m_saved;
};

/// The record of @p version that a file holds with @p payload in it.
PKC_NamingRules readFrom(const char *payload, const char *version = "2.0")
{
    PKC_NamingRules rules(text("inside"), text("elsewhere"), text(version));
    readPayload(rules, text(payload));
    return rules;
}

} // namespace

TEST_F(NamingRules, StartWithTheDefaultsAndDoNotOverload)
{
    const PKC_NamingRules rules;
    EXPECT_EQ(textsOf(rules), "namingRules '' 'plotka-tests' '2.0'");
    EXPECT_EQ(PKC_NamingRules::kPIO_PKMETA_Keyword, text("namingRules"));
    EXPECT_EQ(PKC_NamingRules::kPIO_PKMETA_Version, text("2.0"));
    EXPECT_EQ(PKC_NamingRules(text("n")).metaName(), text("n"));
    EXPECT_TRUE(rules.isValid());
    EXPECT_FALSE(rules.overloadingPref());
    EXPECT_FALSE(rules.autoShowTotal());
    EXPECT_FALSE(rules.enabledAct());
    EXPECT_EQ(storedOf(rules), defaults);
    EXPECT_EQ(answersOf(rules.sequenceRules()), "no 2 yes 0 10 1 0 no no");
    EXPECT_EQ(answersOf(rules.shotRules()), "no 2 yes 0 10 1 0 no no");
    EXPECT_EQ(answersOf(rules.panelRules()), "no 0 no 0 10 1 2 no yes");
    EXPECT_TRUE(std::has_virtual_destructor_v<ObjRules>);
}

TEST_F(NamingRules, KnowOnlyThreeKindsOfObjects)
{
    EXPECT_EQ(answersOf(ObjRules(text("clip"))), "no 0 no 0 0 0 0 no no");
    EXPECT_EQ(answersOf(ObjRules(QString())), "no 0 no 0 0 0 0 no no");
    EXPECT_EQ(answersOf(ObjRules(text("Panel"))), answersOf(ObjRules(text("panel"))));
    tuPref->setIntValue(text("ST_CLIP_NAME_NUMBER_OF_ZEROS"), 7);
    EXPECT_EQ(ObjRules(text("clip")).numberOfZeros(), 7);
}

TEST_F(NamingRules, ReadEachPreferenceUnderItsKey)
{
    const std::pair<const char *, std::string> switches[] = {
        {"ST_%1_NAME_AUTOMATIC_LEADING_ZEROS", "yes 2 yes 0 10 1 0 no no"},
        {"ST_%1_NAME_AUTO_INCREMENT_BY_N", "no 2 yes 5 10 1 0 no no"},
        {"ST_SMART_%1_NAME_ON_DROP", "no 2 yes 0 10 1 0 yes no"},
        {"ST_%1_NAME_RESET_ON_NEW_PARENT", "no 2 yes 0 10 1 0 no yes"},
    };
    const std::pair<const char *, std::string> numbers[] = {
        {"ST_%1_NAME_NUMBER_OF_ZEROS", "no 9 yes 0 10 1 0 no no"},
        {"ST_%1_NAME_AUTO_INCREMENT_RULE", "no 2 yes 9 10 1 0 no no"},
        {"ST_%1_NAME_INCREMENT_VALUE", "no 2 yes 0 9 1 0 no no"},
        {"ST_%1_NAME_CONFLICT_DELIMITER", "no 2 yes 0 10 9 0 no no"},
        {"ST_%1_NAME_CONFLICT_ADD_TYPE", "no 2 yes 0 10 1 9 no no"},
    };
    const PKC_NamingRules before;
    const auto expect = [&before](const char *key, const std::string &answers) {
        for (const PKC_NamingRules &rules : {before, PKC_NamingRules()}) {
            EXPECT_EQ(answersOf(rules.shotRules()), answers) << key;
            EXPECT_EQ(answersOf(rules.sequenceRules()), "no 2 yes 0 10 1 0 no no") << key;
            EXPECT_EQ(answersOf(rules.panelRules()), "no 0 no 0 10 1 2 no yes") << key;
        }
        EXPECT_EQ(storedOf(PKC_NamingRules()), "| no 2 yes 0 10 1 0 no no | " + answers + " | no 0 no 0 10 1 2 no yes")
            << key;
        EXPECT_EQ(storedOf(before), defaults) << key;
        tuPref->clear();
    };
    for (const auto &[key, answers] : switches) {
        tuPref->setBoolValue(text(key).arg(text("SHOT")), true);
        expect(key, answers);
    }
    for (const auto &[key, answers] : numbers) {
        tuPref->setIntValue(text(key).arg(text("SHOT")), 9);
        expect(key, answers);
    }
    tuPref->setBoolValue(text("ST_SHOT_NAME_ALLOW_CUSTOM"), false);
    expect("ST_SHOT_NAME_ALLOW_CUSTOM", "no 2 no 0 10 1 0 no no");

    tuPref->setIntValue(text("ST_SEQUENCE_NAME_NUMBER_OF_ZEROS"), 4);
    tuPref->setIntValue(text("ST_PANEL_NAME_NUMBER_OF_ZEROS"), 5);
    EXPECT_EQ(before.sequenceRules().numberOfZeros(), 4);
    EXPECT_EQ(before.panelRules().numberOfZeros(), 5);
}

TEST_F(NamingRules, FollowAPreferenceAtOnceUnlessTheyOverload)
{
    PKC_NamingRules rules;
    tuPref->setIntValue(text("ST_PANEL_NAME_NUMBER_OF_ZEROS"), 3);
    tuPref->setBoolValue(text("ST_PANEL_NAME_AUTO_SHOW_TOTAL"), true);
    tuPref->setBoolValue(text("ST_ENABLE_ACT"), true);
    EXPECT_EQ(rules.panelRules().numberOfZeros(), 3);
    EXPECT_TRUE(rules.autoShowTotal());
    EXPECT_TRUE(rules.enabledAct());
    EXPECT_EQ(storedOf(rules), defaults); // as the preferences were when it was made

    rules.setOverloadingPref(true);
    EXPECT_EQ(rules.panelRules().numberOfZeros(), 0);
    EXPECT_FALSE(rules.autoShowTotal());
    EXPECT_FALSE(rules.enabledAct());
    rules.setOverloadingPref(false);
    EXPECT_EQ(rules.panelRules().numberOfZeros(), 3);

    EXPECT_EQ(storedOf(PKC_NamingRules()),
        "total act | no 2 yes 0 10 1 0 no no | no 2 yes 0 10 1 0 no no | no 3 no 0 10 1 2 no yes");
}

TEST_F(NamingRules, IncrementByNWhateverTheOtherPreferenceSays)
{
    tuPref->setBoolValue(text("ST_PANEL_NAME_AUTO_INCREMENT_BY_N"), true);
    tuPref->setIntValue(text("ST_PANEL_NAME_AUTO_INCREMENT_RULE"), 3);
    PKC_NamingRules rules;
    EXPECT_EQ(rules.panelRules().autoIncrementRule(), PKC_NamingRules::IncrementByN);
    rules.setOverloadingPref(true);
    EXPECT_EQ(rules.panelRules().autoIncrementRule(), PKC_NamingRules::IncrementByN);
    rules.panelRules().setAutoIncrementRule(PKC_NamingRules::Alpha);
    EXPECT_EQ(rules.panelRules().autoIncrementRule(), PKC_NamingRules::Alpha);
}

TEST_F(NamingRules, AnswerTheDefaultsWithoutPreferences)
{
    tuPref->setBoolValue(text("ST_ENABLE_ACT"), true);
    tuPref->setIntValue(text("ST_SHOT_NAME_NUMBER_OF_ZEROS"), 9);
    const NoPreferences none;
    const PKC_NamingRules rules;
    EXPECT_EQ(storedOf(rules), defaults);
    EXPECT_FALSE(rules.enabledAct());
    EXPECT_FALSE(rules.autoShowTotal());
    EXPECT_EQ(rules.shotRules().numberOfZeros(), 2);
    EXPECT_EQ(rules.panelRules().nameSuffixType(), PKC_NamingRules::UpperCaseSuffix);
}

TEST_F(NamingRules, KeepWhatIsSetUntilTheyOverload)
{
    PKC_NamingRules rules = fullRules();
    rules.setOverloadingPref(false);
    EXPECT_FALSE(rules.autoShowTotal());
    EXPECT_FALSE(rules.enabledAct());
    EXPECT_EQ(answersOf(rules.sequenceRules()), "no 2 yes 0 10 1 0 no no");
    EXPECT_EQ(answersOf(std::as_const(rules).shotRules()), "no 2 yes 0 10 1 0 no no");
    EXPECT_EQ(answersOf(std::as_const(rules).panelRules()), "no 0 no 0 10 1 2 no yes");
    rules.setOverloadingPref(true);
    expectFullRules(rules);
}

TEST_F(NamingRules, ComparePerRule)
{
    const std::function<void(ObjRules &)> changes[] = {
        [](ObjRules &rules) { rules.setAutomaticLeadingZeros(true); },
        [](ObjRules &rules) { rules.setNumberOfZeros(3); },
        [](ObjRules &rules) { rules.setAllowCustomName(false); },
        [](ObjRules &rules) { rules.setAutoIncrementRule(PKC_NamingRules::Alpha); },
        [](ObjRules &rules) { rules.setAutoIncrementValue(3); },
        [](ObjRules &rules) { rules.setNameSuffixDelimiter(PKC_NamingRules::Dot); },
        [](ObjRules &rules) { rules.setNameSuffixType(PKC_NamingRules::NumberSuffix); },
        [](ObjRules &rules) { rules.setSmartNameOnDrop(true); },
        [](ObjRules &rules) { rules.setResetNameOnNewParent(true); },
    };
    for (const auto &change : changes) {
        ObjRules rules(text("shot"));
        EXPECT_TRUE(rules == ObjRules(text("shot")));
        change(rules);
        EXPECT_FALSE(rules == ObjRules(text("shot")));
        EXPECT_TRUE(rules != ObjRules(text("shot")));
    }
    EXPECT_TRUE(ObjRules(text("shot")) != ObjRules(text("sequence")));
}

TEST_F(NamingRules, CompareWithoutTheSwitchOfTheirParts)
{
    OpenRules left(text("shot"));
    OpenRules right(text("shot"));
    left.setOverloadingPref(true);
    EXPECT_TRUE(left.overloadingPref());
    EXPECT_FALSE(right.overloadingPref());
    EXPECT_TRUE(left == right);
    tuPref->setIntValue(text("ST_SHOT_NAME_NUMBER_OF_ZEROS"), 9);
    EXPECT_NE(left.numberOfZeros(), right.numberOfZeros());
    EXPECT_TRUE(left == right); // what is stored is the same
    QString dump;
    left.dumpToString(dump);
    EXPECT_TRUE(dump.isEmpty());
}

TEST_F(NamingRules, CompareWithTheSwitchOfTheRecord)
{
    const PKC_NamingRules plain;
    EXPECT_TRUE(plain == PKC_NamingRules(text("n"), text("c"), text("1.0")));
    const std::function<void(PKC_NamingRules &)> changes[] = {
        [](PKC_NamingRules &rules) { rules.setOverloadingPref(true); },
        [](PKC_NamingRules &rules) { rules.setAutoShowTotal(true); },
        [](PKC_NamingRules &rules) { rules.setEnabledAct(true); },
        [](PKC_NamingRules &rules) { rules.sequenceRules().setNumberOfZeros(3); },
        [](PKC_NamingRules &rules) { rules.shotRules().setNumberOfZeros(3); },
        [](PKC_NamingRules &rules) { rules.panelRules().setNumberOfZeros(3); },
    };
    for (const auto &change : changes) {
        PKC_NamingRules rules;
        change(rules);
        EXPECT_TRUE(rules != plain);
        EXPECT_FALSE(rules == plain);
    }
}

TEST_F(NamingRules, PrintDelimitersAndSuffixes)
{
    EXPECT_EQ(PKC_NamingRules::delimiterStr(PKC_NamingRules::NoDelimiter), QString());
    EXPECT_EQ(PKC_NamingRules::delimiterStr(PKC_NamingRules::Underscore), text("_"));
    EXPECT_EQ(PKC_NamingRules::delimiterStr(PKC_NamingRules::Dot), text("."));
    EXPECT_EQ(PKC_NamingRules::suffixTypeStr(PKC_NamingRules::NoSuffix), QString());
    EXPECT_EQ(PKC_NamingRules::suffixTypeStr(PKC_NamingRules::NumberSuffix), text("1"));
    EXPECT_EQ(PKC_NamingRules::suffixTypeStr(PKC_NamingRules::UpperCaseSuffix), text("A"));
    EXPECT_EQ(PKC_NamingRules::suffixTypeStr(PKC_NamingRules::LowerCaseSuffix), text("a"));
    for (const int other : {-1, 4, 99}) {
        EXPECT_TRUE(PKC_NamingRules::delimiterStr(PKC_NamingRules::Delimiter_t(other)).isEmpty());
        EXPECT_TRUE(PKC_NamingRules::suffixTypeStr(PKC_NamingRules::SuffixType_t(other)).isEmpty());
    }
    EXPECT_TRUE(PKC_NamingRules::delimiterStr(PKC_NamingRules::Delimiter_t(3)).isEmpty());
}

TEST_F(NamingRules, CopyEveryField)
{
    PKC_NamingRules rules = fullRules();
    const PKC_NamingRules copied(rules);
    PKC_NamingRules assigned;
    assigned = rules;
    const PKC_NamingRules &self = assigned;
    assigned = self;
    const auto clone = cloneOf(rules);
    ASSERT_TRUE(clone);
    rules.panelRules().setNumberOfZeros(1);
    rules.setEnabledAct(false);
    expectFullRules(copied);
    expectFullRules(assigned);
    expectFullRules(*clone);
}

TEST_F(NamingRules, CopyRulesFromOneKindOfObjectToAnother)
{
    PKC_NamingRules quiet;
    PKC_NamingRules rules = fullRules();
    quiet.panelRules() = rules.sequenceRules();
    EXPECT_EQ(answersOf(quiet.panelRules()), "no 0 no 0 10 1 2 no yes"); // does not count, as before
    EXPECT_EQ(storedOf(quiet), "| no 2 yes 0 10 1 0 no no | no 2 yes 0 10 1 0 no no | yes 10 yes 11 12 13 14 yes yes");
    EXPECT_EQ(storedOf(*as<PKC_NamingRules>(readBack(quiet))), storedOf(quiet));

    rules.sequenceRules() = PKC_NamingRules().panelRules();
    EXPECT_EQ(answersOf(rules.sequenceRules()), "no 0 no 0 10 1 2 no yes"); // counts, as before
    EXPECT_TRUE(rules.sequenceRules() != PKC_NamingRules().panelRules());
}

TEST_F(NamingRules, CountInAllPartsAsTheRecordTheyAreAssigned)
{
    tuPref->setIntValue(text("ST_SEQUENCE_NAME_NUMBER_OF_ZEROS"), 3);
    tuPref->setIntValue(text("ST_SHOT_NAME_NUMBER_OF_ZEROS"), 4);
    tuPref->setIntValue(text("ST_PANEL_NAME_NUMBER_OF_ZEROS"), 5);
    const auto expectZeros = [](const PKC_NamingRules &rules, int sequence, int shot, int panel) {
        EXPECT_EQ(rules.sequenceRules().numberOfZeros(), sequence);
        EXPECT_EQ(rules.shotRules().numberOfZeros(), shot);
        EXPECT_EQ(rules.panelRules().numberOfZeros(), panel);
    };
    PKC_NamingRules rules;
    expectZeros(rules, 3, 4, 5);
    rules = fullRules();
    expectZeros(rules, 10, 20, -30);
    expectZeros(*cloneOf(rules), 10, 20, -30);
    rules = PKC_NamingRules();
    rules.sequenceRules().setNumberOfZeros(9);
    expectZeros(rules, 3, 4, 5);
}

TEST_F(NamingRules, WriteWhatIsStored)
{
    tuPref->setIntValue(text("ST_SHOT_NAME_NUMBER_OF_ZEROS"), 9);
    PKC_NamingRules rules;
    tuPref->clear(); // the getters answer 2 now
    expectGolden("naming_rules.xml", markupOf(rules) + markupOf(fullRules()));
}

TEST_F(NamingRules, ReadBackWhatTheyWrote)
{
    PKC_NamingRules quiet = fullRules();
    quiet.setOverloadingPref(false);
    for (const PKC_NamingRules &rules : {fullRules(), PKC_NamingRules(), quiet}) {
        const auto again = as<PKC_NamingRules>(readBack(rules));
        ASSERT_TRUE(again);
        EXPECT_TRUE(*again == rules);
        EXPECT_EQ(markupOf(*again), markupOf(rules));
    }
}

TEST_F(NamingRules, DumpNothingOfTheirOwn)
{
    QString base;
    fullRules().PIO_Metadata::dumpToString(base);
    EXPECT_EQ(dumpOf(fullRules()), base.toStdString());
}

TEST_F(NamingRules, ReadMissingSwitchesAsTheyWere)
{
    EXPECT_EQ(storedOf(readFrom("<namingRules/>")), defaults);
    for (const char *bad : {"", "1", "True"}) {
        PKC_NamingRules rules = fullRules();
        readPayload(rules,
            QStringLiteral("<namingRules overloadingPref='%1' autoShowTotal='%1' enabledAct='%1'/>").arg(text(bad)));
        expectFullRules(rules);
    }
    const PKC_NamingRules act = readFrom("<namingRules enabledAct='true'/>");
    EXPECT_EQ(storedOf(act), "act " + defaults);
    EXPECT_FALSE(act.overloadingPref());
    const PKC_NamingRules overloading = readFrom("<namingRules overloadingPref='true' autoShowTotal='true'/>");
    EXPECT_TRUE(overloading.overloadingPref());
    EXPECT_EQ(storedOf(overloading), "total " + defaults);
    tuPref->setIntValue(text("ST_SHOT_NAME_NUMBER_OF_ZEROS"), 9);
    EXPECT_EQ(overloading.shotRules().numberOfZeros(), 2);
}

// A step of 0 is read as it is; whoever counts with it has to see to that.
TEST_F(NamingRules, ReadMissingNumbersAsZeroAndMissingSwitchesAsTheyWere)
{
    PKC_NamingRules rules = fullRules();
    readPayload(rules, text("<namingRules><sequence_rules/><shot_rules/><panel_rules/></namingRules>"));
    EXPECT_EQ(
        storedOf(rules), "total act | yes 0 yes 0 0 0 0 yes yes | no 0 no 0 0 0 0 no no | yes 0 yes 0 0 0 0 yes yes");
    for (const char *bad : {"", "x", "1.5", "2147483648"}) {
        const PKC_NamingRules odd = [bad] {
            PKC_NamingRules read = fullRules();
            readPayload(read,
                QStringLiteral("<shot_rules automaticLeadingZeros='%1' numberOfZeros='%1' allowCustomName='%1' "
                               "autoIncrementRule='%1' sceneNameIncrementValue='%1' shotConflictDelimiter='%1' "
                               "shotConflictType='%1' smartShotNameOnDrop='%1' resetNameOnNewParent='%1'/>")
                    .arg(text(bad)));
            return read;
        }();
        EXPECT_EQ(storedOf(odd),
            "total act | yes 10 yes 11 12 13 14 yes yes | no 0 no 0 0 0 0 no no"
            " | yes -30 yes -29 -28 -27 -26 yes yes")
            << bad;
    }
}

TEST_F(NamingRules, ReadEachKindOfObject)
{
    EXPECT_EQ(storedOf(readFrom("<namingRules><panel_rules automaticLeadingZeros='true' numberOfZeros='1' "
                                "allowCustomName='true' autoIncrementRule='2' sceneNameIncrementValue='3' "
                                "shotConflictDelimiter='4' shotConflictType='5' smartShotNameOnDrop='true' "
                                "resetNameOnNewParent='false'/></namingRules>")),
        "| no 2 yes 0 10 1 0 no no | no 2 yes 0 10 1 0 no no | yes 1 yes 2 3 4 5 yes no");
    EXPECT_EQ(storedOf(readFrom("<sequence_rules numberOfZeros='7'/>")),
        "| no 7 yes 0 0 0 0 no no | no 2 yes 0 10 1 0 no no | no 0 no 0 10 1 2 no yes");
}

TEST_F(NamingRules, ReadTheFlatRulesOfOlderFiles)
{
    const PKC_NamingRules rules =
        readFrom("<namingRules overloadingPref='true' automaticLeadingZeros='true' allowCustomName='true' "
                 "autoShowTotal='true' enabledAct='true' smartShotNameOnDrop='true' numberOfZeros='11' "
                 "autoIncrementRule='12' shotAutoIncrementRule='13' sceneNameIncrementValue='14' "
                 "shotConflictDelimiter='15' shotConflictType='16' resetNameOnNewParent='true'/>",
            "1.0");
    EXPECT_TRUE(rules.overloadingPref());
    EXPECT_EQ(answersOf(rules.shotRules()), "yes 11 yes 13 14 15 16 yes no");
    EXPECT_EQ(storedOf(rules),
        "total act | no 2 yes 0 10 1 0 no no | yes 11 yes 13 14 15 16 yes no | no 0 yes 12 10 1 2 no yes");
    EXPECT_EQ(storedOf(readFrom("<namingRules/>", "1.0")),
        "| no 2 yes 0 10 1 0 no no | no 0 yes 0 0 0 0 no no | no 0 no 0 10 1 2 no yes");
}

TEST_F(NamingRules, ReadMissingAndBadSwitchesOfOlderFilesAsTheyWere)
{
    for (const char *attributes : {"", "automaticLeadingZeros='1' allowCustomName='x' smartShotNameOnDrop=''",
             "overloadingPref='1' autoShowTotal='x' enabledAct=''", "overloadingPref='True' autoShowTotal=' true'"}) {
        PKC_NamingRules rules = fullOlderRules();
        readPayload(rules, QStringLiteral("<namingRules %1/>").arg(text(attributes)));
        EXPECT_TRUE(rules.overloadingPref()) << attributes;
        EXPECT_EQ(storedOf(rules),
            "total act | yes 10 yes 11 12 13 14 yes yes | yes 0 yes 0 0 0 0 yes yes | yes 30 yes 0 32 33 34 yes yes")
            << attributes;
    }
}

TEST_F(NamingRules, ReadBadNumbersOfOlderFilesAsZero)
{
    const char *const keys[] = {"numberOfZeros", "autoIncrementRule", "shotAutoIncrementRule",
        "sceneNameIncrementValue", "shotConflictDelimiter", "shotConflictType"};
    const std::string stored[] = {"yes 0 yes 3 4 5 6 yes yes | yes 30 yes 2 32 33 34 yes yes",
        "yes 1 yes 3 4 5 6 yes yes | yes 30 yes 0 32 33 34 yes yes",
        "yes 1 yes 0 4 5 6 yes yes | yes 30 yes 2 32 33 34 yes yes",
        "yes 1 yes 3 0 5 6 yes yes | yes 30 yes 2 32 33 34 yes yes",
        "yes 1 yes 3 4 0 6 yes yes | yes 30 yes 2 32 33 34 yes yes",
        "yes 1 yes 3 4 5 0 yes yes | yes 30 yes 2 32 33 34 yes yes"};
    for (std::size_t bad = 0; bad < std::size(keys); ++bad) {
        for (const char *malformed : {"", "x", "1.5", "0x1", "2147483648"}) {
            QString attributes;
            for (std::size_t i = 0; i < std::size(keys); ++i)
                attributes +=
                    QStringLiteral(" %1='%2'").arg(text(keys[i]), i == bad ? text(malformed) : QString::number(i + 1));
            PKC_NamingRules rules = fullOlderRules();
            readPayload(rules, QStringLiteral("<namingRules%1/>").arg(attributes));
            EXPECT_EQ(storedOf(rules), "total act | yes 10 yes 11 12 13 14 yes yes | " + stored[bad])
                << keys[bad] << " '" << malformed << "'";
        }
    }
}

TEST_F(NamingRules, CountInAllPartsAsTheFileSays)
{
    for (const char *version : {"1.0", "2.0"}) {
        PKC_NamingRules rules(QString(), QString(), text(version));
        for (ObjRules *part : {&rules.sequenceRules(), &rules.shotRules(), &rules.panelRules()})
            part->setSmartNameOnDrop(true); // the preferences say no
        for (const bool on : {true, false, true}) {
            readPayload(
                rules, QStringLiteral("<namingRules overloadingPref='%1'/>").arg(on ? text("true") : text("false")));
            EXPECT_EQ(rules.overloadingPref(), on) << version;
            for (const ObjRules *part : {&rules.sequenceRules(), &rules.shotRules(), &rules.panelRules()})
                EXPECT_EQ(part->smartNameOnDrop(), on) << version;
        }
    }
}

TEST_F(NamingRules, KeepAnOlderVersionThroughASave)
{
    const PKC_NamingRules old = fullOlderRules();
    const auto again = as<PKC_NamingRules>(readBack(old));
    ASSERT_TRUE(again);
    EXPECT_EQ(textsOf(*again), "namingRules 'inside' 'elsewhere' '1.0'");
    EXPECT_EQ(textsOf(*cloneOf(*again)), textsOf(*again));
    EXPECT_TRUE(*again == old);
}

TEST_F(NamingRules, PassOverTheSwitchesOfAnUnknownVersion)
{
    for (const char *version : {"3.0", "", "2", "2.0 "}) {
        const PKC_NamingRules rules = readFrom("<namingRules overloadingPref='true' autoShowTotal='true' "
                                               "enabledAct='true' numberOfZeros='7'><shot_rules numberOfZeros='8'/>"
                                               "</namingRules>",
            version);
        EXPECT_FALSE(rules.overloadingPref()) << version;
        EXPECT_EQ(storedOf(rules), "| no 2 yes 0 10 1 0 no no | no 8 yes 0 0 0 0 no no | no 0 no 0 10 1 2 no yes")
            << version;
    }
}

TEST_F(NamingRules, ReadOnWhateverCloses)
{
    EXPECT_EQ(storedOf(readFrom("<other enabledAct='true'/><namingRules><clip_rules numberOfZeros='9'/><x>"
                                "<shot_rules numberOfZeros='8'/></x></namingRules><panel_rules numberOfZeros='7'/>"
                                "<Panel_rules numberOfZeros='9'/><namingRules enabledAct='true'/>")),
        "act | no 2 yes 0 10 1 0 no no | no 8 yes 0 0 0 0 no no | no 7 no 0 0 0 0 no yes");
}

TEST_F(NamingRules, AreMadeByTheFactoryWithTheirOwnTexts)
{
    const auto rules = loaded<PKC_NamingRules>(text("<namingRules overloadingPref='true'/>"), text("1.0"));
    ASSERT_TRUE(rules);
    EXPECT_EQ(textsOf(*rules), "namingRules 'inside' 'elsewhere' '1.0'");
    EXPECT_TRUE(rules->overloadingPref());
}
