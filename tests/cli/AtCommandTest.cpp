#include "cli/CommandRun.h"
#include "support/Golden.h"
#include "support/Storyboard.h"

#include "scene/metadata/PIO_MetadataBool.h"

#include <QJsonArray>

#include <gtest/gtest.h>

#include <limits>

namespace
{

// frame:  1    6 7               33    43            85  96     126
//         | gap |Opening         | xxx |Street       | gap |Door
constexpr const char *everyKind = "-6- Opening(wide=24,near=12) ~4+6~ Street(30,-5,18) -10- Door(-3,20,-7)";

class AtCommand : public ::testing::Test
{
protected:
    CommandRun at(const QString &frame, const QStringList &options = {}) const
    {
        return runPlotka(
            QStringList{QStringLiteral("at"), m_file} + options + QStringList{QStringLiteral("--"), frame});
    }

    QJsonObject jsonAt(const QString &frame) const
    {
        const CommandRun run = at(frame, {QStringLiteral("--json")});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.errors.toStdString(), "");
        return run.json();
    }

    /// The command with the arguments behind the file.
    CommandRun askFor(const QStringList &arguments, const QByteArray &input = QByteArray()) const
    {
        return runPlotka(QStringList{QStringLiteral("at"), m_file} + arguments, input);
    }

    void use(const Storyboard &board) { m_file = m_folder.save(board, QStringLiteral("Other")); }
    void use(const char *timeline) { use(Storyboard(timeline)); }

private:
    ProjectFolder m_folder;
    QString m_file = m_folder.save(Storyboard(everyKind));
};

/// "name shotFrame tvFrame panelFrame", as far as the item has them.
std::string text(const QJsonValue &item)
{
    if (item.isNull())
        return "null";
    QStringList words = {item[QLatin1String("name")].toString()};
    for (const QLatin1String key :
        {QLatin1String("shotFrame"), QLatin1String("tvFrame"), QLatin1String("panelFrame")}) {
        if (item[key].isDouble())
            words += QString::number(item[key].toDouble());
    }
    return words.join(u' ').toStdString();
}

std::string frames(const QJsonValue &item)
{
    if (item.isNull())
        return "null";
    return QStringLiteral("%1-%2")
        .arg(item[QLatin1String("firstFrame")].toInt())
        .arg(item[QLatin1String("lastFrame")].toInt())
        .toStdString();
}

/// What is found with one of the priorities: "shot, panel".
std::string side(const QJsonObject &answer, const char *priority)
{
    const QLatin1String key(priority);
    return text(answer[QLatin1String("shot")][key]) + ", " + text(answer[QLatin1String("panel")][key]);
}

} // namespace

TEST_F(AtCommand, GivesAPanelInAllFrameSpaces)
{
    const QJsonObject answer = jsonAt(QStringLiteral("32"));
    EXPECT_EQ(answer.keys(),
        (QStringList{QStringLiteral("dropTimecode"), QStringLiteral("frame"), QStringLiteral("gap"),
            QStringLiteral("panel"), QStringLiteral("shot"), QStringLiteral("timecode"),
            QStringLiteral("transition")}));
    EXPECT_EQ(answer[QLatin1String("frame")].toInt(), 32);
    EXPECT_EQ(side(answer, "backward"), "Opening 26, near 26 26 2");
    EXPECT_EQ(side(answer, "forward"), side(answer, "backward"));
    EXPECT_TRUE(answer[QLatin1String("transition")].isNull());
    EXPECT_TRUE(answer[QLatin1String("gap")].isNull());
}

TEST_F(AtCommand, GivesBothShotsOnATransition)
{
    const QJsonObject answer = jsonAt(QStringLiteral("35"));
    EXPECT_EQ(side(answer, "backward"), "Opening 29, near 29 29 5");
    EXPECT_EQ(side(answer, "forward"), "Street 3,  3 3 3");
    EXPECT_EQ(text(answer[QLatin1String("transition")]), "Dissolve");
    EXPECT_EQ(frames(answer[QLatin1String("transition")]), "33-42");
}

TEST_F(AtCommand, GivesTheGapBetweenShots)
{
    for (const char *frame : {"86", "90", "95"}) {
        const QJsonObject answer = jsonAt(QLatin1String(frame));
        EXPECT_EQ(side(answer, "backward"), "null, null");
        EXPECT_EQ(side(answer, "forward"), "null, null");
        EXPECT_EQ(frames(answer[QLatin1String("gap")]), "86-95");
        EXPECT_TRUE(answer[QLatin1String("gap")][QLatin1String("shot")].isNull());
    }
    EXPECT_EQ(frames(jsonAt(QStringLiteral("1"))[QLatin1String("gap")]), "1-6");
}

