#include "support/Storyboard.h"

#include "support/EditScript.h"
#include "support/PlainTimeline.h"
#include "support/Printers.h"
#include "support/Problems.h"
#include "support/RandomTimeline.h"

#include "scene/project/SC_ProjectCommon.h"

#include <gtest/gtest.h>

#include <sstream>

namespace
{

void describe(std::ostream &out, const PlainTimeline &blocks)
{
    bool first = true;
    for (const PlainBlock &block : blocks) {
        out << (first ? "" : " ") << block.from << '-' << block.to;
        first = false;
        if (block.isTransition)
            out << 'T';
        else if (!block.placesScene)
            out << (block.id ? '!' : '?');
        else if (!block.sceneLives)
            out << "gone";
        if (block.hasWarp)
            out << '[' << block.warpStart << ".." << block.warpEnd << ']';
        if (block.hasTrack) {
            out << '(';
            describe(out, block.track);
            out << ')';
        }
    }
}

/// The blocks that a notation stands for, "1-24[1..24](1-24[1..24])".
std::string blocksOf(const Storyboard &board)
{
    std::ostringstream out;
    describe(out, plainTimelineOf(board.timeline(), *board.sceneProject().projectCommon()->sceneManager()));
    return out.str();
}

std::string blocksOf(const std::string &notation)
{
    return blocksOf(Storyboard(notation));
}

} // namespace

TEST(Notation, PlacesShotsPanelsAndGaps)
{
    EXPECT_EQ(blocksOf(""), "");
    EXPECT_EQ(blocksOf("A(4,2) -3- B(5)"), "1-6[1..6](1-4[1..4] 5-6[1..2]) 10-14[1..5](1-5[1..5])");
    EXPECT_EQ(blocksOf("-2- A(-1,2,-1,2,-1)"), "3-9[1..7](2-3[1..2] 5-6[1..2])");
    EXPECT_EQ(blocksOf("A(-4)"), "1-4[1..4]()");
}

TEST(Notation, PlacesTransitionsOverTheFramesThatShotsShare)
{
    EXPECT_EQ(blocksOf("A(20) ~2+3~ B(10)"), "1-20[1..20](1-20[1..20]) 16-20T 16-25[1..10](1-10[1..10])");
    EXPECT_EQ(blocksOf("A(5) ~1+0~ B(6) ~0+2~ C(7)"),
        "1-5[1..5](1-5[1..5]) 5-5T 5-10[1..6](1-6[1..6]) 9-10T 9-15[1..7](1-7[1..7])");
}

TEST(Notation, GivesTimeWarps)
{
    EXPECT_EQ(blocksOf("A[5..8](9)"), "1-4[5..8](1-9[1..9])");
    EXPECT_EQ(blocksOf("A[1..9]@3(9)"), "1-3[1..9](1-9[1..9])");
    EXPECT_EQ(blocksOf("A[2.5..4](9[2..3],1[])"), "1-2[2.5..4](1-9[2..3] 10-10)");
    EXPECT_EQ(blocksOf("A[](4)"), "1-4(1-4[1..4])");
    EXPECT_EQ(blocksOf("A@7(4)"), "1-7[1..7](1-4[1..4])");
    EXPECT_EQ(blocksOf("A[2..6](9) ~1+0~ B(4)"), "1-5[2..6](1-9[1..9]) 5-5T 5-8[1..4](1-4[1..4])");
}

TEST(Notation, PlacesWhatIsNotThere)
{
    EXPECT_EQ(blocksOf("A@4(gone) B@3(bare) C@2()"), "1-4gone[1..4] 5-7[1..3] 8-9[1..2]()");
    EXPECT_EQ(blocksOf("?2 %3 A(4gone,1?)"), "1-2? 3-5? 6-10[1..5](1-4gone[1..4] 5-5?)");
}

TEST(Notation, NamesShotsAndPanels)
{
    Storyboard board("Opening(p=4,q!=2) (3)");
    EXPECT_EQ(board.shotNameAt(1), "Opening");
    EXPECT_EQ(board.shotNameAt(7), "");
    EXPECT_EQ(board.panelNameAt(4), "p");
    EXPECT_EQ(board.panelNameAt(5), "q");
    EXPECT_EQ(board.panelNameAt(8), "");
}

TEST(Notation, IsPrintedAsItIsRead)
{
    const std::string text =
        "-3- A[5..28]@9(p=24[3..14],-5,q!=12gone,6?,2[]) ~4+6~ B[](40) ?2 %3 C@4(gone) (7) D@5(bare)";
    EXPECT_EQ(toString(parseTimeline(text)), text);
    for (unsigned int seed = 0; seed < 200; ++seed) {
        std::mt19937 random(seed);
        const std::string printed = toString(randomTimeline(random));
        EXPECT_EQ(toString(parseTimeline(printed)), printed);
    }
}

