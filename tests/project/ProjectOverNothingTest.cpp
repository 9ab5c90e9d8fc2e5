#include "support/Printers.h"
#include "support/Storyboard.h"

#include "scene/network/MO_ElementModule.h"
#include "scene/session/SC_ProjectManager.h"
#include "tracking/PKC_SceneChangeManager.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>

using namespace Plotka;

namespace
{

enum class Over { NoProject, NoScene, NoTimedValue };

const char *nameOf(Over over)
{
    return over == Over::NoProject ? "NoProject" : over == Over::NoScene ? "NoScene" : "NoTimedValue";
}

SC_Project *sceneProjectOf(Over over)
{
    if (over == Over::NoProject)
        return nullptr;
    SC_Project *const scenes = new SC_Project(QStringLiteral("/nowhere"), QStringLiteral("bare"));
    if (over == Over::NoTimedValue)
        scenes->addScene();
    return scenes;
}

/// A project object with nothing to answer from, and handles of another project to ask it about, valid and invalid.
class ProjectOverNothing : public testing::TestWithParam<Over>
{
protected:
    ProjectOverNothing() : project(sceneProjectOf(GetParam())), other("A(10,5) ~3+2~ B(9,4)")
    {
        for (unsigned int place = 0; place < other->shotCount(); ++place)
            shots.push_back(other->getShotByNdx(place));
        for (unsigned int place = 0; place < other->panelCount(); ++place)
            panels.push_back(other->getPanelByNdx(place));
        transitions.push_back(other->getTransByNdx(0));
        for (const Shot_t &shot : shots)
            ids.push_back(shot.id());
        for (const Panel_t &panel : panels)
            ids.push_back(panel.id());
        ids.push_back(transitions.front().id());
        EXPECT_TRUE(std::none_of(ids.begin(), ids.end(), [](const SC_Id &id) { return id.isNull(); }));
        shots.push_back(Shot_t());
        panels.push_back(Panel_t());
        transitions.push_back(Trans_t());
        ids.push_back(SC_Id());
    }

    template <typename Iterator>
    static void standsAtTheEnd(Iterator at, const Iterator &end)
    {
        EXPECT_TRUE(at == end);
        EXPECT_TRUE(++at == end);
        EXPECT_TRUE(--at == end);
        EXPECT_TRUE(at.first() == end);
        EXPECT_TRUE(at.last() == end);
    }

    PKC_PlotkaProject project;
    Storyboard other;
    std::vector<Shot_t> shots;
    std::vector<Panel_t> panels;
    std::vector<Trans_t> transitions;
    std::vector<SC_Id> ids;
};

constexpr unsigned int frames[] = {0, 1, 12, 4294967295u};
constexpr bool either[] = {false, true};
constexpr PKC_PlotkaProject::ResolutionPriority priorities[] = {
    PKC_PlotkaProject::ResolveBackward, PKC_PlotkaProject::ResolveForward};

} // namespace

INSTANTIATE_TEST_SUITE_P(Everywhere, ProjectOverNothing,
    testing::Values(Over::NoProject, Over::NoScene, Over::NoTimedValue),
    [](const auto &over) { return nameOf(over.param); });

TEST_P(ProjectOverNothing, HandsOutWhatThereIs)
{
    const bool hasProject = GetParam() != Over::NoProject;
    EXPECT_EQ(project.project() != nullptr, hasProject);
    EXPECT_EQ(project.projectCommon() != nullptr, hasProject);
    EXPECT_EQ(project.changeManager(), nullptr);
    EXPECT_EQ(project.topScene() != nullptr, GetParam() == Over::NoTimedValue);
    EXPECT_EQ(project.topMainTv(), nullptr);
    EXPECT_EQ(project.name(), hasProject ? QStringLiteral("bare") : QString());
    EXPECT_EQ(project.referenceToolData() != nullptr, hasProject);
    EXPECT_EQ(project.deletedPanels() != nullptr, hasProject);
    EXPECT_EQ(project.projectLinkInfo() != nullptr, hasProject);
    EXPECT_EQ(project.projectCompatibility() != nullptr, hasProject);
    EXPECT_EQ(project.namingRules() != nullptr, hasProject);
}

