#include "support/Printers.h"
#include "support/Problems.h"
#include "support/Storyboard.h"

#include "scene/timeline/AT_TransitionSeq.h"
#include "scene/timeline/TUSoundTimedValue.h"
#include "tracking/PKC_SceneChangeManager.h"

#include <gtest/gtest.h>

using namespace Plotka;

using CacheActivator = PKC_PlotkaProject::CacheActivator;
using CacheDesactivator = PKC_PlotkaProject::CacheDesactivator;

namespace
{

/// Asks for a count, adds a shot behind the project's back and asks again: the old answer shows that it is still
/// remembered. The next answers are those of the longer timeline once it has been forgotten.
class Remembered
{
public:
    explicit Remembered(Storyboard &board) : m_board(board)
    {
        m_count = board->shotCount();
        board.addShot("behind the back", 5);
        board.session().changeManager()->clear();
    }

    bool still() const { return m_board->shotCount() == m_count; }

private:
    Storyboard &m_board;
    unsigned int m_count;
};

/// Opens up buildAll() and the slots.
class OpenProject : public PKC_PlotkaProject
{
public:
    using PKC_PlotkaProject::buildAll;
    using PKC_PlotkaProject::onSceneChanged;
    using PKC_PlotkaProject::onTimedValuesChanged;
    using PKC_PlotkaProject::PKC_PlotkaProject;
};

} // namespace

TEST(ProjectCaches, AreOnAtFirst)
{
    Storyboard board("A(4)");
    EXPECT_TRUE(PKC_PlotkaProject(&board.sceneProject()).cacheEnabled());
}

TEST(ProjectCaches, KeepTheirAnswersUntilInvalidated)
{
    Storyboard board("A(4)");
    const Remembered remembered(board);
    EXPECT_TRUE(remembered.still());
    board->invalidate();
    EXPECT_FALSE(remembered.still());
}

TEST(ProjectCaches, StayWhenTheSwitchIsSetToItsValue)
{
    Storyboard board("A(4)");
    const Remembered remembered(board);
    board->setCacheEnabled(true);
    EXPECT_TRUE(remembered.still());
}

TEST(ProjectCaches, GoWithEachChangeOfTheSwitch)
{
    Storyboard board("A(4)");
    const Remembered remembered(board);
    board->setCacheEnabled(false);
    board->setCacheEnabled(true);
    EXPECT_FALSE(remembered.still());
    EXPECT_TRUE(board->cacheEnabled());
}

TEST(ProjectCaches, HoldNothingWhileTheyAreOff)
{
    Storyboard board("A(4) B(5) ~1+1~ C(6)", /*cacheOn*/ false);
    EXPECT_EQ(board->shotCount(), 3u);
    EXPECT_EQ(board->panelCount(), 3u);
    EXPECT_EQ(board->transCount(), 1u);
    ASSERT_TRUE(board->getShotByID(board.shotId(0)).isValid());
    ASSERT_TRUE(board->getPanelByID(board.panelId(0, 0)).isValid());
    const TUScene *const panelScene = board.panelScene(0, 0);
    ASSERT_TRUE(board->sceneCommonToPanel(panelScene->sceneCommon()).isValid());
    const SC_Id shot = board.shotId(0);
    const SC_Id panel = board.panelId(0, 0);
    const SC_Id trans = board.transitionId(0);

    board.liftShot(0);
    board.removeTransition(0);
    board.addShot("D", 3);
    board.session().changeManager()->clear();
    EXPECT_EQ(board->shotCount(), 3u);
    EXPECT_EQ(board->panelCount(), 3u);
    EXPECT_EQ(board->transCount(), 0u);
    EXPECT_FALSE(board->isShotValid(shot));
    EXPECT_FALSE(board->isPanelValid(panel));
    EXPECT_FALSE(board->isTransValid(trans));
    EXPECT_TRUE(board->sceneCommonToPanel(panelScene->sceneCommon()).isInvalid());
    EXPECT_EQ(board.shotNameAt(1), "");
    EXPECT_EQ(problemsOf(board.project()), "");
}

TEST(ProjectCaches, AnswerForObjectsThatHaveGoneUntilNotified)
{
    Storyboard board("A(4) B(5) ~1+1~ C(6)");
    const SC_Id shot = board.shotId(0);
    const SC_Id panel = board.panelId(0, 0);
    const SC_Id trans = board.transitionId(0);
    ASSERT_TRUE(board->isShotValid(shot) && board->isPanelValid(panel) && board->isTransValid(trans));
    ASSERT_EQ(board->transCount(), 1u);

    board.liftShot(0);
    board.removeTransition(0);
    EXPECT_TRUE(board->isShotValid(shot));
    EXPECT_TRUE(board->isPanelValid(panel));
    EXPECT_TRUE(board->isTransValid(trans));
    EXPECT_EQ(board->transCount(), 1u);

    board.notify();
    EXPECT_FALSE(board->isShotValid(shot));
    EXPECT_FALSE(board->isPanelValid(panel));
    EXPECT_FALSE(board->isTransValid(trans));
    EXPECT_EQ(board->transCount(), 0u);
}

