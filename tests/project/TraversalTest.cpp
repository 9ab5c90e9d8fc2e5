#include "support/Printers.h"
#include "support/Storyboard.h"

#include "project/ObjectIds.h"

#include <gtest/gtest.h>

#include <optional>

using namespace Plotka;

/// Every walk is tested on both roads: remembered answers and fresh ones.
class Traversal : public ::testing::TestWithParam<bool>
{
protected:
    /// First frames of what a walk from @p it to @p end visits.
    template <typename Iterator>
    static std::string walk(Iterator it, const Iterator &end)
    {
        std::string frames;
        for (int steps = 0; it != end && steps < 100; ++it, ++steps)
            frames += (frames.empty() ? "" : " ") + std::to_string(it->firstFrame());
        return frames;
    }

    /// "25" for an object that begins there, "17T" for a transition.
    template <typename T>
    static std::string at(const objTransIterator<T> &it)
    {
        if (it.isOnTransition())
            return std::to_string(it.transition().firstFrame()) + (it.isTransitionAfter() ? "T>" : "<T");
        return it.current().isValid() ? std::to_string(it.current().firstFrame()) : "end";
    }
};

INSTANTIATE_TEST_SUITE_P(
    Cache, Traversal, ::testing::Bool(), [](const auto &road) { return road.param ? "On" : "Off"; });

TEST_P(Traversal, OfAnEmptyProjectIsEmpty)
{
    Storyboard board("", GetParam());
    EXPECT_TRUE(board->beginPanel() == board->endPanel());
    EXPECT_TRUE(board->beginShot() == board->endShot());
    EXPECT_TRUE(board->beginTrans() == board->endTrans());
    EXPECT_TRUE(board->rbeginPanel() == board->rendPanel());
    EXPECT_TRUE(board->rbeginShot() == board->rendShot());
    EXPECT_TRUE(board->rbeginTrans() == board->rendTrans());
    EXPECT_TRUE(board->beginPanelTrans() == board->endPanelTrans());
    EXPECT_TRUE(board->rbeginPanelTrans() == board->rendPanelTrans());
    EXPECT_TRUE(board->beginShotTrans() == board->endShotTrans());
    EXPECT_TRUE(board->first(Panel_t()).isInvalid());
    EXPECT_TRUE(board->last(Panel_t()).isInvalid());
    EXPECT_TRUE(board->first(Shot_t()).isInvalid());
    EXPECT_TRUE(board->last(Shot_t()).isInvalid());
    EXPECT_TRUE(board->first(Trans_t()).isInvalid());
    EXPECT_TRUE(board->last(Trans_t()).isInvalid());
}

TEST_P(Traversal, WithoutAnyTimedValueIsEmpty)
{
    Storyboard board("A(24)", GetParam());
    const Panel_t panel = board->getPanelByNdx(0);
    const Shot_t shot = board->getShotByNdx(0);
    board.topScene().removeTimedValue(&board.timeline());
    board.notify();
    EXPECT_EQ(board->topMainTv(), nullptr);
    EXPECT_TRUE(board->next(shot).isInvalid());
    EXPECT_TRUE(board->prev(shot).isInvalid());
    EXPECT_TRUE(board->next(panel).isInvalid());
    EXPECT_TRUE(board->beginTrans() == board->endTrans());
    EXPECT_TRUE(board->first(Shot_t()).isInvalid());
    EXPECT_TRUE(board->last(Shot_t()).isInvalid());
}

TEST_P(Traversal, VisitsShotsPanelsAndTransitionsInTimelineOrder)
{
    // frame:  1      11        17  20        31     41        46
    //         |A0    |A1           |
    //                          |B0           |
    //                                               |C0 |C1   |
    Storyboard board("A(10,10) ~2+2~ B(14) -10- C(2,4)", GetParam());
    EXPECT_EQ(walk(board->beginShot(), board->endShot()), "1 17 41");
    EXPECT_EQ(walk(board->beginPanel(), board->endPanel()), "1 11 17 41 43");
    EXPECT_EQ(walk(board->beginTrans(), board->endTrans()), "17");
    EXPECT_EQ(walk(board->rbeginShot(), board->rendShot()), "41 17 1");
    EXPECT_EQ(walk(board->rbeginPanel(), board->rendPanel()), "43 41 17 11 1");
    EXPECT_EQ(walk(board->rbeginTrans(), board->rendTrans()), "17");
}