TEST_F(AtCommand, GivesTheGapWithinAShotAlsoAtItsEnd)
{
    const QJsonObject inner = jsonAt(QStringLiteral("65"));
    EXPECT_EQ(side(inner, "forward"), "Street 33, null");
    EXPECT_EQ(frames(inner[QLatin1String("gap")]), "63-67");
    EXPECT_EQ(inner[QLatin1String("gap")][QLatin1String("shot")],
        inner[QLatin1String("shot")][QLatin1String("forward")][QLatin1String("id")]);
    EXPECT_EQ(frames(jsonAt(QStringLiteral("96"))[QLatin1String("gap")]), "96-98");
    EXPECT_EQ(frames(jsonAt(QStringLiteral("125"))[QLatin1String("gap")]), "119-125");
}

TEST_F(AtCommand, FindsNothingOutsideTheTimeline)
{
    for (const char *frame : {"0", "126", "4294967295", "4294967303", "18446744073709551615", "99999999999999999999999",
             "+126", "-0", "-5", "-99999999999999999999999"}) {
        const QJsonObject answer = jsonAt(QLatin1String(frame));
        EXPECT_EQ(side(answer, "backward"), "null, null") << frame;
        EXPECT_EQ(side(answer, "forward"), "null, null") << frame;
        EXPECT_TRUE(answer[QLatin1String("transition")].isNull()) << frame;
        EXPECT_TRUE(answer[QLatin1String("gap")].isNull()) << frame;
    }
}

TEST_F(AtCommand, RefusesWhatIsNoFrame)
{
    for (const char *frame : {"abc", "", "1.5", "12x", "1e3", "+", "-", "+-1", " 1", "0x1", "\u0665", "1-", "-", "1--",
             "1-2-3", "1:", ":1", "1;2:3", "1:2:3:4:5", "1-x"}) {
        const CommandRun run = at(QString::fromUtf8(frame));
        EXPECT_EQ(run.exitCode, 2) << frame;
        EXPECT_EQ(run.output, QByteArray());
        EXPECT_TRUE(run.errors.contains("is no frame")) << run.errors.toStdString();
    }
}

TEST_F(AtCommand, TakesSignedAndLongNumbers)
{
    EXPECT_EQ(side(jsonAt(QStringLiteral("+32")), "forward"), "Opening 26, near 26 26 2");
    EXPECT_EQ(side(jsonAt(QStringLiteral("0000000000000000000000032")), "forward"), "Opening 26, near 26 26 2");
    EXPECT_EQ(jsonAt(QStringLiteral("-5"))[QLatin1String("frame")].toInt(), -5);
    EXPECT_EQ(jsonAt(QStringLiteral("99999999999999999999"))[QLatin1String("frame")].toInteger(),
        std::numeric_limits<qint64>::max());
    for (const char *lowest : {"-9223372036854775808", "-9223372036854775809"}) {
        EXPECT_EQ(
            jsonAt(QLatin1String(lowest))[QLatin1String("frame")].toInteger(), std::numeric_limits<qint64>::min());
    }
    EXPECT_TRUE(at(QStringLiteral("-5")).output.contains("project frame -5 is outside"));
}

TEST_F(AtCommand, PrintsForPeople)
{
    expectGolden("cli/at_panel.txt", at(QStringLiteral("20")).output.toStdString());
    expectGolden("cli/at_gap_in_shot.txt", at(QStringLiteral("65")).output.toStdString());
    expectGolden("cli/at_transition.txt", at(QStringLiteral("35")).output.toStdString());
    expectGolden("cli/at_gap.txt", at(QStringLiteral("90")).output.toStdString());
    expectGolden("cli/at_outside.txt", at(QStringLiteral("0")).output.toStdString());
}

TEST_F(AtCommand, ShortensNamesAlone)
{
    Storyboard board("A(24)");
    board.nameShot(0, std::string(300, 'n'));
    use(board);
    EXPECT_TRUE(
        askFor({QStringLiteral("5")})
            .output.contains(("shot               " + std::string(60, 'n') + "… (id 3), frames 1-24\n").c_str()));
}

TEST_F(AtCommand, PrintsJson)
{
    expectGolden("cli/at_transition.json", at(QStringLiteral("35"), {QStringLiteral("--json")}).output.toStdString());
}

TEST_F(AtCommand, FollowsTimeWarps)
{
    use("A[5..28](40[1..20],10)");
    EXPECT_EQ(side(jsonAt(QStringLiteral("10")), "forward"), "A 10,  10 14 5.38462");
}