TEST_P(ProjectOverNothing, KeepsItsSwitchAndItsLock)
{
    project.invalidate();
    EXPECT_TRUE(project.cacheEnabled());
    project.setCacheEnabled(false);
    {
        const PKC_PlotkaProject::CacheActivator on(&project);
        EXPECT_TRUE(project.cacheEnabled());
        const PKC_PlotkaProject::CacheDesactivator off(&project);
        EXPECT_FALSE(project.cacheEnabled());
    }
    EXPECT_FALSE(project.cacheEnabled());
    {
        const PKC_PlotkaProject::LockHelper lock(&project);
        EXPECT_TRUE(PKC_PlotkaProject::LockHelper::isLocked(&project));
    }
    EXPECT_FALSE(PKC_PlotkaProject::LockHelper::isLocked(&project));
    project.updateSavedPanelIds();
    for (const SC_Id &id : ids)
        EXPECT_TRUE(project.isNewPanelIds(id));
}

TEST_P(ProjectOverNothing, LeadsNowhere)
{
    for (const bool cacheOn : either) {
        project.setCacheEnabled(cacheOn);
        for (const Shot_t &shot : shots) {
            EXPECT_TRUE(project.first(shot).isInvalid());
            EXPECT_TRUE(project.last(shot).isInvalid());
            EXPECT_TRUE(project.next(shot).isInvalid());
            EXPECT_TRUE(project.prev(shot).isInvalid());
            standsAtTheEnd(project.beginPanel(shot), project.endPanel(shot));
            standsAtTheEnd(project.rbeginPanel(shot), project.rendPanel(shot));
        }
        for (const Panel_t &panel : panels) {
            EXPECT_TRUE(project.first(panel).isInvalid());
            EXPECT_TRUE(project.last(panel).isInvalid());
            EXPECT_TRUE(project.next(panel).isInvalid());
            EXPECT_TRUE(project.prev(panel).isInvalid());
            EXPECT_TRUE(project.firstInShot(panel).isInvalid());
            EXPECT_TRUE(project.lastInShot(panel).isInvalid());
        }
        for (const Trans_t &transition : transitions) {
            EXPECT_TRUE(project.first(transition).isInvalid());
            EXPECT_TRUE(project.last(transition).isInvalid());
            EXPECT_TRUE(project.next(transition).isInvalid());
            EXPECT_TRUE(project.prev(transition).isInvalid());
        }
        standsAtTheEnd(project.beginPanel(), project.endPanel());
        standsAtTheEnd(project.rbeginPanel(), project.rendPanel());
        standsAtTheEnd(project.beginShot(), project.endShot());
        standsAtTheEnd(project.rbeginShot(), project.rendShot());
        standsAtTheEnd(project.beginTrans(), project.endTrans());
        standsAtTheEnd(project.rbeginTrans(), project.rendTrans());
        standsAtTheEnd(project.beginPanelTrans(), project.endPanelTrans());
        standsAtTheEnd(project.rbeginPanelTrans(), project.rendPanelTrans());
        standsAtTheEnd(project.beginShotTrans(), project.endShotTrans());
    }
}

TEST_P(ProjectOverNothing, HasNothingAtAnyFrame)
{
    for (const bool cacheOn : either) {
        project.setCacheEnabled(cacheOn);
        for (const unsigned int frame : frames) {
            for (const auto priority : priorities) {
                for (const bool nearest : either) {
                    for (const bool forward : either) {
                        EXPECT_TRUE(project.getShotAt(frame, priority, nearest, forward).isInvalid());
                        EXPECT_TRUE(project.getPanelAt(frame, priority, nearest, forward).isInvalid());
                        for (const Shot_t &shot : shots)
                            EXPECT_TRUE(project.getPanelIn(shot, frame, nearest, forward).isInvalid());
                    }
                }
            }
            EXPECT_TRUE(project.getTransAt(frame).isInvalid());
            EXPECT_TRUE(project.getSpaceAt(frame).isInvalid());
            EXPECT_FALSE(project.hasSpaceAt(frame));
            EXPECT_TRUE(project.panelTransAt(frame) == project.endPanelTrans());
            EXPECT_TRUE(project.panelTransAfter(frame) == project.endPanelTrans());
            EXPECT_TRUE(project.panelTransBefore(frame) == project.endPanelTrans());
        }
        for (const Shot_t &shot : shots) {
            for (const Panel_t &panel : panels) {
                EXPECT_TRUE(project.getPanelIn(shot, panel, /*lockedOnly*/ false).isInvalid());
                EXPECT_TRUE(project.getPanelIn(shot, panel, /*lockedOnly*/ true).isInvalid());
            }
        }
    }
}