TEST_P(Traversal, EndsAtTheInvalidHandleAndStaysThere)
{
    Storyboard board("A(24) ~2+2~ B(12)", GetParam());
    EXPECT_TRUE(board->next(board->last(Shot_t())).isInvalid());
    EXPECT_TRUE(board->prev(board->first(Shot_t())).isInvalid());
    EXPECT_TRUE(board->next(board->last(Panel_t())).isInvalid());
    EXPECT_TRUE(board->prev(board->first(Panel_t())).isInvalid());
    EXPECT_TRUE(board->next(board->last(Trans_t())).isInvalid());
    EXPECT_TRUE(board->prev(board->first(Trans_t())).isInvalid());
    EXPECT_TRUE(board->next(Shot_t()).isInvalid());
    EXPECT_TRUE(board->prev(Panel_t()).isInvalid());
    EXPECT_TRUE(board->next(Trans_t()).isInvalid());
    EXPECT_TRUE(board->firstInShot(Panel_t()).isInvalid());
    EXPECT_TRUE(board->lastInShot(Panel_t()).isInvalid());

    auto panel = board->endPanel();
    ++panel;
    --panel;
    EXPECT_TRUE(panel == board->endPanel());
}

TEST_P(Traversal, DoesNotReadTheArgumentOfFirstAndLast)
{
    Storyboard board("A(24) B(12)", GetParam());
    const Shot_t b = board->getShotByNdx(1);
    EXPECT_EQ(board->first(b), board->first(Shot_t()));
    EXPECT_EQ(board->last(Shot_t::invalid), b);
    EXPECT_EQ(board->first(board->getPanelByNdx(1)).firstFrame(), 1u);
    EXPECT_EQ(board->last(Panel_t::invalid).firstFrame(), 25u);
}

TEST_P(Traversal, OfOneShotEndsWhereTheNextOneBegins)
{
    Storyboard board("A(10,10) B(5,5) C(7)", GetParam());
    const Shot_t a = board->getShotByNdx(0);
    const Shot_t b = board->getShotByNdx(1);
    const Shot_t c = board->getShotByNdx(2);
    EXPECT_EQ(walk(board->beginPanel(b), board->endPanel(b)), "21 26");
    EXPECT_TRUE(board->endPanel(a) == board->beginPanel(b));
    EXPECT_TRUE(board->endPanel(c)->isInvalid());
    EXPECT_EQ(walk(board->rbeginPanel(b), board->rendPanel(b)), "26 21");
    EXPECT_TRUE(board->rendPanel(a)->isInvalid());
    EXPECT_EQ(board->rendPanel(b)->firstFrame(), 11u);
    const Panel_t inB = *board->beginPanel(b);
    EXPECT_EQ(board->firstInShot(inB).firstFrame(), 21u);
    EXPECT_EQ(board->lastInShot(inB).firstFrame(), 26u);
}

TEST_P(Traversal, PassesAGapWithinAShot)
{
    Storyboard board("A(10,-5,10) B(5)", GetParam());
    const Panel_t before = board->getPanelByNdx(0);
    EXPECT_EQ(board->next(before).firstFrame(), 16u);
    EXPECT_EQ(board->prev(board->next(before)), before);
    EXPECT_EQ(walk(board->beginPanel(), board->endPanel()), "1 16 26");
}

