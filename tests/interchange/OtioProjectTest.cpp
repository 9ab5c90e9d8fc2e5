#include "interchange/BuiltProject.h"
#include "metadata/PKC_ClipInfo.h"
#include "metadata/PKC_SceneInfo.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "support/Printers.h"
#include "support/Problems.h"
#include "support/ProjectText.h"
#include "tracking/PKC_SceneChangeManager.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace CutText;
using namespace Plotka;

namespace
{

// Dissolve, gap, nested shot with a gap inside, a layer and a sound.
QJsonObject sampleCut()
{
    const QJsonObject nested = with(track({clip("x", 4), gap(2), clip("y", 6)}), "name", QStringLiteral("N"));
    return with(timeline({track({clip("A", 24), dissolve(2, 3), clip("", 24), gap(5), nested}, "Video", "Main"),
                    track({gap(10), clip("logo", 8)}, "Video", "Titles"), track({clip("boom", 30)}, "Audio", "Noise")}),
        "name", QStringLiteral("Sample"));
}

QJsonObject namedCut(const QString &name)
{
    return with(timeline({track({clip("A", 5)})}), "name", name);
}

QString projectName(const QString &cutName, const QString &fallback = QString())
{
    const std::unique_ptr<PKC_SessionContext> session(PKC_SessionContext::createSessionContext(nullptr, nullptr));
    const OtioProjectImport result = OtioImport::importInto(
        *session, QJsonDocument(namedCut(cutName)).toJson(), QStringLiteral("/nowhere"), OtioOptions(), fallback);
    return result.project ? result.project->projectCommon()->dbSceneData()->sceneName() : QString();
}

} // namespace

TEST(OtioProject, HoldsShotsPanelsTransitionsLayersAndSounds)
{
    const ImportedCut cut(sampleCut());
    ASSERT_FALSE(cut.result().hasError());
    EXPECT_EQ(print(planOf(cut.project())),
        "A 1-27 (1-27) |  23-48 (1-26) | N 54-65 (x 1-4 y 7-12)\n"
        "transition after shot 0: 23-27 cut 25\n"
        "layer Titles: logo 11-18\n"
        "sound Noise: boom 1-30");
    EXPECT_EQ(framesOf(cut.project()), "A 1-27 (1-27) |  23-48 (23-48) | N 54-65 (54-57 60-65)");
    EXPECT_EQ(transitionsOf(cut.project()), "23-27");
    EXPECT_EQ(gapsOf(cut.project()), "49-53 | N 58-59 | 66-");
    EXPECT_EQ(problemsOf(cut.project()), "");
    EXPECT_EQ(cut.project().name(), QStringLiteral("Sample"));
    EXPECT_EQ(cut.project().topMainTv()->getName(), QStringLiteral("Main"));
    EXPECT_EQ(cut.project().getNumOfAudioFrames(false), 30U);
}

TEST(OtioProject, ShowsThePanelsOfAShotInOneElement)
{
    const ImportedCut cut(sampleCut());
    const Shot_t shot = cut.project().getShotByNdx(2);
    const Panel_t panel = cut.project().getPanelAt(54, PKC_PlotkaProject::ResolveForward, false, false);
    const MO_ElementModule *element = dynamic_cast<MO_ElementModule *>(panel.node());
    ASSERT_TRUE(element);
    EXPECT_EQ(element->drawingAttr()->linkedTimedValue(), shot.symbol()->timedValues().front());
    EXPECT_EQ(shot.symbol()->timedValues().size(), 1U);
    EXPECT_TRUE(panel.symbol()->timedValues().empty());
}

