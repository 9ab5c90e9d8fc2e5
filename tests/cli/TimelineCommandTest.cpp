#include "cli/CommandRun.h"
#include "support/Golden.h"
#include "support/Storyboard.h"

#include "scene/metadata/PIO_MetadataBool.h"

#include <QFileInfo>
#include <QJsonArray>

#include <gtest/gtest.h>

namespace
{

/// Every kind of item: gaps between and within shots, transitions, panels with names and without.
constexpr const char *everyKind = "-6- Opening(wide=24,near=12) ~4+6~ Street(30,-5,18) -10- Door(-3,20,-7)";

std::string timelineOf(const Storyboard &board, const QStringList &options = {})
{
    const ProjectFolder folder;
    const CommandRun run = runPlotka(QStringList{QStringLiteral("timeline"), folder.save(board)} + options);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors.toStdString(), "");
    return run.output.toStdString();
}

QJsonObject jsonOf(const Storyboard &board)
{
    const ProjectFolder folder;
    const CommandRun run = runPlotka({QStringLiteral("timeline"), folder.save(board), QStringLiteral("--json")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors.toStdString(), "");
    return run.json();
}

/// "shot A 1-24, panel - 1-24, ..." of the items; "*" for no end.
std::string itemsText(const QJsonObject &timeline)
{
    QStringList texts;
    const QJsonArray items = timeline[QLatin1String("items")].toArray();
    for (const QJsonValue &item : items) {
        const QJsonValue last = item[QLatin1String("lastFrame")];
        const QJsonValue name = item[QLatin1String("name")];
        texts += QStringLiteral("%1 %2 %3-%4")
                     .arg(item[QLatin1String("kind")].toString(),
                         name.isNull() ? QStringLiteral("null") : u'"' + name.toString() + u'"',
                         QString::number(item[QLatin1String("firstFrame")].toInt()),
                         last.isNull() ? QStringLiteral("*") : QString::number(last.toInt()));
    }
    return texts.join(QStringLiteral(", ")).toStdString();
}

} // namespace

TEST(TimelineCommand, PrintsATableWithADrawing)
{
    expectGolden("cli/timeline.txt", timelineOf(Storyboard(everyKind)));
}

TEST(TimelineCommand, PrintsCommaSeparatedValues)
{
    expectGolden("cli/timeline.csv", timelineOf(Storyboard(everyKind), {QStringLiteral("--csv")}));
}

TEST(TimelineCommand, PrintsJson)
{
    expectGolden("cli/timeline.json", timelineOf(Storyboard(everyKind), {QStringLiteral("--json")}));
}

TEST(TimelineCommand, SpellsNumbersAndIdsAsDocumented)
{
    const QJsonObject timeline = jsonOf(Storyboard("A(24) ~2+2~ B(24)"));
    EXPECT_EQ(timeline.keys(),
        (QStringList{QStringLiteral("frames"), QStringLiteral("items"), QStringLiteral("name"), QStringLiteral("rate"),
            QStringLiteral("schema")}));
    EXPECT_EQ(timeline[QLatin1String("schema")].toInt(), 1);
    EXPECT_EQ(timeline[QLatin1String("name")].toString(), QStringLiteral("Board"));
    EXPECT_EQ(timeline[QLatin1String("rate")].toString(), QStringLiteral("24"));
    const QJsonArray items = timeline[QLatin1String("items")].toArray();
    ASSERT_EQ(items.size(), 6);
    EXPECT_TRUE(items[0][QLatin1String("id")].isString());
    EXPECT_GT(items[0][QLatin1String("id")].toString().toLongLong(), 0);
    EXPECT_EQ(items[1][QLatin1String("shot")], items[0][QLatin1String("id")]);
    EXPECT_TRUE(items[5][QLatin1String("id")].isNull());
    EXPECT_TRUE(items[5][QLatin1String("name")].isNull());
    EXPECT_TRUE(items[5][QLatin1String("lastFrame")].isNull());
    EXPECT_TRUE(items[5][QLatin1String("frames")].isNull());
}

