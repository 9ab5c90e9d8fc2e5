#include "cli/CommandRun.h"
#include "support/Golden.h"
#include "support/Storyboard.h"

#include "scene/metadata/PIO_MetadataBool.h"
#include "scene/metadata/PIO_MetadataUnknown.h"
#include "scene/timeline/AT_SceneSeq.h"
#include "scene/timeline/TUSoundTimedValue.h"

#include <QJsonArray>

#include <gtest/gtest.h>

namespace
{

/// One of everything that is counted.
void fill(const Storyboard &board)
{
    TUScene &top = board.topScene();
    top.addSoundTimedValue(QStringLiteral("Music"))->addSound(1, 40, QStringLiteral("theme"));
    TUSeqTimedValue *const video = top.addSeqTimedValue(QStringLiteral("V2"));
    ASSERT_TRUE(video->insertBlock(5, 10, new AT_SceneSeq(board.sceneProject().addScene())));
    auto *const flag = new PIO_MetadataBool(QStringLiteral("enabled"));
    flag->setValue(false);
    board.shotScene(0)->metadatas()->add(flag);
    board.sceneProject().metadatas()->add(new PIO_MetadataUnknown(QStringLiteral("weather"), QStringLiteral("sky %1"),
        QStringLiteral("someone"), QStringLiteral("3"), QStringLiteral("<cloud/>")));
}

} // namespace

TEST(InfoCommand, CountsWhatAProjectHolds)
{
    const Storyboard board("A(24,12) ~2+2~ B(24) -10- C(24)");
    fill(board);
    const ProjectFolder folder;
    const QString file = folder.save(board);
    const CommandRun run = runPlotka({QStringLiteral("info"), file, QStringLiteral("--json")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors.toStdString(), "");

    const QJsonObject info = run.json();
    EXPECT_EQ(info[QLatin1String("schema")].toInt(), 1);
    EXPECT_EQ(info[QLatin1String("name")].toString(), QStringLiteral("Board"));
    EXPECT_EQ(info[QLatin1String("file")].toString(), file);
    EXPECT_EQ(info[QLatin1String("rate")].toString(), QStringLiteral("24"));
    EXPECT_EQ(info[QLatin1String("startTimecode")].toInt(-1), 0);
    EXPECT_EQ(info[QLatin1String("frames")].toInt(), 90);
    const QJsonObject counts = info[QLatin1String("counts")].toObject();
    EXPECT_EQ(counts,
        (QJsonObject{{QStringLiteral("shots"), 3}, {QStringLiteral("panels"), 4}, {QStringLiteral("transitions"), 1},
            {QStringLiteral("gaps"), 1}, {QStringLiteral("videoTracks"), 1}, {QStringLiteral("videoClips"), 1},
            {QStringLiteral("soundTracks"), 1}, {QStringLiteral("sounds"), 1}, {QStringLiteral("scenes"), 9}}));
    EXPECT_EQ(info[QLatin1String("records")][QLatin1String("bool")].toInt(), 1);
    EXPECT_EQ(info[QLatin1String("records")][QLatin1String("weather")].toInt(), 1);
    const QJsonArray unknown = info[QLatin1String("unknownRecords")].toArray();
    ASSERT_EQ(unknown.size(), 1);
    EXPECT_EQ(unknown[0].toObject(),
        (QJsonObject{{QStringLiteral("type"), QStringLiteral("weather")},
            {QStringLiteral("name"), QStringLiteral("sky %1")}, {QStringLiteral("creator"), QStringLiteral("someone")},
            {QStringLiteral("version"), QStringLiteral("3")}}));
}

TEST(InfoCommand, CountsTheRecordsOfTheFileAlone)
{
    const ProjectFolder folder;
    Storyboard board("A(24)");
    const QString file = folder.save(board);
    const QJsonObject first = runPlotka({QStringLiteral("info"), file, QStringLiteral("--json")}).json();
    const QJsonObject second = runPlotka({QStringLiteral("info"), file, QStringLiteral("--json")}).json();
    EXPECT_EQ(first[QLatin1String("records")], second[QLatin1String("records")]);
}

TEST(InfoCommand, PrintsForPeople)
{
    const Storyboard board("A(24,12) ~2+2~ B(24) -10- C(24)");
    fill(board);
    const ProjectFolder folder;
    CommandRun run = runPlotka({QStringLiteral("info"), folder.save(board)});
    run.output.replace(folder.path(QString()).toUtf8(), "<folder>");
    expectGolden("cli/info.txt", run.output.toStdString());
}

TEST(InfoCommand, CutsNothing)
{
    const ProjectFolder folder;
    const QString file = folder.save(Storyboard("A(24)"), QStringLiteral("long").repeated(40));
    EXPECT_TRUE(runPlotka({QStringLiteral("info"), file}).output.contains(file.toUtf8() + '\n'));
}

TEST(InfoCommand, TellsAboutAnEmptyProject)
{
    const ProjectFolder folder;
    const CommandRun run = runPlotka({QStringLiteral("info"), folder.save(Storyboard()), QStringLiteral("--json")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.json()[QLatin1String("frames")].toInt(-1), 0);
    EXPECT_EQ(run.json()[QLatin1String("counts")][QLatin1String("shots")].toInt(-1), 0);
}