TEST(OtioProject, TakesNamesAsGivenAndLeavesTheOthersToBeMadeUp)
{
    const QJsonObject names = with(with({}, "act", QStringLiteral("One")), "sequence", QStringLiteral("Two"));
    const QJsonObject shot = with(clip("Żółw", 5), "metadata", with({}, "plotka", names));
    const ImportedCut cut(timeline({track({shot, clip("", 5), track({clip("p", 2), clip("", 3)})})}));
    const PKC_PlotkaProject &project = cut.project();
    EXPECT_EQ(project.getShotByNdx(0).name(), QStringLiteral("Żółw"));
    EXPECT_EQ(project.getShotByNdx(0).sceneInfo()->name().flag(), PKC_ObjectName::customBit);
    EXPECT_EQ(project.getShotByNdx(0).actName(), QStringLiteral("One"));
    EXPECT_EQ(project.getShotByNdx(0).sequenceName(), QStringLiteral("Two"));
    EXPECT_EQ(project.getPanelByNdx(0).clipInfo()->name().flag(), 0);

    EXPECT_EQ(project.getShotByNdx(1).name(), QString());
    EXPECT_EQ(project.getShotByNdx(1).sceneInfo()->name().flag(), 0);
    EXPECT_TRUE(project.getShotByNdx(1).sceneInfo()->isValid());
    EXPECT_EQ(project.getShotByNdx(1).actName(), QStringLiteral("0"));

    EXPECT_EQ(project.getPanelByNdx(2).name(), QStringLiteral("p"));
    EXPECT_EQ(project.getPanelByNdx(2).clipInfo()->name().flag(), PKC_ObjectName::customBit);
    EXPECT_EQ(project.getPanelByNdx(3).clipInfo()->name().flag(), 0);
}

TEST(OtioProject, DropsCharactersThatNoFileHolds)
{
    const QString bad =
        QStringLiteral("a\u0001b") + QChar(0xD800) + QChar(0xFFFE) + QChar(0xFFFF) + QStringLiteral("\uFFFD\U0001F422");
    const QJsonObject names = with({}, "act", bad);
    const QJsonObject shot = with(with(clip("", 5), "name", bad), "metadata", with({}, "plotka", names));
    const QByteArray text = QJsonDocument(timeline({track({shot})})).toJson();
    const ImportedCut cut(text);
    EXPECT_EQ(cut.project().getShotByNdx(0).name(), QStringLiteral("ab\uFFFD\U0001F422"));
    EXPECT_EQ(cut.project().getShotByNdx(0).actName(), QStringLiteral("ab\uFFFD\U0001F422"));
    EXPECT_THAT(print(cut.result().notes), ::testing::HasSubstr("change bad-characters: track 1, item 1"));
}

TEST(OtioProject, MarksWhatIsDisabled)
{
    const auto off = [](const QJsonObject &object) { return with(object, "enabled", false); };
    const QJsonObject nested = track({off(clip("p", 2)), clip("q", 3)}, "Video", "N");
    const ImportedCut cut(
        timeline({track({off(clip("A", 5)), clip("B", 5), nested}), off(track({clip("l", 5)}, "Video", "V")),
            off(track({clip("s", 9)}, "Audio", "S")), track({clip("t", 7)}, "Audio", "T")}));
    EXPECT_EQ(print(planOf(cut.project())),
        "A off 1-5 (1-5) | B 6-10 (1-5) | N 11-15 (p off 1-2 q 3-5)\n"
        "layer off V: l off 1-5\n"
        "sound off S: s 1-9\n"
        "sound T: t 1-7");
    EXPECT_EQ(cut.project().getNumOfAudioFrames(/*all*/ false), 7U);
    EXPECT_EQ(cut.project().getNumOfAudioFrames(/*all*/ true), 9U);
}

TEST(OtioProject, StacksTracksAsTheFileDoesAndTellsThemApart)
{
    const std::vector<QJsonObject> items{clip("c", 5)};
    const ImportedCut cut(timeline({track(items, "Video", "V"), track(items, "Video", "V"), track(items),
        track(items, "Video", "V 2"), track(items, "Audio"), track({}, "Audio")}));
    EXPECT_EQ(print(planOf(cut.project())),
        "c 1-5 (1-5)\n"
        "layer V 2: c 1-5\n"
        "layer Video 3: c 1-5\n"
        "layer V 2 2: c 1-5\n"
        "sound Sound 1: c 1-5\n"
        "sound Sound 2:");
    EXPECT_EQ(print(cut.result().notes),
        "change track-renamed: V: another video track has that name; it is called V 2\n"
        "change track-renamed: V 2: another video track has that name; it is called V 2 2\n");
}