TEST(StoryboardEdits, KeepTheRestOfTheTimelineInStep)
{
    Storyboard board("A(24,12) B(36)");
    ASSERT_EQ(board.shotNameAt(60), "B"); // asked before the edit: caches are warm
    ASSERT_TRUE(board.setPanelLength(0, 0, 10));
    board.notify();
    EXPECT_EQ(framesOf(board.project()), "A 1-22 (1-10 11-22) | B 23-58 (23-58)");
    EXPECT_EQ(board.shotNameAt(60), ""); // where the old answer would linger

    EXPECT_TRUE(board.addPanel(0, 8) && board.removePanel(0, 1) && board.addShot("C", 4, 2));
    EXPECT_TRUE(board.addTransition(0, 2, 3));
    board.notify();
    EXPECT_EQ(framesOf(board.project()), "A 1-21 (1-10 11-18) | B 17-54 (17-52) | C 57-60 (57-60)");
    EXPECT_EQ(transitionsOf(board.project()), "17-21");
    EXPECT_EQ(gapsOf(board.project()), "55-56 | 61-");

    EXPECT_TRUE(board.removeTransition(0) && board.moveShots(1, 5) && board.liftPanel(2, 0));
    board.notify();
    EXPECT_EQ(framesOf(board.project()), "A 1-18 (1-10 11-18) | B 24-59 (24-59) | C 62-65 ()");
    EXPECT_EQ(gapsOf(board.project()), "19-23 | 60-61 | 66-");
    EXPECT_TRUE(board.removePanel(0, 0) && board.removePanel(0, 0));
    board.notify();
    EXPECT_EQ(board.shotNameAt(1), "");
    EXPECT_EQ(problemsOf(board.project()), "");
}

TEST(StoryboardEdits, ThatCannotBeDoneChangeNothing)
{
    Storyboard board("A(4,-2,5) ~1+1~ B(6) -2- C(3)");
    const std::string before = blocksOf(board);
    EXPECT_FALSE(board.setPanelLength(0, 0, 9)); // beside a transition
    EXPECT_FALSE(board.addPanel(1, 3));
    EXPECT_FALSE(board.removePanel(1, 0));
    EXPECT_FALSE(board.liftShot(0));
    EXPECT_FALSE(board.addTransition(1, 1, 1)); // across a gap
    EXPECT_FALSE(board.addTransition(2, 1, 1));
    EXPECT_FALSE(board.placePanel(0, 4, 3));
    EXPECT_FALSE(board.placeShot("D", 5, 3));
    EXPECT_FALSE(board.rollPanels(0, 0, 1));
    EXPECT_FALSE(board.trimShot(2, 3, 3));
    EXPECT_FALSE(board.removeTransition(1));
    EXPECT_FALSE(board.setPanelLength(2, 0, 0));
    EXPECT_FALSE(board.liftShot(7));
    EXPECT_EQ(blocksOf(board), before);
}

TEST(StoryboardEdits, ReachTheProjectsWhenNotified)
{
    Storyboard board("A(4)");
    PKC_PlotkaProject &forgetful = board.forgetful();
    ASSERT_EQ(board->panelCount(), 1u);
    ASSERT_EQ(forgetful.panelCount(), 1u);
    board.addPanel(0, 2);
    EXPECT_EQ(forgetful.panelCount(), 2u);
    EXPECT_EQ(board->panelCount(), 1u);
    board.notify();
    EXPECT_EQ(board->panelCount(), 2u);
}

TEST(Problems, AreFoundInAnswersThatAreOutOfDate)
{
    Storyboard board("A(4,5) B(6)");
    ASSERT_EQ(problemsOf(board.project()), "");
    board.removePanel(0, 0); // and no notify()
    EXPECT_NE(problemsOf(board.project()), "");
    board.notify();
    EXPECT_EQ(problemsOf(board.project()), "");
}

TEST(Shrinking, FindsTheShortestScriptAndTheSimplestTimeline)
{
    const Script script = randomScript(7, 60);
    const auto isBad = [](const Script &candidate) {
        int lifts = 0;
        for (const Edit &edit : candidate)
            lifts += edit.kind == Edit::LiftShot ? 1 : 0;
        return lifts >= 2;
    };
    ASSERT_TRUE(isBad(script));
    EXPECT_EQ(shrink(script, isBad).size(), 2u);

    const TimelineText timeline = parseTimeline("-3- A(5,4) ~1+1~ B[2..6](3,p=4[2..3],5) C(6) -2-");
    const TimelineText small = shrink(
        timeline, [](const TimelineText &candidate) { return toString(candidate).find("B") != std::string::npos; });
    EXPECT_EQ(toString(small), "B(1)");
}

TEST(RandomScripts, EditMoreOftenThanTheyAreRefused)
{
    int done = 0;
    int kinds[Edit::KindCount] = {};
    for (unsigned int seed = 0; seed < 20; ++seed) {
        Storyboard board("A(5,4) B(6)");
        for (const Edit &edit : randomScript(seed, 40)) {
            if (apply(edit, board)) {
                ++done;
                ++kinds[edit.kind];
            }
        }
    }
    EXPECT_GT(done, 400);
    for (int kind = 0; kind < Edit::KindCount; ++kind)
        EXPECT_GT(kinds[kind], 0) << "kind " << kind;
}
