#include "cli/CommandRun.h"
#include "support/Golden.h"
#include "support/Storyboard.h"

#include "scene/metadata/PIO_MetadataBool.h"
#include "scene/metadata/PIO_MetadataUnknown.h"

#include <gtest/gtest.h>

namespace
{

/// A record of the project, one of a shot, and the panels' own.
void fill(const Storyboard &board)
{
    board.sceneProject().metadatas()->add(new PIO_MetadataUnknown(QStringLiteral("weather"), QStringLiteral("sky %1"),
        QStringLiteral("someone"), QStringLiteral("3"), QStringLiteral("<cloud/>")));
    auto *const flag = new PIO_MetadataBool(QStringLiteral("enabled"));
    flag->setValue(false);
    board.shotScene(0)->metadatas()->add(flag);
}

CommandRun dump(const QString &file, const QStringList &options = {})
{
    return runPlotka(QStringList{QStringLiteral("dump"), file} + options);
}

} // namespace

TEST(DumpCommand, PrintsEachRecordBelowWhatCarriesIt)
{
    const Storyboard board("A(24)");
    fill(board);
    const ProjectFolder folder;
    const CommandRun run = dump(folder.save(board), {QStringLiteral("--record"), QStringLiteral("weather")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors.toStdString(), "");
    EXPECT_EQ(run.output.toStdString(),
        "project\n"
        "  weather, name \"sky %1\", creator \"someone\", version \"3\"\n"
        "    content=<cloud/>\n");
}

TEST(DumpCommand, PrintsTheXmlOfWhatSaysNothingOfItself)
{
    const Storyboard board("A(24)");
    const ProjectFolder folder;
    const CommandRun run = dump(folder.save(board), {QStringLiteral("--record"), QStringLiteral("deletedPanels")});
    EXPECT_EQ(run.output.toStdString(),
        "project\n"
        "  deletedPanels, name \"\", creator \"plotka-tests\", version \"1.0\"\n"
        "    <deletedPanels/>\n");
}

TEST(DumpCommand, PrintsOnlyTheRecordsAskedFor)
{
    const Storyboard board("A(24,12) B(24)");
    fill(board);
    const ProjectFolder folder;
    const QString file = folder.save(board);
    const QByteArray all = dump(file).output;
    EXPECT_TRUE(all.contains("weather") && all.contains("  bool, ") && all.contains("sceneInfo"));
    EXPECT_EQ(all.count("  panelInfo, "), 3);

    const QString panel = board.panelId(0, 1).AsString();
    const QByteArray ofPanel = dump(file, {QStringLiteral("--panel"), panel}).output;
    EXPECT_TRUE(ofPanel.startsWith(QStringLiteral("scene %1\n").arg(panel).toUtf8())) << ofPanel.toStdString();
    EXPECT_EQ(ofPanel.count("\nscene "), 0);
    EXPECT_EQ(ofPanel.count("  panelInfo, "), 1);
    EXPECT_EQ(ofPanel.count("weather"), 0);

    const CommandRun nothing = dump(file, {QStringLiteral("--record"), QStringLiteral("panelinfo")});
    EXPECT_EQ(nothing.exitCode, 3);
    EXPECT_EQ(nothing.output.toStdString(), "");
    EXPECT_TRUE(nothing.errors.contains("there is no record of type \"panelinfo\"; there are: bool, deletedPanels, "))
        << nothing.errors.toStdString();
    const CommandRun ofShot = dump(file,
        {QStringLiteral("--record"), QStringLiteral("weather"), QStringLiteral("--panel"), board.shotId(1).AsString()});
    EXPECT_EQ(ofShot.exitCode, 3);
    EXPECT_FALSE(ofShot.errors.contains("there are: bool")) << "of another shot";
}

TEST(DumpCommand, RefusesAnIdThatIsNoneOrOfNothing)
{
    const Storyboard board("A(24)");
    const ProjectFolder folder;
    const QString file = folder.save(board);
    for (const char *text : {"", "0", "wide", "1.5", "99999999999999999999"}) {
        const CommandRun run = dump(file, {QStringLiteral("--panel"), QLatin1String(text)});
        EXPECT_EQ(run.exitCode, 2) << text;
        EXPECT_TRUE(run.errors.contains("is no id")) << run.errors.toStdString();
    }
    const CommandRun run = dump(file, {QStringLiteral("--panel"), QStringLiteral("4711")});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.output.toStdString(), "");
    EXPECT_TRUE(run.errors.contains("4711"));
}

TEST(DumpCommand, ShowsNoCharacterThatMovesTheCursor)
{
    const Storyboard board("A(24)");
    board.sceneProject().metadatas()->add(new PIO_MetadataUnknown(
        QStringLiteral("odd"), QStringLiteral("a\tb\u202Ec"), QStringLiteral("x"), QStringLiteral("1"), QString()));
    const ProjectFolder folder;
    const QByteArray output = dump(folder.save(board), {QStringLiteral("--record"), QStringLiteral("odd")}).output;
    EXPECT_FALSE(output.contains('\t') || output.contains("\u202E")) << output.toStdString();
    EXPECT_TRUE(output.contains("name \"a\uFFFDb\uFFFDc\"")) << output.toStdString();
}