TEST_P(ProjectOverNothing, KnowsNoIdPlaceOrName)
{
    for (const bool cacheOn : either) {
        project.setCacheEnabled(cacheOn);
        for (const SC_Id &id : ids) {
            EXPECT_TRUE(project.getShotByID(id).isInvalid());
            EXPECT_TRUE(project.getPanelByID(id).isInvalid());
            EXPECT_TRUE(project.getTransByID(id).isInvalid());
            EXPECT_TRUE(project.getPanelTransById(id).isInvalid());
            EXPECT_TRUE(project.panelTransById(id) == project.endPanelTrans());
            EXPECT_FALSE(project.isShotValid(id));
            EXPECT_FALSE(project.isPanelValid(id));
            EXPECT_FALSE(project.isTransValid(id));
            EXPECT_FALSE(project.areAllPanelsOfSameScene({id}));
            EXPECT_FALSE(project.neighborIsOfSameScene(id, id));
        }
        EXPECT_TRUE(project.areAllPanelsOfSameScene({}));
        for (const unsigned int place : {0u, 1u, PKC_PlotkaProject::invalidNdx}) {
            EXPECT_TRUE(project.getShotByNdx(place).isInvalid());
            EXPECT_TRUE(project.getPanelByNdx(place).isInvalid());
            EXPECT_TRUE(project.getTransByNdx(place).isInvalid());
        }
        for (const Shot_t &shot : shots) {
            EXPECT_EQ(project.getShotNdx(shot), PKC_PlotkaProject::invalidNdx);
            EXPECT_TRUE(project.panelsIdIn(shot).empty());
        }
        for (const Panel_t &panel : panels) {
            EXPECT_EQ(project.getPanelNdx(panel, /*inShot*/ false), PKC_PlotkaProject::invalidNdx);
            EXPECT_EQ(project.getPanelNdx(panel, /*inShot*/ true), PKC_PlotkaProject::invalidNdx);
            for (const Panel_t &second : panels) {
                EXPECT_TRUE(project.panelsIdBetween(panel, second, /*inclusive*/ false).empty());
                EXPECT_TRUE(project.panelsIdBetween(panel, second, /*inclusive*/ true).empty());
            }
        }
        for (const QString &name : {QString(), QStringLiteral("A")}) {
            EXPECT_EQ(project.getShotNdx(name), PKC_PlotkaProject::invalidNdx);
            EXPECT_TRUE(project.getShotByName(name, QString(), /*upperCase*/ false).isInvalid());
            EXPECT_TRUE(project.getShotByName(name, name, /*upperCase*/ true).isInvalid());
        }
    }
}

TEST_P(ProjectOverNothing, CountsNothing)
{
    for (const bool cacheOn : either) {
        project.setCacheEnabled(cacheOn);
        EXPECT_EQ(project.shotCount(), 0u);
        EXPECT_EQ(project.panelCount(), 0u);
        EXPECT_EQ(project.transCount(), 0u);
        for (const Shot_t &shot : shots)
            EXPECT_EQ(project.panelCount(shot), 0u);
        EXPECT_EQ(project.getNumOfFrames(), 0u);
        EXPECT_EQ(project.getNumOfAudioFrames(/*all*/ false), 0u);
        EXPECT_EQ(project.getNumOfAudioFrames(/*all*/ true), 0u);
    }
}