TEST_P(Traversal, ByPanelsEndsAtAGapThatRunsToTheEndOfAShot)
{
    Storyboard board("A(10,-5) B(5)", GetParam());
    const Panel_t beforeGap = board->getPanelByNdx(0);
    EXPECT_TRUE(board->next(beforeGap).isInvalid());
    EXPECT_EQ(board->panelCount(), 1u);
    EXPECT_EQ(board->shotCount(), 2u);
    // Backward too: it looks forward from the last frame of the shot before.
    const Panel_t afterGap = board->getPanelAt(16, PKC_PlotkaProject::ResolveBackward, false, true);
    ASSERT_TRUE(afterGap.isValid());
    EXPECT_TRUE(board->prev(afterGap).isInvalid());
    EXPECT_EQ(board->lastInShot(beforeGap), beforeGap); // looks backward
}

TEST_P(Traversal, ByPanelsEndsBackwardAtAGapThatStartsAShot)
{
    Storyboard board("A(10) B(-5,5)", GetParam());
    const Panel_t afterGap = board->getPanelAt(16, PKC_PlotkaProject::ResolveBackward, false, true);
    ASSERT_TRUE(afterGap.isValid());
    EXPECT_TRUE(board->prev(afterGap).isInvalid());
    EXPECT_EQ(board->next(board->getPanelByNdx(0)), afterGap); // forward it is passed
}

TEST_P(Traversal, ByShotsEndsAtAShotWhoseSceneIsGone)
{
    // Its handle has no id, and so is what an end compares equal to.
    Storyboard board("A(10) B@5(gone) C(5)", GetParam());
    const Shot_t next = board->next(board->getShotByNdx(0));
    EXPECT_EQ(next.id(), invalidId);
    EXPECT_EQ(walk(board->beginShot(), board->endShot()), "1");
    EXPECT_EQ(board->shotCount(), 1u);
    EXPECT_TRUE(board->next(next).isInvalid());
}

TEST_P(Traversal, PassesWhatIsNoShot)
{
    Storyboard board("A(10) ?4 %3 B(5)", GetParam());
    EXPECT_EQ(walk(board->beginShot(), board->endShot()), "1 18");
    EXPECT_EQ(walk(board->rbeginShot(), board->rendShot()), "18 1");
}

TEST_P(Traversal, MovesOnFromWhereFrameZeroLeadsOnceAnObjectIsGone)
{
    Storyboard board("A(10,5) B(5)", GetParam());
    const Panel_t gone = board->getPanelByNdx(1);
    ASSERT_TRUE(board.deletePanelScene(0, 1));
    board.notify();
    EXPECT_EQ(gone.firstFrame(), 0u);
    EXPECT_EQ(board->next(gone).firstFrame(), 1u); // frame 0 is before the shot's last, so its first frame follows
    const Shot_t b = board->getShotByNdx(1);
    ASSERT_TRUE(board.liftShot(1));
    board.notify();
    EXPECT_TRUE(board->next(b).isInvalid());
    EXPECT_TRUE(board->prev(b).isInvalid());
}

TEST_P(Traversal, SurvivesAnEditUnderAnIterator)
{
    Storyboard board("A(10,5) B(5)", GetParam());
    auto panel = board->beginPanel();
    board.setPanelLength(0, 0, 20);
    board.notify();
    ++panel;
    EXPECT_EQ(panel->firstFrame(), 21u);
}

TEST_P(Traversal, StopsOnceOnEachTransition)
{
    Storyboard board("A(10,10) ~2+2~ B(14) C(5)", GetParam());
    auto it = board->beginPanelTrans();
    std::string seen;
    for (int steps = 0; it != board->endPanelTrans() && steps < 20; ++it, ++steps)
        seen += at(it) + " ";
    EXPECT_EQ(seen, "1 11 17T> 17 31 ");
    EXPECT_EQ(at(it), "end");

    auto back = board->rbeginPanelTrans();
    seen.clear();
    for (int steps = 0; back != board->rendPanelTrans() && steps < 20; ++back, ++steps)
        seen += at(back) + " ";
    EXPECT_EQ(seen, "31 17 17<T 11 1 ");
}

