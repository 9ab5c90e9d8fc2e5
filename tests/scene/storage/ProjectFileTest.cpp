#include "scene/changes/TUSceneChangeManager.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/storage/SC_ProjectFile.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/AT_TransitionSeq.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "support/Golden.h"
#include "support/ProjectText.h"
#include "support/SampleProject.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace
{

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void touch(const QString &path)
{
    EXPECT_TRUE(QFile(path).open(QIODevice::WriteOnly));
}

UT_SharedPtr<SC_Project> read(const QByteArray &text)
{
    SC_FileReport report;
    const UT_SharedPtr<SC_Project> project(
        SC_ProjectFile::fromText(text, QStringLiteral("/nowhere/everything.plotka"), report));
    EXPECT_EQ(textOf(report), "");
    return project;
}

} // namespace

TEST(ProjectFile, KeepsEverything)
{
    TestSession session;
    SC_Project *made = session.newProject(QStringLiteral("/nowhere"), QStringLiteral("everything"));
    fillWithEverything(*made);
    const QByteArray text = SC_ProjectFile::toText(*made, QStringLiteral("everything"));
    expectGolden("project/everything.plotka", text.toStdString());
    expectGolden("project/everything.txt", textOf(*made));

    const UT_SharedPtr<SC_Project> back = read(text);
    ASSERT_TRUE(back);
    EXPECT_EQ(textOf(*back), textOf(*made));
    EXPECT_EQ(SC_ProjectFile::toText(*back, QStringLiteral("everything")), text);
}

TEST(ProjectFile, IsTheSameForTheSameProject)
{
    TestSession session;
    SC_Project *project = session.newProject(QStringLiteral("/nowhere"), QStringLiteral("p"));
    fillWithEverything(*project);
    const QByteArray first = SC_ProjectFile::toText(*project, QStringLiteral("p"));
    EXPECT_EQ(SC_ProjectFile::toText(*project, QStringLiteral("p")), first);
}

TEST(ProjectFile, OfANewProjectOpensAsItWas)
{
    const QTemporaryDir folder;
    TestSession session;
    ASSERT_TRUE(session.newProject(folder.filePath(QStringLiteral("new")), QStringLiteral("Żuk 1.5")));
    SC_FileReport report;
    ASSERT_TRUE(session.saveProject(&report)) << textOf(report);
    const std::string saved = textOf(*session.project());

    TestSession other;
    QSignalSpy scenes(other.changeManager(), SIGNAL(sceneChanged()));
    QSignalSpy values(other.changeManager(), SIGNAL(timedValuesAdded(const TUTvSet &)));
    ASSERT_TRUE(other.openProject(folder.filePath(QStringLiteral("new/Żuk 1.5.plotka")), &report));
    other.changeManager()->notify();
    EXPECT_EQ(scenes.count() + values.count(), 0);
    EXPECT_EQ(textOf(*other.project()), saved);
    EXPECT_EQ(other.project()->projectCommon()->dbSceneData()->projectDir(), folder.filePath(QStringLiteral("new")));
    EXPECT_EQ(other.project()->projectCommon()->changeManager(), other.changeManager());
    EXPECT_TRUE(report.isEmpty());
}

TEST(ProjectFile, IsByteForByteTheSameOnceOpenedAndSaved)
{
    const QTemporaryDir folder;
    TestSession session;
    fillWithEverything(*session.newProject(folder.path(), QStringLiteral("p")));
    ASSERT_TRUE(session.saveProject());
    const QByteArray before = contentOf(folder.filePath(QStringLiteral("p.plotka")));

    TestSession other;
    ASSERT_TRUE(other.openProject(folder.path()));
    ASSERT_TRUE(other.saveProject());
    ASSERT_TRUE(other.saveProject());
    EXPECT_EQ(contentOf(folder.filePath(QStringLiteral("p.plotka"))), before);
}