TEST_P(ProjectOverNothing, HasNothingNextToAnything)
{
    const auto nothingBeside = [this](const auto &object) {
        Space_t space(1, 2);
        EXPECT_FALSE(project.isFollowedBySpace(object));
        EXPECT_FALSE(project.isPrecededBySpace(object));
        EXPECT_FALSE(project.isFollowedBySpace(object, &space));
        EXPECT_EQ(space.isInvalid(), object.isValid()); // an invalid object leaves it alone
        EXPECT_FALSE(project.isPrecededBySpace(object, &space));
        EXPECT_EQ(space.isInvalid(), object.isValid());

        Trans_t transition = transitions.front();
        EXPECT_FALSE(project.isFollowedByTrans(object));
        EXPECT_FALSE(project.isPrecededByTrans(object));
        EXPECT_FALSE(project.isFollowedByTrans(object, &transition));
        EXPECT_TRUE(transition.isInvalid());
        transition = transitions.front();
        EXPECT_FALSE(project.isPrecededByTrans(object, &transition));
        EXPECT_TRUE(transition.isInvalid());
    };
    std::for_each(shots.begin(), shots.end(), nothingBeside);
    std::for_each(panels.begin(), panels.end(), nothingBeside);
}

TEST_P(ProjectOverNothing, FindsNothingOfScenes)
{
    TUScene *const scene = other.panelScene(0, 0);
    const MO_ElementModule node(scene->sceneCommon(), QStringLiteral("layer"));
    for (const bool cacheOn : either) {
        project.setCacheEnabled(cacheOn);
        for (const SC_SceneCommon *common :
            {static_cast<const SC_SceneCommon *>(nullptr), static_cast<const SC_SceneCommon *>(scene->sceneCommon())}) {
            EXPECT_TRUE(project.sceneCommonToPanel(common).isInvalid());
            EXPECT_TRUE(project.sceneCommonToShot(common).isInvalid());
        }
        EXPECT_TRUE(project.nodeToPanel(nullptr).isInvalid());
        EXPECT_TRUE(project.nodeToPanel(&node).isInvalid());
        for (const TUTimedValue *timedValue :
            {static_cast<const TUTimedValue *>(nullptr), static_cast<const TUTimedValue *>(other.panelTrack(0))}) {
            EXPECT_TRUE(project.tvToPanel(timedValue).isInvalid());
            EXPECT_TRUE(project.tvToShot(timedValue).isInvalid());
        }
    }
}

TEST(ProjectScopes, OverNullDoNothing)
{
    const PKC_PlotkaProject::CacheActivator on(nullptr);
    const PKC_PlotkaProject::CacheDesactivator off(nullptr);
    const PKC_PlotkaProject::LockHelper lock(nullptr);
    EXPECT_FALSE(PKC_PlotkaProject::LockHelper::isLocked(nullptr));
}

TEST(SessionWithoutAProject, AnswersNeutrally)
{
    const std::unique_ptr<PKC_SessionContext> session(PKC_SessionContext::createSessionContext(nullptr, nullptr));
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(session->plotkaProject(), nullptr);
        EXPECT_EQ(session->project(), nullptr);
        EXPECT_NE(session->changeManager(), nullptr);
        EXPECT_NE(session->cameraManager(), nullptr);
        ASSERT_NE(session->projectManager(), nullptr);
        EXPECT_TRUE(session->projectManager()->projects().empty());
        EXPECT_EQ(session->playbackSystem() != nullptr, round == 0);
        session->createPlotkaProject(nullptr);
        EXPECT_EQ(session->newProject(QString(), QString()), nullptr);
        EXPECT_EQ(session->openProject(QString()), nullptr);
        EXPECT_FALSE(session->saveProject());
        EXPECT_FALSE(session->saveProjectAs(QStringLiteral("/nowhere/cut.plotka")));
        session->changeManager()->notify();
        session->releasePlaybackSystem();
        session->releaseProject();
    }
    const PKC_SessionContext copy(*session);
    EXPECT_EQ(copy.plotkaProject(), nullptr);
}