TEST_P(Traversal, TurnsOnATransition)
{
    Storyboard board("A(20) ~2+2~ B(14)", GetParam());
    auto it = board->beginPanelTrans();
    ++it;
    ASSERT_EQ(at(it), "17T>");
    --it; // the transition lies after the panel it came from
    EXPECT_EQ(at(it), "1");
    ++it;
    ++it;
    ASSERT_EQ(at(it), "17");
    --it;
    ASSERT_EQ(at(it), "17<T");
    ++it;
    EXPECT_EQ(at(it), "17");
}

TEST_P(Traversal, OfShotsStopsOnTransitionsToo)
{
    Storyboard board("A(10,10) ~2+2~ B(14) C(5)", GetParam());
    std::string seen;
    auto it = board->beginShotTrans();
    for (int steps = 0; it != board->endShotTrans() && steps < 20; ++it, ++steps)
        seen += at(it) + " ";
    EXPECT_EQ(seen, "1 17T> 17 31 ");
}

TEST_P(Traversal, BeginsOnThePanelAndJumpsToTheObjectsAtBothEnds)
{
    Storyboard board("A(20) ~2+2~ B(14)", GetParam());
    EXPECT_EQ(at(board->beginPanelTrans()), "1");
    auto it = board->endPanelTrans();
    it.first();
    EXPECT_EQ(at(it), "1"); // the transition begins after it
    EXPECT_TRUE(it.isTransitionAfter());
    it.last();
    EXPECT_EQ(at(it), "17"); // the transition ends before it
    auto reverse = board->rbeginPanelTrans();
    reverse.last();
    EXPECT_EQ(at(reverse), "1");
    reverse.first();
    EXPECT_EQ(at(reverse), "17");
}

TEST_P(Traversal, JumpsToTheFirstObjectFromBeforeItWithoutAnyTransition)
{
    Storyboard board("A(20) B(14)", GetParam());
    auto it = board->beginPanelTrans();
    EXPECT_TRUE(it.isTransitionAfter());
    it.first();
    EXPECT_EQ(at(it), "1");
    EXPECT_FALSE(it.isTransitionAfter()); // no transition answers frame 0, which is not above the object's
    it.last();
    EXPECT_EQ(at(it), "21");
}

TEST_P(Traversal, ComparesPlacesByObjectOrByTransition)
{
    Storyboard board("A(20) ~2+2~ B(14)", GetParam());
    auto fromA = board->beginPanelTrans();
    ++fromA;
    auto fromB = board->rbeginPanelTrans();
    ++fromB;
    ASSERT_TRUE(fromA.isOnTransition());
    ASSERT_TRUE(fromB.isOnTransition());
    EXPECT_NE(fromA.current(), fromB.current());
    EXPECT_TRUE(fromA == static_cast<const objTransIterator<Panel_t> &>(fromB));
    EXPECT_TRUE(fromA != board->beginPanelTrans());
    EXPECT_EQ(panelOrTransition(fromA), PanelTrans_t(board->getTransByNdx(0)));
    EXPECT_EQ(panelOrTransition(board->beginPanelTrans()), PanelTrans_t(board->getPanelByNdx(0)));
}

TEST(Iterator, WithoutAProjectLeadsToTheInvalidHandle)
{
    Storyboard board("A(20) B(14)");
    const Panel_t panel = board->getPanelByNdx(0);
    objiterator<Panel_t> it(nullptr, panel);
    EXPECT_EQ(*it, panel);
    ++it;
    EXPECT_TRUE(it->isInvalid());
    it = objiterator<Panel_t>(nullptr, panel);
    EXPECT_TRUE((--it)->isInvalid());
    it = objiterator<Panel_t>(nullptr, panel);
    EXPECT_TRUE(it.first()->isInvalid());
    it = objiterator<Panel_t>(nullptr, panel);
    EXPECT_TRUE(it.last()->isInvalid());
    reverse_objiterator<Panel_t> back(nullptr, panel);
    EXPECT_TRUE((++back)->isInvalid());
    objTransIterator<Shot_t> shots(nullptr, board->getShotByNdx(0));
    EXPECT_TRUE((++shots).current().isInvalid());
}