TEST(TimelineCommand, ListsShotsBeforeTheirPanelsAndTransitionsBetweenShots)
{
    EXPECT_EQ(itemsText(jsonOf(Storyboard("A(20) ~2+3~ B(p=10)"))),
        R"(shot "A" 1-20, panel "" 1-20, transition "Dissolve" 16-20, shot "B" 16-25, panel "p" 16-25, gap null 26-*)");
}

TEST(TimelineCommand, ListsWhatStandsBehindAGapAtTheEdgeOfAShot)
{
    EXPECT_EQ(itemsText(jsonOf(Storyboard("A(10,-5) B(-5,10) C(10)"))),
        R"(shot "A" 1-15, panel "" 1-10, gap null 11-15, )"
        R"(shot "B" 16-30, gap null 16-20, panel "" 21-30, shot "C" 31-40, panel "" 31-40, gap null 41-*)");
}

TEST(TimelineCommand, ListsShotsWhoseSceneHasGone)
{
    EXPECT_EQ(itemsText(jsonOf(Storyboard("A(10) B@10(gone) ?5 C(10,5gone)"))),
        R"(shot "A" 1-10, panel "" 1-10, shot null 11-20, shot null 21-25, )"
        R"(shot "C" 26-40, panel "" 26-35, panel null 36-40, gap null 41-*)");
}

TEST(TimelineCommand, ShowsAShotWithoutPanelsAsAGapInIt)
{
    EXPECT_EQ(itemsText(jsonOf(Storyboard("A@10() B@10(bare)"))),
        R"(shot "A" 1-10, gap null 1-10, shot "B" 11-20, gap null 11-20, gap null 21-*)");
}

TEST(TimelineCommand, EndsAGapWithItsShotAndShowsPanelsThatReachBeyond)
{
    EXPECT_EQ(itemsText(jsonOf(Storyboard("A@12(10,-5,10) B(6)"))),
        R"(shot "A" 1-12, panel "" 1-10, gap null 11-12, panel "" 16-25, shot "B" 13-18, panel "" 13-18, gap null 19-*)");
}

TEST(TimelineCommand, HasNothingToListOnAnEmptyTimeline)
{
    const QJsonObject timeline = jsonOf(Storyboard());
    EXPECT_EQ(timeline[QLatin1String("frames")].toInt(-1), 0);
    EXPECT_TRUE(timeline[QLatin1String("items")].toArray().isEmpty());
    EXPECT_EQ(timelineOf(Storyboard()), "Board: 0 frames at 24 per second; 0 shots, 0 panels, 0 transitions, 0 gaps\n");
    EXPECT_EQ(timelineOf(Storyboard(), {QStringLiteral("--csv")}),
        "kind,id,name,firstFrame,lastFrame,frames,timecode,shot,shotFirstFrame,shotLastFrame,act,sequence,enabled\n");
}

TEST(TimelineCommand, CountsTimecodeFromTheStartOfTheProject)
{
    const Storyboard board("A(24) B(24)");
    board.sceneProject().projectCommon()->setFrameRate(UT_FrameRate(24000, 1001));
    board.sceneProject().projectCommon()->setStartTimecode(86400);
    const QJsonObject timeline = jsonOf(board);
    EXPECT_EQ(timeline[QLatin1String("rate")].toString(), QStringLiteral("24000/1001"));
    EXPECT_EQ(timeline[QLatin1String("items")][0][QLatin1String("timecode")].toString(), QStringLiteral("01:00:00:00"));
    EXPECT_EQ(timeline[QLatin1String("items")][2][QLatin1String("timecode")].toString(), QStringLiteral("01:00:01:00"));
}

