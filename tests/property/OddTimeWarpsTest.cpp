#include "property/TimelineQuestions.h"
#include "support/RandomTimeline.h"
#include "support/Storyboard.h"

#include "scene/project/SC_ProjectCommon.h"
#include "scene/project/TUScene.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

using namespace Plotka;

namespace
{

constexpr double oddPositions[] = {0.0, -1.0, -2.5, 0.25, 0.999999, 1e9, 4294967297.0, -4294967290.0, 9.3e18, -1e300,
    std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()};

double oddPosition(std::mt19937 &random)
{
    return oddPositions[random() % std::size(oddPositions)];
}

/// Steps that could go round in circles, each taken often enough to show it.
void askWhatCouldGoRound(PKC_PlotkaProject &project, std::size_t panelBlocks)
{
    EXPECT_LE(project.panelCount(), panelBlocks);
    project.updateSavedPanelIds();
    EXPECT_FALSE(project.isPanelValid(SC_Id(123456789)));
    EXPECT_TRUE(project.getPanelByNdx(PKC_PlotkaProject::invalidNdx - 1).isInvalid());
    const Shot_t firstShot = project.first(Shot_t());
    const Panel_t firstPanel = project.first(Panel_t());
    const Panel_t lastPanel = project.last(Panel_t());
    project.panelCount(firstShot);
    project.getPanelNdx(lastPanel, /*inShot*/ false);
    project.getPanelNdx(lastPanel, /*inShot*/ true);
    project.getPanelIn(firstShot, lastPanel, /*lockedOnly*/ false);
    project.sceneCommonToPanel(project.topScene()->sceneCommon());
    project.neighborIsOfSameScene(firstPanel.id(), lastPanel.id());
    for (unsigned int frame = 0; frame < 40; ++frame)
        project.panelTransAt(frame);
    try {
        EXPECT_LE(project.panelsIdBetween(firstPanel, lastPanel, /*inclusive*/ true).size(), panelBlocks);
        EXPECT_LE(project.panelsIdIn(firstShot).size(), panelBlocks);
    } catch (const std::length_error &) {
        // The walk did not come to its end, and said so.
    }
}

std::size_t panelBlockCount(const TimelineOracle &oracle)
{
    std::size_t count = 0;
    for (const PlainBlock &block : oracle.blocks())
        count += block.track.size();
    return count;
}

} // namespace

/// A time warp from a damaged file can begin anywhere. Then walks may go round in circles, which they must leave, and
/// frames may show any panel: the one that the arithmetic says.
TEST(OddTimeWarps, AreLookedThroughByFrameAndLeaveNoWalkGoingRound)
{
    for (unsigned int seed = 1; seed <= 150; ++seed) {
        std::mt19937 random(seed);
        Storyboard board(randomTimeline(random));
        for (unsigned int shot = 0; shot < board.shotBlockCount(); ++shot) {
            if (random() % 2)
                board.setShotWarp(shot, oddPosition(random), oddPosition(random));
        }
        board.notify();
        const TimelineOracle oracle(
            plainTimelineOf(board.timeline(), *board.sceneProject().projectCommon()->sceneManager()));
        for (PKC_PlotkaProject *project : {&board.project(), &board.forgetful()}) {
            using Memory = TimelineQuestions::Memory;
            TimelineQuestions questions(*project, oracle, project->cacheEnabled() ? Memory::Kept : Memory::SwitchedOff);
            questions.askFrames();
            EXPECT_EQ(questions.disagreement(), "") << "seed " << seed;
            askWhatCouldGoRound(*project, panelBlockCount(oracle));
        }
        if (HasFailure())
            FAIL() << "seed " << seed;
    }
}

TEST(OddTimeWarps, DoNotHoldUpTheConstruction)
{
    Storyboard board("A(5,5) B(4)");
    board.setShotWarp(0, -3.0, 6.0); // after the first panel comes the first panel
    board.notify();
    const PKC_PlotkaProject project(&board.sceneProject());
    EXPECT_LE(project.panelCount(), 3u);
}