TEST(Iterator, SwapsItsFourMovesInReverse)
{
    Storyboard board("A(10) B(10) C(10)");
    auto it = board->rbeginShot();
    EXPECT_EQ(it->firstFrame(), 21u);
    EXPECT_EQ((++it)->firstFrame(), 11u);
    EXPECT_EQ((--it)->firstFrame(), 21u);
    EXPECT_EQ(it.last()->firstFrame(), 1u);
    EXPECT_EQ(it.first()->firstFrame(), 21u);
    // Through the base as well: the four are virtual.
    objiterator<Shot_t> &base = it;
    EXPECT_EQ((++base)->firstFrame(), 11u);
}

TEST_P(Traversal, OfADamagedTimelineEndsAfterAsManyStepsAsThereAreBlocks)
{
    // The time warp starts below 1: the frame after the first panel leads to that panel again.
    Storyboard board("A[0..19](p=10,10) B(5)", GetParam());
    const Panel_t firstPanel = board->first(Panel_t());
    ASSERT_EQ(board->next(firstPanel), firstPanel);
    EXPECT_EQ(board->panelCount(), 3u);
    EXPECT_TRUE(board->getPanelByID(board.panelId(1, 0)).isInvalid());
    EXPECT_TRUE(board->getPanelByNdx(3).isInvalid());
    EXPECT_EQ(board->getPanelNdx(firstPanel, /*inShot*/ true), 0u);
    EXPECT_TRUE(board->getPanelIn(board->getShotByNdx(1), firstPanel, false).isInvalid());
    EXPECT_EQ(board->shotCount(), 2u);
}

TEST_P(Traversal, GoesBackOverSeveralTransitions)
{
    Storyboard board("A(20) ~2+2~ B(14) C(9) ~1+1~ D(9)", GetParam());
    const Trans_t second = board->last(Trans_t());
    EXPECT_EQ(second.id(), board.transitionId(1));
    EXPECT_EQ(board->prev(second).id(), board.transitionId(0));
    EXPECT_TRUE(board->prev(board->prev(second)).isInvalid());
}

TEST_P(Traversal, OfOneShotThatEndsInAGapHasNoEndOfItsOwn)
{
    Storyboard board("A(10,-5) B(5)", GetParam());
    const Shot_t a = board->getShotByNdx(0);
    EXPECT_TRUE(board->endPanel(a)->isInvalid());
    EXPECT_TRUE(board->rbeginPanel(a)->isInvalid()); // looks forward from the last frame
    EXPECT_EQ(walk(board->beginPanel(a), board->endPanel(a)), "1");
}

TEST_P(Traversal, OfShotsTurnsOnATransitionToo)
{
    Storyboard board("A(20) ~2+2~ B(14)", GetParam());
    auto it = board->endShotTrans();
    it.last();
    EXPECT_EQ(at(it), "17");
    --it;
    EXPECT_EQ(at(it), "17<T");
    --it;
    EXPECT_EQ(at(it), "1");
    --it;
    EXPECT_EQ(at(it), "end");
    --it;
    EXPECT_EQ(at(it), "end");
    it.first();
    EXPECT_EQ(at(it), "1");
}

TEST(Iterator, LeadsNowhereOnceItsProjectHasGone)
{
    std::optional<Storyboard> board("A(10,10) ~2+2~ B(10)");
    auto panel = (*board)->beginPanel();
    auto both = (*board)->rbeginPanelTrans();
    auto shots = (*board)->beginShotTrans();
    board.reset();
    EXPECT_TRUE((++panel)->isInvalid());
    EXPECT_TRUE((++both).current().isInvalid());
    EXPECT_TRUE(both.first().current().isInvalid());
    EXPECT_TRUE(both.last().current().isInvalid());
    EXPECT_TRUE((--shots).current().isInvalid());
}
