#include "support/TimelineOracle.h"
#include "support/Storyboard.h"

#include "scene/project/SC_ProjectCommon.h"

#include <gtest/gtest.h>

namespace
{

using Priority = TimelineOracle::Priority;

TimelineOracle oracleOf(const std::string &notation)
{
    const Storyboard board(notation);
    return TimelineOracle(plainTimelineOf(board.timeline(), *board.sceneProject().projectCommon()->sceneManager()));
}

} // namespace

// The oracle is held against answers worked out by hand, so that it and the project cannot be wrong alike.

TEST(TimelineOracle, ChoosesShotsAtTransitionsAndBesideGaps)
{
    // frame:  1         7   9     14    17
    //         |A        |AB |B     |(gap)|C   |
    const TimelineOracle oracle = oracleOf("A(p=8) ~1+1~ B(q=7) -3- C(r=4)");
    const auto shotAt = [&](unsigned int frame, Priority priority, bool nearest, bool forward) {
        return oracle.nameOf(oracle.shotAt(frame, priority, nearest, forward));
    };
    EXPECT_EQ(shotAt(6, Priority::Forward, false, true), "A");
    EXPECT_EQ(shotAt(7, Priority::Backward, false, true), "A");
    EXPECT_EQ(shotAt(7, Priority::Forward, false, true), "B");
    EXPECT_EQ(shotAt(8, Priority::Forward, false, true), "B");
    EXPECT_EQ(shotAt(9, Priority::Backward, false, true), "B");
    EXPECT_EQ(shotAt(14, Priority::Backward, false, true), "");
    EXPECT_EQ(shotAt(14, Priority::Backward, true, true), "C");
    EXPECT_EQ(shotAt(14, Priority::Forward, true, false), "B");
    EXPECT_EQ(shotAt(0, Priority::Backward, true, true), "A");
    EXPECT_EQ(shotAt(0, Priority::Backward, true, false), "");
    EXPECT_EQ(shotAt(21, Priority::Backward, true, true), "");
    EXPECT_EQ(shotAt(21, Priority::Backward, true, false), "C");
    EXPECT_EQ(oracle.nameOf(oracle.panelAt(15, Priority::Backward, true, true)), "r");
    EXPECT_EQ(oracle.firstFrame(oracle.panelAt(8, Priority::Forward, false, true)), 7u);
    EXPECT_EQ(oracle.firstFrame(oracle.transAt(8)), 7u);
    EXPECT_FALSE(oracle.transAt(9).isFound);
    EXPECT_EQ(oracle.spaceAt(15), (TimelineOracle::Space{14, 16}));
    EXPECT_EQ(oracle.spaceAt(30), (TimelineOracle::Space{21, 0xFFFFFFFFu}));
}

TEST(TimelineOracle, StopsAWalkByPanelsAtAGapAtTheEdgeOfAShot)
{
    const TimelineOracle within = oracleOf("A(2,-1,2) B(3)");
    EXPECT_EQ(within.panels().size(), 3u);
    const TimelineOracle atEnd = oracleOf("A(2,-1) B(3)");
    EXPECT_EQ(atEnd.panels().size(), 1u);
    EXPECT_FALSE(atEnd.prev(atEnd.lastPanel()).isFound);
    const TimelineOracle atStart = oracleOf("A(2) B(-1,3)");
    EXPECT_EQ(atStart.panels().size(), 2u);
    EXPECT_FALSE(atStart.prev(atStart.lastPanel()).isFound);
    EXPECT_TRUE(atStart.spaceAt(3).isFound());
    EXPECT_FALSE(atEnd.panelById(atEnd.blocks()[1].track[0].id).isFound);
}

TEST(TimelineOracle, FindsAGapAtTheEndOfAShotOnlyInOneThatStartsAtFrameOne)
{
    const TimelineOracle oracle = oracleOf("A(2,-1) B(3,-2)");
    EXPECT_EQ(oracle.spaceAt(3), (TimelineOracle::Space{3, 0xFFFFFFFFu, {true, 0}}));
    EXPECT_FALSE(oracle.spaceAt(7).isFound());
}

TEST(TimelineOracle, CountsOnlyPanelsThatEndWithinTheTimeWarp)
{
    EXPECT_EQ(oracleOf("A[3..7](4,3,5)").panelCountOf({true, 0}), 2u);
    EXPECT_EQ(oracleOf("A[3..6](4,3,5)").panelCountOf({true, 0}), 1u);
    EXPECT_EQ(oracleOf("A[](4,3,5)").panelCountOf({true, 0}), 0u);
    EXPECT_EQ(oracleOf("A(-2,4)").panelCountOf({true, 0}), 0u);
}

TEST(TimelineOracle, WalksOverTransitionsOneStepEach)
{
    const TimelineOracle oracle = oracleOf("A(p=4) ~1+1~ B(q=5)");
    OracleTransWalk<TimelineOracle::Panel> walk{&oracle, oracle.firstPanel()};
    const long long p = oracle.blocks()[0].track[0].id;
    const long long t = oracle.blocks()[1].id;
    const long long q = oracle.blocks()[2].track[0].id;
    EXPECT_EQ(walk.id(), p);
    walk.stepForward();
    EXPECT_EQ(walk.id(), t);
    EXPECT_TRUE(walk.transIsAfter);
    walk.stepForward();
    EXPECT_EQ(walk.id(), q);
    walk.stepBackward();
    EXPECT_EQ(walk.id(), t);
    EXPECT_FALSE(walk.transIsAfter);
    walk.stepBackward();
    EXPECT_EQ(walk.id(), p);
    EXPECT_EQ(walkAtTransition(oracle, oracle.firstTrans()).current, oracle.firstPanel());
}