TEST(ProjectCaches, AreDroppedWhole)
{
    Storyboard board("A(4,5) B(6) ~1+1~ C(7)");
    // By frame, by id, by scene, of a shot, and the counts.
    ASSERT_EQ(board.shotNameAt(2), "A");
    ASSERT_EQ(board->panelCount() + board->shotCount() + board->transCount(), 8u);
    const TUScene *const shotScene = board.shotScene(0);
    const TUScene *const panelScene = board.panelScene(0, 1);
    const Shot_t shot = board->sceneCommonToShot(shotScene->sceneCommon());
    const Panel_t panel = board->sceneCommonToPanel(panelScene->sceneCommon());
    const SC_Id trans = board->getTransAt(15).id();
    ASSERT_TRUE(shot.isValid() && panel.isValid() && board->isTransValid(trans));

    board.liftShot(0);
    board.removeTransition(0);
    board.notify();
    EXPECT_EQ(board.shotNameAt(2), "");
    EXPECT_EQ(board.panelNameAt(2), "");
    EXPECT_FALSE(board->isShotValid(shot.id()));
    EXPECT_FALSE(board->isPanelValid(panel.id()));
    EXPECT_FALSE(board->isTransValid(trans));
    EXPECT_TRUE(board->getTransAt(15).isInvalid());
    EXPECT_TRUE(board->sceneCommonToShot(shotScene->sceneCommon()).isInvalid());
    EXPECT_TRUE(board->sceneCommonToPanel(panelScene->sceneCommon()).isInvalid());
    EXPECT_EQ(framesOf(board.project()), "B 10-14 (10-15) | C 15-20 (15-21)");
}

TEST(ProjectCaches, OfAShotFollowAnEditInsideIt)
{
    Storyboard board("A(p=4,q=5) B(r=6)");
    ASSERT_EQ(board.panelNameAt(5), "q");
    ASSERT_EQ(board.panelNameAt(10), "r");
    board.rollPanels(0, 0, 2);
    board.notify();
    EXPECT_EQ(board.panelNameAt(5), "p");
    EXPECT_EQ(board.panelNameAt(7), "q");
    EXPECT_EQ(board.panelNameAt(10), "r");
}

TEST(ProjectCaches, CountAnEmptyTimelineAnewEachTime)
{
    Storyboard board;
    EXPECT_EQ(board->shotCount(), 0u);
    EXPECT_EQ(board->panelCount(), 0u);
    board.addShot("A", 5);
    board.session().changeManager()->clear();
    EXPECT_EQ(board->shotCount(), 1u);
    EXPECT_EQ(board->panelCount(), 1u);
}

TEST(ProjectCaches, AreDroppedByTheNewsThatScenesChanged)
{
    Storyboard board("A(4)");
    const Remembered remembered(board);
    board.session().changeManager()->emitSceneChanged();
    EXPECT_TRUE(remembered.still());
    board.notify();
    EXPECT_FALSE(remembered.still());
}

TEST(ProjectCaches, AreDroppedByTheNewsThatTheTimelineChanged)
{
    Storyboard board("A(4)");
    const Remembered remembered(board);
    board.session().changeManager()->emitTimedValueChanged(&board.timeline());
    EXPECT_TRUE(remembered.still());
    board.notify();
    EXPECT_FALSE(remembered.still());
}

TEST(ProjectCaches, AreDroppedByTheTimelineAmongOthers)
{
    Storyboard board("A(4)");
    TUTimedValue *const other = board.topScene().addSoundTimedValue(QStringLiteral("sound"));
    const Remembered remembered(board);
    board.session().changeManager()->emitTimedValueChanged(other);
    board.session().changeManager()->emitTimedValueChanged(&board.timeline());
    board.notify();
    EXPECT_FALSE(remembered.still());
}

TEST(ProjectCaches, StayWhenAnotherTimedValueChanged)
{
    Storyboard board("A(4)");
    TUTimedValue *const other = board.topScene().addSeqTimedValue(QStringLiteral("track"));
    const Remembered remembered(board);
    board.session().changeManager()->emitTimedValueChanged(other);
    board.session().changeManager()->emitTimedValueChanged(board.panelTrack(0));
    board.notify();
    EXPECT_TRUE(remembered.still());
}

TEST(ProjectCaches, StayAtAllOtherNews)
{
    Storyboard board("A(4)");
    const Remembered remembered(board);
    PKC_SceneChangeManager &changes = *board.session().changeManager();
    changes.emitTimedValueAdded(&board.timeline());
    changes.emitTimedValueRemoved(&board.timeline());
    changes.emitTimedValueNameChanged(&board.timeline());
    changes.emitSelectionChanged();
    changes.emitSceneResized();
    changes.emitProjectUnloaded();
    board.notify();
    EXPECT_TRUE(remembered.still());
}

