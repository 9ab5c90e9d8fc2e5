#include "support/Printers.h"

#include "project/PKC_SessionContext.h"
#include "scene/network/MO_UnconnectedCompositeModule.h"
#include "scene/playback/PL_System.h"
#include "scene/project/SC_CameraManager.h"
#include "scene/project/TUScene.h"
#include "scene/session/SC_ProjectManager.h"
#include "tracking/PKC_SceneChangeManager.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace
{

std::unique_ptr<PKC_SessionContext> newSession()
{
    return std::unique_ptr<PKC_SessionContext>(PKC_SessionContext::createSessionContext(nullptr, nullptr));
}

SC_Project *newProject(PKC_SessionContext &session)
{
    return session.newProject(QStringLiteral("/nowhere"), QStringLiteral("cut"));
}

/// Opens up what only derived sessions may do.
class DerivedSession : public PKC_SessionContext
{
public:
    DerivedSession() : PKC_SessionContext(nullptr, nullptr) {}
    using PKC_SessionContext::createCameraManager;
    using PKC_SessionContext::createChangeManager;
    using PKC_SessionContext::init;
};

/// Notes the end of what it is told to watch, in order. It watches a child: a project object cuts its own connections
/// before it ends.
class Obituary
{
public:
    void watch(QObject *object, const std::string &name)
    {
        QObject::connect(
            new QObject(object), &QObject::destroyed, &m_context, [this, name] { m_ended.push_back(name); });
    }
    const std::vector<std::string> &ended() const { return m_ended; }

private:
    QObject m_context;
    std::vector<std::string> m_ended;
};

} // namespace

TEST(SessionContext, HasItsManagersAndNoProjectAtFirst)
{
    const auto session = newSession();
    EXPECT_NE(session->playbackSystem(), nullptr);
    EXPECT_NE(session->changeManager(), nullptr);
    EXPECT_NE(session->cameraManager(), nullptr);
    EXPECT_EQ(session->plotkaProject(), nullptr);
    EXPECT_EQ(session->project(), nullptr);
}

TEST(SessionContext, HandsTheSceneLayerTheStoryboardsChangeManager)
{
    const auto session = newSession();
    SC_SessionContext &base = *session;
    EXPECT_EQ(base.changeManager(), session->changeManager());
    EXPECT_NE(dynamic_cast<PKC_SceneChangeManager *>(base.changeManager()), nullptr);
    SC_Project *const project = newProject(*session);
    EXPECT_EQ(project->projectCommon()->changeManager(), session->changeManager());
}

TEST(SessionContext, MakesItsManagersInInitAndOnlyOnce)
{
    DerivedSession session;
    EXPECT_EQ(session.playbackSystem(), nullptr);
    EXPECT_EQ(session.changeManager(), nullptr);
    EXPECT_EQ(session.cameraManager(), nullptr);

    session.init();
    const PL_System *const playback = session.playbackSystem();
    const PKC_SceneChangeManager *const changes = session.changeManager();
    const SC_CameraManager *const cameras = session.cameraManager();
    EXPECT_NE(playback, nullptr);
    EXPECT_NE(changes, nullptr);
    EXPECT_NE(cameras, nullptr);

    session.init();
    EXPECT_EQ(session.playbackSystem(), playback);
    EXPECT_EQ(session.changeManager(), changes);
    EXPECT_EQ(session.cameraManager(), cameras);
}

TEST(SessionContext, CreatesManagersThatTheCallerOwns)
{
    DerivedSession session;
    session.init();
    const std::unique_ptr<TUSceneChangeManager> changes(session.createChangeManager());
    EXPECT_NE(changes.get(), session.changeManager());
    EXPECT_NE(dynamic_cast<PKC_SceneChangeManager *>(changes.get()), nullptr);
    const std::unique_ptr<SC_CameraManager> cameras(session.createCameraManager());
    EXPECT_NE(cameras.get(), session.cameraManager());
}

TEST(SessionContext, BuildsTheProjectObjectOverTheProjectItIsGiven)
{
    const auto session = newSession();
    SC_Project *const project = newProject(*session);
    session->createPlotkaProject(project);
    ASSERT_NE(session->plotkaProject(), nullptr);
    EXPECT_EQ(session->plotkaProject()->project(), project);
}

TEST(SessionContext, LeavesItsProjectAloneWhenGivenNull)
{
    const auto session = newSession();
    session->createPlotkaProject(nullptr);
    EXPECT_EQ(session->plotkaProject(), nullptr);

    session->createPlotkaProject(newProject(*session));
    PKC_PlotkaProject *const built = session->plotkaProject();
    session->createPlotkaProject(nullptr);
    EXPECT_EQ(session->plotkaProject(), built);
}

TEST(SessionContext, SetsTheFirstAttributeOfTheUnconnectedComposite)
{
    const auto session = newSession();
    SC_Project *const project = newProject(*session);
    const auto *const top = static_cast<const TUScene *>(project->sceneAt(0));
    ASSERT_NE(top->unconnectedComposite(), nullptr);
    EXPECT_FALSE(top->unconnectedComposite()->firstAttribute()->value());

    session->createPlotkaProject(project);
    EXPECT_TRUE(top->unconnectedComposite()->firstAttribute()->value());
}

TEST(SessionContext, BuildsAProjectObjectWithoutACompositeAndWithoutATopScene)
{
    const auto session = newSession();
    SC_Project *const bare = new SC_Project(QStringLiteral("/nowhere"), QStringLiteral("bare"));
    bare->addScene();
    session->createPlotkaProject(bare);
    EXPECT_EQ(session->plotkaProject()->project(), bare);
    session->releaseProject();

    session->createPlotkaProject(new SC_Project(QStringLiteral("/nowhere"), QStringLiteral("empty")));
    EXPECT_EQ(session->plotkaProject()->topScene(), nullptr);
}