TEST(TimelineCommand, AlignsNamesOfAnyScript)
{
    Storyboard board("A(ab=24,c=24) B(24) C(24) D(24) E(24)");
    board.nameShot(0, "夜の港、雨の中で走る");
    board.namePanel(0, 0, "Łódź u brzegu");
    board.namePanel(0, 1, "e\u0301tude %1 %2");
    board.nameShot(1, "👩\u200D🚀 naut");
    board.nameShot(
        2, "a very long name that goes on and on until there is no room for it in any column of the table at all");
    board.nameShot(3, "line\nbreak \u009B31mred");
    board.nameShot(
        4, "장면 다섯 번째 아주 아주 긴 이름 장면 다섯 번째 아주 아주 긴 이름 장면 다섯 번째 아주 아주 긴 이름");
    expectGolden("cli/names.txt", timelineOf(board));
    expectGolden("cli/names.csv", timelineOf(board, {QStringLiteral("--csv")}));
    EXPECT_EQ(
        jsonOf(board)[QLatin1String("items")][1][QLatin1String("name")].toString(), QStringLiteral("Łódź u brzegu"));
    EXPECT_EQ(jsonOf(board)[QLatin1String("items")][7][QLatin1String("name")].toString(),
        QStringLiteral("line\nbreak \u009B31mred"));
}

TEST(TimelineCommand, ShowsWhatIsDisabledAsSuch)
{
    const Storyboard board("A(10,10) B(10)");
    for (TUScene *scene : {board.panelScene(0, 1), board.shotScene(1)}) {
        auto *const record = new PIO_MetadataBool(QStringLiteral("enabled"));
        record->setValue(false);
        scene->metadatas()->add(record);
    }
    QStringList enabled;
    const QJsonArray items = jsonOf(board)[QLatin1String("items")].toArray();
    for (const QJsonValue &item : items) {
        const QJsonValue value = item[QLatin1String("enabled")];
        enabled += value.isNull() ? QStringLiteral("null")
            : value.toBool()      ? QStringLiteral("on")
                                  : QStringLiteral("off");
    }
    EXPECT_EQ(enabled.join(u' ').toStdString(), "on on off off on null");
    const QByteArray table = QByteArray::fromStdString(timelineOf(board));
    EXPECT_EQ(table.count("panel, off"), 1) << table.toStdString();
    EXPECT_EQ(table.count("shot, off"), 1) << table.toStdString();
}

TEST(TimelineCommand, TakesTheFolderOfAProject)
{
    const ProjectFolder folder;
    const QString file = folder.save(Storyboard("A(24)"));
    const CommandRun ofFolder = runPlotka({QStringLiteral("timeline"), QFileInfo(file).path()});
    EXPECT_EQ(ofFolder.exitCode, 0);
    EXPECT_EQ(ofFolder.output, runPlotka({QStringLiteral("timeline"), file}).output);
}

TEST(TimelineCommand, GuardsTextsThatASpreadsheetWouldRun)
{
    Storyboard board("A(24) B(24) C(24) D(24)");
    board.nameShot(0, "=1+2");
    board.nameShot(1, "@x,\"y\"");
    board.nameShot(2, "a=b");
    board.nameShot(3, "-1");
    const auto names = [&board](const QStringList &options) {
        std::string lines;
        const QStringList all =
            QString::fromStdString(timelineOf(board, QStringList{QStringLiteral("--csv")} + options)).split(u'\n');
        for (const QString &line : all) {
            if (line.startsWith(QLatin1String("shot,")))
                lines += line.section(u',', 2, -11).toStdString() + "\n";
        }
        return lines;
    };
    EXPECT_EQ(names({}), "=1+2\n\"@x,\"\"y\"\"\"\na=b\n-1\n");
    EXPECT_EQ(names({QStringLiteral("--guard")}), "'=1+2\n\"'@x,\"\"y\"\"\"\na=b\n'-1\n");
    EXPECT_EQ(runPlotka({QStringLiteral("timeline"), QStringLiteral("x"), QStringLiteral("--guard")}).exitCode, 2);
}

TEST(TimelineCommand, RefusesTwoFormatsAtOnce)
{
    const ProjectFolder folder;
    const CommandRun run = runPlotka({QStringLiteral("timeline"), folder.save(Storyboard("A(24)")),
        QStringLiteral("--json"), QStringLiteral("--csv")});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.output, QByteArray());
    EXPECT_NE(run.errors, QByteArray());
}
