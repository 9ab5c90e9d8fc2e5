#include "cli/CommandRun.h"
#include "support/Golden.h"
#include "support/Storyboard.h"

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

    void use(const char *timeline) { m_file = m_folder.save(Storyboard(timeline), QStringLiteral("Other")); }

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
        (QStringList{QStringLiteral("frame"), QStringLiteral("gap"), QStringLiteral("panel"), QStringLiteral("shot"),
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
    for (const char *frame : {"abc", "", "1.5", "12x", "1e3", "+", "-", "+-1", " 1", "0x1", "\u0665"}) {
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

TEST_F(AtCommand, FindsNothingOnAnEmptyTimeline)
{
    use("");
    EXPECT_EQ(side(jsonAt(QStringLiteral("1")), "forward"), "null, null");
    EXPECT_TRUE(jsonAt(QStringLiteral("1"))[QLatin1String("gap")].isNull());
}