TEST(ProjectCaches, AreDroppedByTheSlotsThemselves)
{
    Storyboard board("A(4)");
    OpenProject project(&board.sceneProject());
    const auto edit = [&board] {
        board.addShot("late", 3);
        board.session().changeManager()->clear();
    };
    ASSERT_EQ(project.shotCount(), 1u);
    edit();
    project.onTimedValuesChanged(TUTvSet());
    EXPECT_EQ(project.shotCount(), 1u);
    project.onSceneChanged();
    EXPECT_EQ(project.shotCount(), 2u);
    edit();
    TUTvSet changed;
    changed.insert(UT_SharedWeakPtr<TUTimedValue>(&board.timeline()));
    project.onTimedValuesChanged(changed);
    EXPECT_EQ(project.shotCount(), 3u);
}

TEST(ProjectCaches, BearNewsWithoutATimeline)
{
    SC_Project *const scenes = new SC_Project(QStringLiteral("/nowhere"), QStringLiteral("empty"));
    OpenProject project(scenes);
    project.onTimedValuesChanged(TUTvSet());
    project.onSceneChanged();
    EXPECT_EQ(project.shotCount(), 0u);
}

TEST(ProjectCaches, AreFilledByAFullWalk)
{
    Storyboard board("A(4,5) B(6) ~1+1~ C(7)");
    const SC_Id panel = board.panelId(2, 0);
    const SC_Id trans = board.transitionId(0);
    OpenProject filled(&board.sceneProject());
    OpenProject fresh(&board.sceneProject());
    fresh.invalidate();
    filled.invalidate();
    filled.buildAll();

    board.removeTransition(0);
    board.liftShot(2);
    board.session().changeManager()->clear();
    EXPECT_TRUE(filled.isPanelValid(panel));
    EXPECT_TRUE(filled.isTransValid(trans));
    EXPECT_FALSE(fresh.isPanelValid(panel));
    EXPECT_FALSE(fresh.isTransValid(trans));
}

TEST(ProjectCaches, AreFilledByTheConstruction)
{
    Storyboard board("A(4,5) B(6)");
    const SC_Id panel = board.panelId(0, 1);
    board.removePanel(0, 1);
    board.session().changeManager()->clear();
    EXPECT_TRUE(board->isPanelValid(panel));
}

TEST(ProjectCaches, GiveTheSameHandleAgain)
{
    Storyboard board("A(4) B(5)");
    // Handles compare by id; what they share tells one object from two of one id.
    const auto share = [](const Shot_t &a, const Shot_t &b) { return a.SharedPtr<ShotPrivate>::operator==(b); };
    const auto shotAt = [&board](unsigned int frame) {
        return board->getShotAt(frame, PKC_PlotkaProject::ResolveBackward, false, true);
    };
    const Shot_t before = shotAt(2);
    EXPECT_TRUE(share(before, shotAt(3)));
    EXPECT_TRUE(share(before, board->getShotByID(board.shotId(0))));
    EXPECT_TRUE(share(before, board->first(Shot_t())));

    board->invalidate();
    EXPECT_EQ(before, shotAt(2));
    EXPECT_FALSE(share(before, shotAt(2)));
}

TEST(CacheSwitch, IsPutBackByItsScopes)
{
    Storyboard board("A(4)");
    {
        const CacheDesactivator off(&board.project());
        EXPECT_FALSE(board->cacheEnabled());
        {
            const CacheActivator on(&board.project());
            EXPECT_TRUE(board->cacheEnabled());
            {
                const CacheActivator again(&board.project());
                EXPECT_TRUE(board->cacheEnabled());
            }
            EXPECT_TRUE(board->cacheEnabled());
        }
        EXPECT_FALSE(board->cacheEnabled());
    }
    EXPECT_TRUE(board->cacheEnabled());

    board->setCacheEnabled(false);
    {
        const CacheActivator on(&board.project());
        EXPECT_TRUE(board->cacheEnabled());
    }
    EXPECT_FALSE(board->cacheEnabled());
}

TEST(CacheSwitch, PutsBackTheValueFoundWhateverWasSetMeanwhile)
{
    Storyboard board("A(4)");
    {
        const CacheActivator on(&board.project());
        board->setCacheEnabled(false);
    }
    EXPECT_TRUE(board->cacheEnabled());
}

TEST(CacheSwitch, KeepsTheCachesInAScopeThatChangesNothing)
{
    Storyboard board("A(4)");
    const Remembered remembered(board);
    {
        const CacheActivator on(&board.project());
        EXPECT_TRUE(remembered.still());
    }
    EXPECT_TRUE(remembered.still());
    {
        const CacheDesactivator off(&board.project());
        EXPECT_FALSE(remembered.still());
    }
    EXPECT_FALSE(remembered.still());
}
