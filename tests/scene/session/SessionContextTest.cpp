#include "scene/metadata/PIO_MetadataBool.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/MO_UnconnectedCompositeModule.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_CameraManager.h"
#include "scene/session/SC_ProjectManager.h"
#include "scene/timeline/AT_SceneSeq.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TimelineSearches.h"
#include "support/News.h"
#include "support/SceneSession.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace
{

using Log = std::vector<std::string>;

class LoggedChangeManager : public TUSceneChangeManager
{
public:
    explicit LoggedChangeManager(Log &log) : m_log(log) {}
    ~LoggedChangeManager() override { m_log.emplace_back("changes die"); }

private:
    Log &m_log;
};

class LoggedCameraManager : public SC_CameraManager
{
public:
    explicit LoggedCameraManager(Log &log) : m_log(log) {}
    ~LoggedCameraManager() override { m_log.emplace_back("cameras die"); }

private:
    Log &m_log;
};

class LoggedRecord : public PIO_MetadataBool
{
public:
    explicit LoggedRecord(Log &log) : m_log(log) {}
    ~LoggedRecord() override { m_log.emplace_back("project dies"); }

private:
    Log &m_log;
};

class LoggedSession : public SC_SessionContext
{
public:
    explicit LoggedSession(Log &log) : SC_SessionContext(nullptr, nullptr), m_log(log) {}

    using SC_SessionContext::init;

protected:
    TUSceneChangeManager *createChangeManager() override
    {
        m_log.emplace_back("make changes");
        return new LoggedChangeManager(m_log);
    }
    SC_CameraManager *createCameraManager() override
    {
        m_log.emplace_back("make cameras");
        return new LoggedCameraManager(m_log);
    }

private:
    Log &m_log;
};

const QString somewhere = QStringLiteral("/nowhere");
const QString film = QStringLiteral("Film");

} // namespace

TEST(SessionContext, MakesItsManagersOnceInitialised)
{
    Log log;
    {
        LoggedSession session(log);
        EXPECT_EQ(session.changeManager(), nullptr);
        EXPECT_EQ(session.cameraManager(), nullptr);
        EXPECT_NE(session.projectManager(), nullptr);
        EXPECT_EQ(session.project(), nullptr);
        EXPECT_TRUE(log.empty()) << "the constructor asks the derived class for nothing";
        session.init();
        session.init();
        EXPECT_NE(dynamic_cast<LoggedChangeManager *>(session.changeManager()), nullptr);
        EXPECT_NE(dynamic_cast<LoggedCameraManager *>(session.cameraManager()), nullptr);
        session.newProject(somewhere, film)->metadatas()->add(new LoggedRecord(log));
    }
    EXPECT_EQ(log, (Log{"make changes", "make cameras", "project dies", "cameras die", "changes die"}));
}

TEST(SessionContext, SharesItsManagersWithItsCopies)
{
    Log log;
    auto first = std::make_unique<LoggedSession>(log);
    first->init();
    auto copy = std::make_unique<LoggedSession>(*first);
    EXPECT_EQ(copy->changeManager(), first->changeManager());
    EXPECT_EQ(copy->projectManager(), first->projectManager());
    SC_Project *const project = first->newProject(somewhere, film);
    EXPECT_EQ(copy->project(), project);
    project->metadatas()->add(new LoggedRecord(log));
    log.clear();
    first.reset();
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(copy->project(), project);
    copy.reset();
    EXPECT_EQ(log, (Log{"project dies", "cameras die", "changes die"}));
}

TEST(SessionContext, GivesUpItsOwnWhenAssigned)
{
    SceneSession session;
    SceneSession other;
    session.newProject(somewhere, film);
    SC_Project *const kept = other.newProject(somewhere, QStringLiteral("Other"));
    const UT_SharedWeakPtr<TUScene> watch(&session.top());
    const SceneSession &itself = session;
    session = itself;
    EXPECT_TRUE(watch);
    session = other;
    EXPECT_FALSE(watch);
    EXPECT_EQ(session.project(), kept);
    EXPECT_EQ(session.changeManager(), other.changeManager());
}

TEST(SessionContext, StartsAProjectReadyForPanels)
{
    SceneSession session;
    News news(*session.changeManager());
    SC_Project *const project = session.newProject(QStringLiteral("/nowhere/films/"), film);
    ASSERT_NE(project, nullptr);
    EXPECT_EQ(session.project(), project);
    EXPECT_EQ(project->refCount, 1);
    EXPECT_EQ(project->projectCommon()->dbSceneData()->sceneName(), film);
    EXPECT_EQ(project->projectCommon()->dbSceneData()->projectDir(), QStringLiteral("/nowhere/films"));
    EXPECT_EQ(project->projectCommon()->changeManager(), session.changeManager());
    EXPECT_EQ(project->sceneCount(), 1u);
    const TUScene &top = session.top();
    ASSERT_NE(top.unconnectedComposite(), nullptr);
    ASSERT_EQ(top.timedValues().size(), 1u);
    TUSeqTimedValue *const timeline = sceneMainTv(&top);
    ASSERT_NE(timeline, nullptr);
    EXPECT_EQ(timeline->blockCount(), 0u);
    ASSERT_NE(top.getRootGroup(), nullptr);
    const std::vector<MO_Node *> nodes = top.getRootGroup()->compositionOrder();
    ASSERT_EQ(nodes.size(), 1u);
    EXPECT_EQ(timeline->linkedNodes(0), nodes[0]);
    EXPECT_EQ(linkedSeqTv(nodes[0]), timeline);
    EXPECT_EQ(news.told(), "") << "making a project is no change";
}