TEST(ProjectFile, NeverGivesAnIdOutAgain)
{
    TestSession session;
    SC_Project *project = session.newProject(QStringLiteral("/nowhere"), QStringLiteral("p"));
    TUScene *scene = project->addScene();
    const SC_Id last = std::max(scene->objectId(), scene->sceneId(), [](auto &a, auto &b) { return a < b; });
    project->removeScene(scene);
    const UT_SharedPtr<SC_Project> back = read(SC_ProjectFile::toText(*project, QStringLiteral("p")));
    EXPECT_LT(last, back->projectCommon()->createId());
}

TEST(ProjectFile, RaisesTheNextIdAboveEveryIdInIt)
{
    const auto nextId = [](const char *content) {
        SC_FileReport report;
        const UT_SharedPtr<SC_Project> project(SC_ProjectFile::fromText(
            documentOf(content).replace("nextId=\"100\"", "nextId=\"1\""), QStringLiteral("p.plotka"), report));
        return project ? project->projectCommon()->nextId() : 0;
    };
    EXPECT_EQ(nextId("<scene object='7' scene='500'/>"), 501);
    EXPECT_EQ(nextId("<scene object='700' scene='5'/>"), 701);
    EXPECT_EQ(nextId("<scene object='1' scene='2'><sequence name=''><warp from='1' frames='1' object='800' scene='3' "
                     "start='1' end='1'/></sequence></scene>"),
        801);
    // Also an id of what is left out.
    EXPECT_EQ(nextId("<scene object='1' scene='2'><sequence name=''><clip from='0' frames='1' object='3' scene='900'/>"
                     "<transition id='1000'/></sequence><sounds name=''><sound id='950' from='0'/></sounds></scene>"),
        1001);
    EXPECT_EQ(nextId("<scene object='1' scene='2'><sounds name=''><sound id='1100' from='1' to='1'/></sounds></scene>"),
        1101);
    EXPECT_EQ(nextId("<scene object='1' scene='2'><sounds name=''><sound id='1200' from='0'/></sounds></scene>"), 1201);
    EXPECT_EQ(nextId("<scene object='1' scene='2'/><scene object='1300'/>"), 1301);
    EXPECT_EQ(nextId("<scene object='1' scene='2'/><later><sound id='1350'/></later>"), 1351);
    EXPECT_EQ(nextId("<scene object='1' scene='2'/><scene object='0' scene='1400'/>"), 1401);
    EXPECT_EQ(nextId("<scene object='1' scene='2'/><scene><sounds name=''><sound id='1500' from='1' to='1'/></sounds>"
                     "<metadata type='t'><t id='1600'/></metadata></scene>"),
        1501);
}

TEST(ProjectFile, OpensAgainAlsoWhenItsNumbersAreUsedUp)
{
    const auto saved = [](const QByteArray &content) {
        SC_FileReport report;
        const UT_SharedPtr<SC_Project> project(
            SC_ProjectFile::fromText(documentOf(content), QStringLiteral("/nowhere/everything.plotka"), report));
        EXPECT_TRUE(project) << textOf(report);
        return project ? SC_ProjectFile::toText(*project, QStringLiteral("everything")) : QByteArray();
    };
    const QByteArray last = saved("<scene object='1' scene='4611686018427387903'/>");
    EXPECT_TRUE(last.contains("nextId=\"4611686018427387904\""));
    ASSERT_TRUE(read(last));
    EXPECT_TRUE(read(last)->projectCommon()->createId().isNull());
    for (const char *id : {"4611686018427387904", "9223372036854775807", "-1", "-9223372036854775808"}) {
        const QByteArray text = saved(QByteArray("<scene object='1' scene='2'><sequence name='s'><clip from='1' "
                                                 "frames='1' object='3' scene='")
            + id + "'/></sequence><sounds name=''><sound id='" + id + "' from='1' to='1'/></sounds></scene>"
            + "<scene object='7' scene='" + id + "'/>");
        EXPECT_FALSE(text.contains(id));
        ASSERT_TRUE(read(text));
        EXPECT_EQ(read(text)->projectCommon()->nextId(), 100);
    }
}

