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

TEST(WalkPanelsExample, PrintsEveryShotAndAllThatItHolds)
{
    const ProjectFolder folder;
    const QString file = folder.save(Storyboard("Opening(wide=24,12,-4) -10- Street(-5,30)"));
    const CommandRun run = runProgram(QStringLiteral(PLOTKA_WALK_PANELS), {file});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output.toStdString(),
        "shot 1-40: Opening\n  panel 1-24: wide\n  panel 25-36\n  gap 37-40\ngap 41-50\n"
        "shot 51-85: Street\n  gap 51-55\n  panel 56-85\n");
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