TEST(OtioProject, HasTheRateAndStartOfTheCut)
{
    const ImportedCut drop(with(timeline({track({clip("A", 5, 29.97)})}), "global_start_time", time(107892, 29.97)));
    EXPECT_EQ(drop.session().project()->projectCommon()->frameRate(), UT_FrameRate(30000, 1001));
    EXPECT_EQ(drop.session().project()->projectCommon()->startTimecode(), 107892);

    OtioOptions wanted;
    wanted.hasRate = true;
    wanted.rate = UT_FrameRate(12);
    const ImportedCut slow(timeline({track({clip("A", 48)})}), wanted);
    EXPECT_EQ(slow.session().project()->projectCommon()->frameRate(), UT_FrameRate(12));
    EXPECT_EQ(framesOf(slow.project()), "A 1-24 (1-24)");
}

TEST(OtioProject, IsAnEmptyStoryboardWithoutAVideoTrack)
{
    const ImportedCut cut(timeline({track({clip("s", 9)}, "Audio")}));
    EXPECT_EQ(cut.project().shotCount(), 0U);
    EXPECT_EQ(cut.project().topMainTv()->getName(), QStringLiteral("Storyboard"));
    EXPECT_EQ(cut.project().getNumOfAudioFrames(false), 9U);
}

TEST(OtioProject, QueuesNoChangeAndIsHeardOfFromThenOn)
{
    const ImportedCut cut(sampleCut());
    PKC_SceneChangeManager *const changes = cut.session().changeManager();
    QSignalSpy scenes(changes, SIGNAL(sceneChanged()));
    changes->notify();
    EXPECT_EQ(scenes.count(), 0);
    ASSERT_TRUE(cut.project().topMainTv()->moveBlocks(54, 10));
    changes->notify();
    EXPECT_EQ(scenes.count(), 1);
    EXPECT_EQ(cut.project().getNumOfFrames(), 75U);
}

TEST(OtioProject, TakesThePlaceOfTheOneBefore)
{
    const ImportedCut cut(sampleCut());
    PKC_SessionContext &session = cut.session();
    const OtioProjectImport second = OtioImport::importInto(
        session, QJsonDocument(namedCut(QStringLiteral("Second"))).toJson(), QStringLiteral("/nowhere"));
    EXPECT_EQ(session.plotkaProject(), nullptr);
    EXPECT_EQ(session.project(), second.project);
    session.createPlotkaProject(second.project);
    EXPECT_EQ(framesOf(*session.plotkaProject()), "A 1-5 (1-5)");
}

TEST(OtioProject, LeavesTheSessionAsItWasWhenTheCutIsNone)
{
    const ImportedCut cut(sampleCut());
    PKC_SessionContext &session = cut.session();
    SC_Project *const before = session.project();
    const OtioProjectImport broken = OtioImport::importInto(session, "{\n  \"a\": ?}", QStringLiteral("/nowhere"));
    EXPECT_TRUE(broken.hasError());
    EXPECT_EQ(broken.project, nullptr);
    EXPECT_EQ(broken.error.line, 2);
    EXPECT_TRUE(OtioImport::importInto(session, QJsonDocument(sampleCut()).toJson(), QString()).hasError());
    EXPECT_EQ(session.project(), before);
    EXPECT_EQ(cut.project().shotCount(), 3U);

    const ImportedCut none(QByteArray("[]"));
    EXPECT_TRUE(none.result().hasError());
    EXPECT_EQ(none.session().project(), nullptr);
}

TEST(OtioProject, IsNamedAsAFileCanBe)
{
    EXPECT_EQ(projectName(QStringLiteral("Żółw: part 1")), QStringLiteral("Żółw: part 1"));
    EXPECT_EQ(projectName(QStringLiteral("a/b/../c")), QStringLiteral("a-b-..-c"));
    EXPECT_EQ(projectName(QStringLiteral("../up")), QStringLiteral("-up"));
    EXPECT_EQ(projectName(QStringLiteral(". .hidden")), QStringLiteral("hidden"));
    EXPECT_EQ(projectName(QStringLiteral("\u007F.a\u009B2J\u0085b\u202Ec\u2066d\u2069")), QStringLiteral("a2J bcd"));
    EXPECT_EQ(projectName(QStringLiteral(" two \n lines ")), QStringLiteral("two lines"));
    EXPECT_EQ(projectName(QString(), QStringLiteral("the.file")), QStringLiteral("the.file"));
    EXPECT_EQ(projectName(QStringLiteral(".."), QStringLiteral("..")), QStringLiteral("Untitled"));
    const QString turtles = projectName(QStringLiteral("a") + QStringLiteral("\U0001F422").repeated(100));
    EXPECT_EQ(turtles, QStringLiteral("a") + QStringLiteral("\U0001F422").repeated(49));
    EXPECT_EQ(print(ImportedCut(namedCut(QStringLiteral("a/b"))).result().notes),
        "change project-name: : the cut's name a/b is not one of a file and is changed\n");
}