TEST_F(AtCommand, ShowsAShotWhoseSceneHasGone)
{
    use("A(10) B@10(gone) C(10)");
    const QJsonObject answer = jsonAt(QStringLiteral("15"));
    EXPECT_EQ(frames(answer[QLatin1String("shot")][QLatin1String("backward")]), "11-20");
    EXPECT_TRUE(answer[QLatin1String("shot")][QLatin1String("backward")][QLatin1String("name")].isNull());
    EXPECT_EQ(answer[QLatin1String("shot")][QLatin1String("forward")][QLatin1String("shotFrame")].toDouble(), 5);
    EXPECT_TRUE(answer[QLatin1String("panel")][QLatin1String("forward")].isNull());
}

TEST_F(AtCommand, ShowsAPanelWhoseSceneHasGoneAsTheTimelineDoes)
{
    use("A(10,5gone,10)");
    const QJsonObject answer = jsonAt(QStringLiteral("12"));
    for (const char *side : {"backward", "forward"}) {
        const QJsonValue panel = answer[QLatin1String("panel")][QLatin1String(side)];
        EXPECT_EQ(frames(panel), "11-15");
        EXPECT_TRUE(panel[QLatin1String("name")].isNull());
        EXPECT_TRUE(panel[QLatin1String("id")].isString());
        EXPECT_EQ(panel[QLatin1String("tvFrame")].toInt(), 12);
        EXPECT_TRUE(panel[QLatin1String("panelFrame")].isNull());
    }
    EXPECT_TRUE(answer[QLatin1String("gap")].isNull());
    const QByteArray text = at(QStringLiteral("12")).output;
    EXPECT_TRUE(text.contains("frames 11-15")) << text.toStdString();
}

TEST_F(AtCommand, WritesFramesAsWholeNumbers)
{
    use("A(150000)");
    const QByteArray json = at(QStringLiteral("100000"), {QStringLiteral("--json")}).output;
    for (const char *key : {"frame", "shotFrame", "tvFrame", "panelFrame"})
        EXPECT_TRUE(json.contains(QByteArray("\"") + key + "\": 100000")) << key << json.toStdString();
    const QByteArray text = at(QStringLiteral("100000")).output;
    EXPECT_EQ(text.count("100000\n"), 3) << text.toStdString();
}

TEST_F(AtCommand, ShowsWhatIsDisabledAsSuch)
{
    const Storyboard board("A(10,10)");
    auto *const record = new PIO_MetadataBool(QStringLiteral("enabled"));
    record->setValue(false);
    board.panelScene(0, 1)->metadatas()->add(record);
    use(board);
    const QJsonObject answer = jsonAt(QStringLiteral("12"));
    EXPECT_EQ(answer[QLatin1String("panel")][QLatin1String("forward")][QLatin1String("enabled")], QJsonValue(false));
    EXPECT_EQ(answer[QLatin1String("shot")][QLatin1String("forward")][QLatin1String("enabled")], QJsonValue(true));
    EXPECT_EQ(jsonAt(QStringLiteral("2"))[QLatin1String("panel")][QLatin1String("forward")][QLatin1String("enabled")],
        QJsonValue(true));
    EXPECT_TRUE(at(QStringLiteral("12")).output.contains("frames 11-20, off\n"));
    EXPECT_EQ(at(QStringLiteral("2")).output.count("off"), 0);
}