TEST(SessionContext, OverwritesAProjectObjectWithoutDeletingIt)
{
    const auto session = newSession();
    SC_Project *const project = newProject(*session);
    session->createPlotkaProject(project);
    const std::unique_ptr<PKC_PlotkaProject> first(session->plotkaProject());
    Obituary obituary;
    obituary.watch(first.get(), "first");

    session->createPlotkaProject(project);
    EXPECT_NE(session->plotkaProject(), first.get());
    EXPECT_TRUE(obituary.ended().empty());
}

TEST(SessionContext, ReleasesTheScenesProjectBeforeTheProjectObject)
{
    const auto session = newSession();
    SC_Project *const project = newProject(*session);
    const UT_SharedWeakPtr<TUScene> top(static_cast<TUScene *>(project->sceneAt(0)));
    session->createPlotkaProject(project);
    bool scenesProjectWasReleased = false;
    QObject *const child = new QObject(session->plotkaProject()); // the project object cuts its own connections
    QObject::connect(child, &QObject::destroyed, session->changeManager(),
        [&] { scenesProjectWasReleased = session->project() == nullptr; });

    session->releaseProject();
    EXPECT_TRUE(scenesProjectWasReleased);
    EXPECT_EQ(session->plotkaProject(), nullptr);
    EXPECT_EQ(session->project(), nullptr);
    EXPECT_TRUE(session->projectManager()->projects().empty());
    EXPECT_EQ(top.get(), nullptr);
}

TEST(SessionContext, EmptiesTheProjectManagerWithOrWithoutAProjectObject)
{
    const auto session = newSession();
    session->releaseProject();
    newProject(*session);
    session->projectManager()->add(new SC_Project(QStringLiteral("/nowhere"), QStringLiteral("other")));
    ASSERT_EQ(session->projectManager()->projects().size(), 2u);
    session->releaseProject();
    EXPECT_TRUE(session->projectManager()->projects().empty());
}

TEST(SessionContext, WorksOnAnotherProjectAfterARelease)
{
    const auto session = newSession();
    session->createPlotkaProject(newProject(*session));
    session->releaseProject();
    session->createPlotkaProject(newProject(*session));
    ASSERT_NE(session->plotkaProject(), nullptr);
    EXPECT_EQ(session->plotkaProject()->project(), session->project());
    EXPECT_EQ(session->plotkaProject()->changeManager(), session->changeManager());
}

TEST(SessionContext, DropsItsPlaybackSystemWithAndWithoutAProject)
{
    const auto session = newSession();
    session->releasePlaybackSystem();
    EXPECT_EQ(session->playbackSystem(), nullptr);
    session->releasePlaybackSystem();
    EXPECT_EQ(session->playbackSystem(), nullptr);

    const auto other = newSession();
    other->createPlotkaProject(newProject(*other));
    other->releasePlaybackSystem();
    EXPECT_EQ(other->playbackSystem(), nullptr);
    EXPECT_NE(other->plotkaProject(), nullptr);
}

TEST(SessionContext, EndsItsProjectObjectBeforeItsManagers)
{
    auto session = newSession();
    session->createPlotkaProject(newProject(*session));
    Obituary obituary;
    obituary.watch(session->plotkaProject(), "project object");
    obituary.watch(session->changeManager(), "change manager");

    session.reset();
    EXPECT_EQ(obituary.ended(), (std::vector<std::string>{"project object", "change manager"}));
}

TEST(SessionContext, SharesEverythingWithItsCopies)
{
    auto session = newSession();
    const auto copy = std::make_unique<PKC_SessionContext>(*session);
    session->createPlotkaProject(newProject(*session));
    EXPECT_EQ(copy->plotkaProject(), session->plotkaProject());
    EXPECT_EQ(copy->changeManager(), session->changeManager());
    EXPECT_EQ(copy->playbackSystem(), session->playbackSystem());
    EXPECT_EQ(copy->project(), session->project());

    Obituary obituary;
    obituary.watch(copy->plotkaProject(), "project object");
    session.reset();
    EXPECT_TRUE(obituary.ended().empty());
    EXPECT_NE(copy->plotkaProject(), nullptr);

    copy->releaseProject();
    EXPECT_EQ(obituary.ended().size(), 1u);
    EXPECT_EQ(copy->plotkaProject(), nullptr);
}

TEST(SessionContext, EndsWhatItHadWhenAnotherIsAssigned)
{
    const auto session = newSession();
    session->createPlotkaProject(newProject(*session));
    const auto other = newSession();
    other->createPlotkaProject(newProject(*other));
    Obituary obituary;
    obituary.watch(session->plotkaProject(), "project object");
    obituary.watch(session->changeManager(), "change manager");

    *session = *other;
    EXPECT_EQ(obituary.ended(), (std::vector<std::string>{"project object", "change manager"}));
    EXPECT_EQ(session->plotkaProject(), other->plotkaProject());
    EXPECT_EQ(session->changeManager(), other->changeManager());
}

TEST(SessionContext, StaysAsItWasWhenAssignedToItself)
{
    const auto session = newSession();
    session->createPlotkaProject(newProject(*session));
    PKC_PlotkaProject *const built = session->plotkaProject();
    const PKC_SessionContext &same = *session;
    *session = same; // cppcheck-suppress selfAssignment
    EXPECT_EQ(session->plotkaProject(), built);
    EXPECT_EQ(built->project(), session->project());
}