TEST(OtioProject, IsSavedAndOpenedAgainTheSame)
{
    const QTemporaryDir folder;
    const QString directory = folder.filePath(QStringLiteral("new/board"));
    const std::unique_ptr<PKC_SessionContext> session(PKC_SessionContext::createSessionContext(nullptr, nullptr));
    const OtioProjectImport made = OtioImport::importInto(*session, QJsonDocument(sampleCut()).toJson(), directory);
    ASSERT_TRUE(made.project);
    EXPECT_FALSE(QFileInfo::exists(directory)) << "nothing is written unasked";
    ASSERT_TRUE(session->saveProject());
    const std::string before = textOf(*made.project);

    const std::unique_ptr<PKC_SessionContext> second(PKC_SessionContext::createSessionContext(nullptr, nullptr));
    SC_FileReport report;
    SC_Project *const opened = second->openProject(directory + QStringLiteral("/Sample.plotka"), &report);
    ASSERT_TRUE(opened);
    EXPECT_TRUE(report.isEmpty()) << textOf(report);
    EXPECT_EQ(textOf(*opened), before);
}

TEST(OtioProject, IsReadFromAFileWithinBounds)
{
    const QTemporaryDir folder;
    const std::unique_ptr<PKC_SessionContext> session(PKC_SessionContext::createSessionContext(nullptr, nullptr));
    const auto import = [&](const QString &name) {
        return OtioImport::importFileInto(*session, folder.filePath(name), folder.filePath(QStringLiteral("board")));
    };
    QFile file(folder.filePath(QStringLiteral("My cut.v2.otio")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QJsonDocument(timeline({track({clip("A", 5)})})).toJson());
    file.close();
    const OtioProjectImport made = import(QStringLiteral("My cut.v2.otio"));
    ASSERT_TRUE(made.project);
    EXPECT_EQ(made.project->projectCommon()->dbSceneData()->sceneName(), QStringLiteral("My cut.v2"));

    EXPECT_EQ(import(QStringLiteral(".")).error.message, QStringLiteral("it is a folder"));
    EXPECT_EQ(import(QStringLiteral("missing")).error.message, QStringLiteral("No such file or directory"));

    QFile large(folder.filePath(QStringLiteral("large")));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly));
    ASSERT_TRUE(large.resize(qint64(300) * 1024 * 1024)); // takes no room on disk
    large.close();
    EXPECT_THAT(import(QStringLiteral("large")).error.message.toStdString(), ::testing::HasSubstr("256"));
    EXPECT_EQ(session->project(), made.project);
}

TEST(OtioProject, TakesTensOfThousandsOfShotsInItsStride)
{
    // A step that looked at all shots for each would take minutes.
    std::vector<QJsonObject> items;
    std::vector<QJsonObject> tracks;
    for (int i = 0; i < 20000; ++i) {
        items.push_back(clip("", 10));
        items.push_back(dissolve(1, 1));
    }
    items.pop_back();
    tracks.push_back(track(items));
    for (int i = 0; i < 2000; ++i)
        tracks.push_back(track({clip("", 10)}, "Video", "same"));
    const ImportedCut cut(timeline(tracks));
    EXPECT_EQ(cut.project().shotCount(), 20000U);
    EXPECT_EQ(cut.project().transCount(), 19999U);
    EXPECT_EQ(cut.project().getNumOfFrames(), 200000U);
    const QString last = cut.project().topScene()->timedValues().back()->getName();
    EXPECT_EQ(last, QStringLiteral("same 2000"));
}