TEST(SessionContext, MakesNoProjectWithoutAPlaceOrName)
{
    SceneSession session;
    SC_Project *const before = session.newProject(somewhere, film);
    EXPECT_EQ(session.newProject(QString(), film), nullptr);
    EXPECT_EQ(session.newProject(somewhere, QString()), nullptr);
    EXPECT_EQ(session.newProject(somewhere, QStringLiteral("a/b")), nullptr);
    EXPECT_EQ(session.project(), before);
}

TEST(SessionContext, WorksOnOneProjectAndLeavesTheOneBeforeToItsHolders)
{
    SceneSession session;
    UT_SharedPtr<SC_Project> first(session.newProject(somewhere, film));
    const UT_SharedWeakPtr<TUScene> watch(&session.top());
    SC_Project *const second = session.newProject(somewhere, QStringLiteral("Second"));
    EXPECT_EQ(session.project(), second);
    EXPECT_EQ(session.projectManager()->projects().size(), 1u);
    EXPECT_EQ(first->refCount, 1);
    EXPECT_TRUE(watch);
    first = nullptr;
    EXPECT_FALSE(watch);
}

TEST(SessionContext, ReleasesItsProjectToWhoeverHoldsIt)
{
    SceneSession session;
    News news(*session.changeManager());
    const UT_SharedPtr<SC_Project> held(session.newProject(somewhere, film));
    session.releaseProject();
    EXPECT_EQ(session.project(), nullptr);
    session.releaseProject();
    held->addScene();
    EXPECT_EQ(news.told(), "sceneChanged");
}

TEST(SessionContext, LeavesAProjectThatOutlivesItWithoutAChangeManager)
{
    UT_SharedPtr<SC_Project> held;
    {
        SceneSession session;
        held = UT_SharedPtr<SC_Project>(session.newProject(somewhere, film));
    }
    EXPECT_EQ(held->projectCommon()->changeManager(), nullptr);
    TUScene *const scene = held->addScene();
    ASSERT_NE(scene, nullptr);
    EXPECT_TRUE(sceneMainTv(static_cast<TUScene *>(held->sceneAt(0)))->insertBlock(1, 5, new AT_SceneSeq(scene)));
    EXPECT_TRUE(held->removeScene(scene));
}

TEST(ProjectManager, HoldsProjectsUntilItIsCleaned)
{
    SC_ProjectManager manager;
    manager.add(nullptr);
    EXPECT_TRUE(manager.projects().empty());
    SC_Project *const a = new SC_Project(somewhere, QStringLiteral("a"));
    const UT_SharedPtr<SC_Project> b(new SC_Project(somewhere, QStringLiteral("b")));
    manager.add(a);
    manager.add(b.get());
    EXPECT_EQ(manager.projects().size(), 2u);
    EXPECT_EQ(b->refCount, 2);
    manager.remove(nullptr);
    manager.remove(a);
    EXPECT_EQ(manager.projects().size(), 1u);
    manager.clean();
    EXPECT_TRUE(manager.projects().empty());
    EXPECT_EQ(b->refCount, 1);
}

TEST(ProjectManager, IsWholeWhileAProjectDies)
{
    SC_ProjectManager manager;
    Log log;
    class Asks : public PIO_MetadataBool
    {
    public:
        Asks(const SC_ProjectManager &manager, std::size_t left, Log &log) :
            m_manager(manager), m_left(left), m_log(log)
        {
        }
        ~Asks() override
        {
            EXPECT_EQ(m_manager.projects().size(), m_left);
            for (const UT_SharedPtr<SC_Project> &project : m_manager.projects())
                EXPECT_TRUE(project);
            m_log.emplace_back("asked");
        }

    private:
        const SC_ProjectManager &m_manager;
        std::size_t m_left;
        Log &m_log;
    };
    SC_Project *const a = new SC_Project(somewhere, QStringLiteral("a"));
    SC_Project *const b = new SC_Project(somewhere, QStringLiteral("b"));
    SC_Project *const c = new SC_Project(somewhere, QStringLiteral("c"));
    a->metadatas()->add(new Asks(manager, 2, log));
    b->metadatas()->add(new Asks(manager, 0, log));
    c->metadatas()->add(new Asks(manager, 0, log));
    manager.add(a);
    manager.add(b);
    manager.add(c);
    manager.remove(a);
    manager.clean();
    EXPECT_EQ(log.size(), 3u);
}

TEST(SessionContext, StandsReceiversThatDropTheProjectInTheMiddleOfAPass)
{
    SceneSession session;
    session.makeProject();
    TUScene *const shot = session.project()->addScene();
    TUSeqTimedValue *const timeline = sceneMainTv(&session.top());
    const UT_SharedPtr<MO_Node> node(new MO_ElementModule(shot->sceneCommon(), QStringLiteral("A")));
    PIO_MetadataBool *const record = new PIO_MetadataBool(QStringLiteral("r"));
    shot->metadatas()->add(record);
    News news(*session.changeManager());
    ASSERT_TRUE(timeline->insertBlock(1, 5, new AT_SceneSeq(shot)));
    ASSERT_TRUE(shot->getRootGroup()->addNode(node));
    node->setEnabled(false);
    record->emitChanged(session.changeManager(), 1);
    QObject::connect(
        session.changeManager(), &TUSceneChangeManager::sceneChanged, &news, [&] { session.releaseProject(); });
    EXPECT_EQ(news.told(),
        "sceneChanged timedValuesChanged{dead} nodesChanged{A} networkChanged{A} "
        "subNetworkChanged{dead} nodeChangeApplied{A}");
    EXPECT_EQ(session.project(), nullptr);
    EXPECT_EQ(node->sceneCommon(), nullptr);
}
