#include "cli/CommandRun.h"
#include "support/Storyboard.h"

#include <QFile>

#include <gtest/gtest.h>

namespace
{

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

} // namespace

TEST(WalkPanelsExample, PrintsThePanelsOfAProject)
{
    const ProjectFolder folder;
    const QString file = folder.save(Storyboard("Opening(24,12) -10- Street(30)"));
    const CommandRun run = runProgram(QStringLiteral(PLOTKA_WALK_PANELS), {file});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output.toStdString(), "Opening: 1-24\nOpening: 25-36\nStreet: 47-76\n");
    EXPECT_EQ(runProgram(QStringLiteral(PLOTKA_WALK_PANELS), {folder.path(QStringLiteral("nowhere"))}).exitCode, 1);
}

TEST(EveryRecordExample, MakesTheProjectThatStandsBesideIt)
{
    const ProjectFolder folder;
    const QString made = folder.path(QStringLiteral("made"));
    EXPECT_EQ(runProgram(QStringLiteral(PLOTKA_EVERY_RECORD), {made}).exitCode, 0);
    const QString known = QStringLiteral(PLOTKA_EXAMPLES "/every_record/every_record.plotka");
    EXPECT_EQ(contentOf(made + QStringLiteral("/every_record.plotka")).toStdString(), contentOf(known).toStdString());
    EXPECT_EQ(runProgram(QStringLiteral(PLOTKA_EVERY_RECORD), {}).exitCode, 1);
}

TEST(EveryRecordExample, HoldsARecordOfEveryKindAndNothingToFind)
{
    const QString file = QStringLiteral(PLOTKA_EXAMPLES "/every_record");
    const QJsonObject records =
        runPlotka({QStringLiteral("info"), file, QStringLiteral("--json")}).json()[QLatin1String("records")].toObject();
    EXPECT_EQ(records.keys().join(u' ').toStdString(),
        "deletedPanels exposurePoints extraInfoFieldList hiddenInfoField infoFields layerInfos namingRules panelInfo "
        "pdfOptions projectCompatibilityIssue projectLinkInfo projectPanelInfoFieldList referenceToolData sceneInfo "
        "scenePanelInfoFieldList soundAnnotation tracking");
    const CommandRun check = runPlotka({QStringLiteral("check"), file});
    EXPECT_EQ(check.exitCode, 0) << check.output.toStdString();
}