TEST(ProjectFile, TakesItsNameFromWhereItLies)
{
    const QTemporaryDir folder;
    TestSession session;
    session.newProject(folder.path(), QStringLiteral("before"));
    ASSERT_TRUE(session.saveProject());
    ASSERT_TRUE(QFile::rename(
        folder.filePath(QStringLiteral("before.plotka")), folder.filePath(QStringLiteral("after.plotka"))));
    ASSERT_TRUE(session.openProject(folder.path()));
    EXPECT_EQ(session.project()->projectCommon()->dbSceneData()->sceneName(), QStringLiteral("after"));
    ASSERT_TRUE(session.saveProject());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("after.plotka")});
    EXPECT_TRUE(contentOf(folder.filePath(QStringLiteral("after.plotka"))).contains("name=\"after\""));
}

TEST(ProjectFile, LeavesOutALinkToANodeThatIsInNoScene)
{
    TestSession session;
    SC_Project *project = session.newProject(QStringLiteral("/nowhere"), QStringLiteral("p"));
    fillWithEverything(*project);
    project->removeScene(dynamic_cast<TUScene *>(project->sceneAt(1))); // one of its nodes was driven from outside
    const UT_SharedPtr<SC_Project> back = read(SC_ProjectFile::toText(*project, QStringLiteral("everything")));
    ASSERT_TRUE(back);
}

TEST(ProjectFile, KeepsManyTransitionsInARow)
{
    TestSession session;
    SC_Project *project = session.newProject(QStringLiteral("/nowhere"), QStringLiteral("everything"));
    auto &top = dynamic_cast<TUScene &>(*project->sceneAt(0));
    auto &timeline = dynamic_cast<TUSeqTimedValue &>(*top.timedValues().front());
    for (unsigned int i = 0; i < 50; ++i) {
        // Slopes of 1 with starts that do not add up exactly, other slopes, and clips without a warp.
        const double start = 0.1 * (i + 1);
        TUScene *scene = project->addScene();
        TUSeq *seq = i % 3 == 2 ? new AT_SceneSeq(scene) : new AT_TimeWarpSeq(scene, start, start + (i % 3 ? 50 : 9));
        ASSERT_TRUE(timeline.insertBlock(1 + 10 * i, 10, seq));
    }
    for (unsigned int i = 1; i < 50; ++i) {
        auto *transition = new AT_TransitionSeq(project->projectCommon()->createId(), int(i));
        ASSERT_TRUE(timeline.insertTransition(1 + 10 * i, i % 5, 4 - i % 4, transition));
    }
    const QByteArray text = SC_ProjectFile::toText(*project, QStringLiteral("everything"));
    const UT_SharedPtr<SC_Project> back = read(text);
    EXPECT_EQ(textOf(*back), textOf(*project));
    EXPECT_EQ(SC_ProjectFile::toText(*back, QStringLiteral("everything")), text);
}

TEST(ProjectFile, IsFoundInItsFolder)
{
    const QTemporaryDir folder;
    const QString a = folder.filePath(QStringLiteral("a.plotka"));
    const auto resolved = [](const QString &path, const char *expectedReport) {
        SC_FileReport report;
        const QString found = SC_ProjectFile::resolve(path, report);
        EXPECT_EQ(textOf(report), expectedReport);
        return found;
    };
    EXPECT_EQ(resolved(QString(), "error: there is no such file or folder\n"), QString());
    EXPECT_EQ(resolved(a, "a.plotka: error: there is no such file or folder\n"), QString());
    touch(folder.filePath(QStringLiteral("other.txt")));
    const std::string name = QFileInfo(folder.path()).fileName().toStdString();
    EXPECT_EQ(resolved(folder.path(), (name + ": error: the folder holds no project file\n").c_str()), QString());
    touch(a);
    EXPECT_EQ(resolved(folder.path(), ""), a);
    EXPECT_EQ(resolved(a, ""), a);
    touch(folder.filePath(QStringLiteral("b.plotka")));
    EXPECT_EQ(
        resolved(folder.path(), (name + ": error: the folder holds more than one project file\n").c_str()), QString());
    EXPECT_EQ(resolved(a, ""), a);
}