TEST_F(AtCommand, TakesManyFramesAtOnce)
{
    const CommandRun run =
        askFor({QStringLiteral("1"), QStringLiteral("25"), QStringLiteral("33-35"), QStringLiteral("--json")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.json()[QLatin1String("schema")].toInt(), 1);
    const QJsonArray answers = run.json()[QLatin1String("answers")].toArray();
    QList<int> found;
    for (const QJsonValue &answer : answers) {
        const int frame = answer[QLatin1String("frame")].toInt();
        found += frame;
        EXPECT_EQ(answer.toObject(), jsonAt(QString::number(frame)));
    }
    EXPECT_EQ(found, (QList<int>{1, 25, 33, 34, 35}));
    EXPECT_EQ(askFor({QStringLiteral("20"), QStringLiteral("90")}).output,
        at(QStringLiteral("20")).output + "\n" + at(QStringLiteral("90")).output);
}

TEST_F(AtCommand, ReadsFramesFromStandardInput)
{
    const CommandRun run = askFor(
        {QStringLiteral("1"), QStringLiteral("--stdin"), QStringLiteral("--json")}, "25\n33-34  00:00:01:00\n\n");
    EXPECT_EQ(run.exitCode, 0);
    QList<int> found;
    const QJsonArray answers = run.json()[QLatin1String("answers")].toArray();
    for (const QJsonValue &answer : answers)
        found += answer[QLatin1String("frame")].toInt();
    EXPECT_EQ(found, (QList<int>{1, 25, 33, 34, 25}));

    const CommandRun none = askFor({QStringLiteral("--stdin"), QStringLiteral("--json")});
    EXPECT_EQ(none.exitCode, 0);
    EXPECT_TRUE(none.json()[QLatin1String("answers")].toArray().isEmpty());
    EXPECT_EQ(askFor({QStringLiteral("--stdin")}).output, QByteArray());
    EXPECT_EQ(askFor({QStringLiteral("--stdin")}, "1 2 x").exitCode, 2);
    EXPECT_EQ(askFor({QStringLiteral("--stdin")}, "1 2 x").output, QByteArray());
}

TEST_F(AtCommand, RefusesRangesThatHaveNoFramesOrTooMany)
{
    EXPECT_TRUE(askFor({QStringLiteral("5-3")}).errors.contains("ends before it begins"));
    EXPECT_EQ(askFor({QStringLiteral("5-3")}).exitCode, 2);
    EXPECT_EQ(askFor({QStringLiteral("1-1000001")}).exitCode, 2);
    EXPECT_EQ(askFor({QStringLiteral("--"), QStringLiteral("-9223372036854775808-9223372036854775807")}).exitCode, 2);
    EXPECT_EQ(askFor({QStringLiteral("9223372036854775807-9223372036854775807")}).exitCode, 0);
    EXPECT_EQ(askFor({QStringLiteral("--"), QStringLiteral("-2--1")}).output.count("is outside"), 2);
}

TEST_F(AtCommand, TakesTimecodeThatCountsFromTheStartOfTheProject)
{
    const Storyboard board("A(24) B(24)");
    board.sceneProject().projectCommon()->setStartTimecode(86400);
    use(board);
    const QJsonObject answer = jsonAt(QStringLiteral("01:00:01:01"));
    EXPECT_EQ(answer[QLatin1String("frame")].toInt(), 26);
    EXPECT_EQ(answer[QLatin1String("timecode")].toString(), QStringLiteral("01:00:01:01"));
    EXPECT_TRUE(answer[QLatin1String("dropTimecode")].isNull());
    EXPECT_EQ(jsonAt(QStringLiteral("00:59:59:23"))[QLatin1String("frame")].toInt(), 0);
    EXPECT_TRUE(jsonAt(QStringLiteral("00:59:59:23"))[QLatin1String("timecode")].isNull());
    EXPECT_TRUE(at(QStringLiteral("01:00:01;01")).errors.contains("drop-frame timecode, which 24 frames a second"));
    const CommandRun wrong = at(QStringLiteral("01:00:01:24"));
    EXPECT_EQ(wrong.exitCode, 2);
    EXPECT_TRUE(wrong.errors.contains("there is no timecode \"01:00:01:24\" at 24 frames"))
        << wrong.errors.toStdString();
}

TEST_F(AtCommand, CountsWithDropFramesWhereThereAreSome)
{
    const Storyboard board("A(1800) B(1800)");
    board.sceneProject().projectCommon()->setFrameRate(UT_FrameRate(30000, 1001));
    use(board);
    for (const char *timecode : {"00:01:00;02", "00:01:00:00", "1801"}) {
        const QJsonObject answer = jsonAt(QLatin1String(timecode));
        EXPECT_EQ(answer[QLatin1String("frame")].toInt(), 1801) << timecode;
        EXPECT_EQ(answer[QLatin1String("dropTimecode")].toString(), QStringLiteral("00:01:00;02"));
        EXPECT_EQ(answer[QLatin1String("timecode")].toString(), QStringLiteral("00:01:00:00"));
        EXPECT_EQ(side(answer, "forward"), "B 1,  1 1 1");
    }
    EXPECT_EQ(jsonAt(QStringLiteral("00:00:59;29"))[QLatin1String("frame")].toInt(), 1800);
    EXPECT_EQ(at(QStringLiteral("00:01:00;00")).exitCode, 2);
    EXPECT_TRUE(at(QStringLiteral("1801")).output.contains("timecode 00:01:00;02, without drop frames 00:01:00:00\n"));
    const QJsonArray range = askFor({QStringLiteral("00:00:59;29-00:01:00;02"), QStringLiteral("--json")})
                                 .json()[QLatin1String("answers")]
                                 .toArray();
    EXPECT_EQ(range.size(), 2);
}

TEST_F(AtCommand, SaysWhatIsWrongWithANegativeFrame)
{
    const CommandRun run = askFor({QStringLiteral("-5")});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.errors.contains("\"-5\" is taken for an option because it begins with -"))
        << run.errors.toStdString();
    EXPECT_TRUE(askFor({QStringLiteral("--jsn")}).errors.contains("jsn"));
}

TEST_F(AtCommand, FindsNothingOnAnEmptyTimeline)
{
    use("");
    EXPECT_EQ(side(jsonAt(QStringLiteral("1")), "forward"), "null, null");
    EXPECT_TRUE(jsonAt(QStringLiteral("1"))[QLatin1String("gap")].isNull());
}
