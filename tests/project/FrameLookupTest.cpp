#include "support/Printers.h"
#include "support/Storyboard.h"

#include "metadata/PKC_ClipInfo.h"
#include "metadata/PKC_SceneInfo.h"

#include <gtest/gtest.h>

using namespace Plotka;

namespace
{

constexpr auto Backward = PKC_PlotkaProject::ResolveBackward;
constexpr auto Forward = PKC_PlotkaProject::ResolveForward;

} // namespace

/// Every lookup is tested on both roads: remembered answers and fresh walks.
class FrameLookup : public ::testing::TestWithParam<bool>
{
};

INSTANTIATE_TEST_SUITE_P(
    Cache, FrameLookup, ::testing::Bool(), [](const auto &road) { return road.param ? "On" : "Off"; });

TEST_P(FrameLookup, OfAnEmptyProjectFindsNothing)
{
    Storyboard board("", GetParam());
    for (const unsigned int frame : {0u, 1u, 100u}) {
        EXPECT_TRUE(board->getShotAt(frame, Backward, true, true).isInvalid());
        EXPECT_TRUE(board->getPanelAt(frame, Forward, true, false).isInvalid());
        EXPECT_TRUE(board->getTransAt(frame).isInvalid());
        EXPECT_EQ(board->getSpaceAt(frame), Space_t::invalid);
        EXPECT_FALSE(board->hasSpaceAt(frame));
    }
    EXPECT_EQ(board->shotCount(), 0u);
    EXPECT_EQ(board->panelCount(), 0u);
    EXPECT_EQ(board->transCount(), 0u);
    EXPECT_EQ(board->getNumOfFrames(), 0u);
    EXPECT_EQ(board->getShotNdx(Shot_t()), PKC_PlotkaProject::invalidNdx);
    EXPECT_EQ(board->getShotNdx(QStringLiteral("A")), 0xFFFFFFFFu);
}

TEST_P(FrameLookup, TakesTheNeighbourOnTheAskedSideOfAGap)
{
    // frame:  1      5        15       25       35
    //         | gap  |A       |  gap   |B       | gap
    Storyboard board("-4- A(10) -10- B(10)", GetParam());
    EXPECT_TRUE(board->getShotAt(20, Backward, false, true).isInvalid());
    EXPECT_EQ(board->getShotAt(20, Backward, true, true).firstFrame(), 25u);
    EXPECT_EQ(board->getShotAt(20, Backward, true, false).firstFrame(), 5u);
    EXPECT_EQ(board->getShotAt(0, Backward, true, true).firstFrame(), 5u);
    EXPECT_TRUE(board->getShotAt(0, Backward, true, false).isInvalid());
    EXPECT_TRUE(board->getShotAt(99, Forward, true, true).isInvalid());
    EXPECT_EQ(board->getShotAt(99, Forward, true, false).firstFrame(), 25u);
    EXPECT_EQ(board->getPanelAt(20, Backward, true, false).lastFrame(), 14u);
}

TEST_P(FrameLookup, ChoosesTheShotBeforeOrAfterATransition)
{
    Storyboard board("A(20) ~2+2~ B(14)", GetParam());
    for (int round = 0; round < 2; ++round) { // the second time remembered
        for (unsigned int frame = 13; frame <= 20; ++frame) {
            EXPECT_EQ(board->getShotAt(frame, Backward, false, true).name(), QStringLiteral("A"));
            EXPECT_EQ(board->getShotAt(frame, Forward, false, true).name(),
                frame < 17 ? QStringLiteral("A") : QStringLiteral("B"));
        }
        EXPECT_EQ(board->getShotAt(21, Backward, false, true).name(), QStringLiteral("B"));
    }
}

TEST_P(FrameLookup, GivesTheTransitionOnItsFramesOnly)
{
    Storyboard board("A(20) ~2+2~ B(14)", GetParam());
    EXPECT_TRUE(board->getTransAt(16).isInvalid());
    EXPECT_EQ(board->getTransAt(17).id(), board.transitionId(0));
    EXPECT_EQ(board->getTransAt(20).id(), board.transitionId(0));
    EXPECT_TRUE(board->getTransAt(21).isInvalid());
}

TEST_P(FrameLookup, FindsThePanelOfAShotByShotFrame)
{
    Storyboard board("-7- A(10,-5,10)", GetParam());
    const Shot_t a = board->getShotByNdx(0);
    EXPECT_EQ(board->getPanelIn(a, 1, false, true).relativeFirstFrame(), 1u);
    EXPECT_EQ(board->getPanelIn(a, 25, false, true).relativeFirstFrame(), 16u);
    EXPECT_TRUE(board->getPanelIn(a, 26, true, true).isInvalid());
    EXPECT_TRUE(board->getPanelIn(a, 26, true, false).isInvalid());
    EXPECT_TRUE(board->getPanelIn(a, 12, false, true).isInvalid());
    EXPECT_EQ(board->getPanelIn(a, 12, true, true).relativeFirstFrame(), 16u);
    EXPECT_EQ(board->getPanelIn(a, 12, true, false).relativeFirstFrame(), 1u);
    EXPECT_TRUE(board->getPanelIn(Shot_t(), 1, true, true).isInvalid());
    EXPECT_TRUE(board->getPanelIn(a, 0, false, true).isInvalid());
    EXPECT_EQ(board->getPanelIn(a, 0, true, true).relativeFirstFrame(), 1u);
}

TEST_P(FrameLookup, LooksThroughTheTimeWarpOfTheShot)
{
    Storyboard board("A[5..28](4,40)", GetParam());
    EXPECT_EQ(board->getPanelAt(1, Backward, false, true).frameBlock().fromFrame(), 5u);
    EXPECT_EQ(board->getPanelIn(board->getShotByNdx(0), 1, false, true).id(), board.panelId(0, 1));
}

TEST_P(FrameLookup, FindsNoShotWhoseSceneIsGone)
{
    Storyboard board("A(10) B@5(gone) C(5)", GetParam());
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(board->getShotAt(12, Backward, true, true).isInvalid());
        EXPECT_TRUE(board->next(board->getShotByNdx(0)).isValid()); // walked over, and not remembered by frame
    }
    EXPECT_EQ(board->getShotAt(16, Backward, false, true).name(), QStringLiteral("C"));
}

TEST_P(FrameLookup, FindsNoPanelInAShotWithoutPanels)
{
    Storyboard board("A@10(bare) B@10() C(5,5gone) ?5 %5", GetParam());
    EXPECT_TRUE(board->getPanelAt(3, Backward, true, true).isInvalid());
    EXPECT_TRUE(board->getPanelAt(13, Backward, true, true).isInvalid());
    EXPECT_TRUE(board->getPanelAt(26, Backward, true, true).isInvalid());
    EXPECT_TRUE(board->getShotAt(32, Backward, true, true).isInvalid());
    EXPECT_TRUE(board->getShotAt(37, Backward, true, true).isInvalid());
}

TEST(FrameLookup, AnswersAPanelFoundByNearnessWithAHandleOfItsOwn)
{
    Storyboard board("A(10,-5,10)");
    const Shot_t a = board->getShotByNdx(0);
    const Panel_t remembered = board->getPanelIn(a, 16, false, true);
    const Panel_t byNearness = board->getPanelIn(a, 12, true, true);
    EXPECT_EQ(remembered, byNearness);
    EXPECT_NE(static_cast<const SharedPtr<PanelPrivate> &>(remembered),
        static_cast<const SharedPtr<PanelPrivate> &>(byNearness));
    EXPECT_EQ(static_cast<const SharedPtr<PanelPrivate> &>(remembered),
        static_cast<const SharedPtr<PanelPrivate> &>(board->getPanelIn(a, 17, false, true)));
}

TEST(FrameLookup, KeepsItsAnswersUntilTheEditIsTold)
{
    Storyboard board("A(24) -10- B(36)");
    const Shot_t b = board->getShotAt(40, Backward, false, true);
    ASSERT_TRUE(b.isValid());
    ASSERT_TRUE(board.liftShot(1));
    ASSERT_TRUE(board.placeShot("C", 35, 36));
    EXPECT_EQ(board->getShotAt(40, Backward, false, true), b);
    board.notify();
    EXPECT_EQ(board->getShotAt(40, Backward, false, true).name(), QStringLiteral("C"));
}

TEST(FrameLookup, GivesTextToANamelessRecordOfThatName)
{
    Storyboard board("A(24) B(12)");
    for (const unsigned int shot : {0u, 1u}) {
        PIO_Metadatas *const records = board.shotScene(shot)->metadatas();
        while (records->begin() != records->end())
            records->remove(*records->begin());
        records->add(new PKC_SceneInfo(QStringLiteral("sceneInfo")));
    }
    board->invalidate();
    const Shot_t a = board->getShotAt(1, Backward, false, true);
    EXPECT_EQ(a.name(), QStringLiteral("internalSymbol"));
    EXPECT_EQ(board->next(a).name(), QString()); // not on a walk
    board->invalidate();
    EXPECT_EQ(board->getShotAt(30, Backward, false, true).name(), QStringLiteral("internalSymbol"));
}

TEST(FrameLookup, LeavesRecordsWithoutThatNameAlone)
{
    Storyboard board("(24)");
    board.shotScene(0)->metadatas()->add(new PKC_SceneInfo);
    board->invalidate();
    const Shot_t shot = board->getShotAt(1, Backward, false, true);
    EXPECT_EQ(shot.sceneInfo()->name().value(), QString());
}

TEST_P(FrameLookup, FindsTheCounterpartOfAPanelByIdThenByName)
{
    Storyboard board("A(p=10,q=10,q!=10) B(q=5,q!=5,r!=5)", GetParam());
    const Shot_t a = board->getShotByNdx(0);
    const Shot_t b = board->getShotByNdx(1);
    const Panel_t p = board->getPanelByNdx(0);
    const Panel_t q = board->getPanelByNdx(1);
    const Panel_t lockedQ = board->getPanelByNdx(2);
    EXPECT_EQ(board->getPanelIn(a, p, false), p);
    EXPECT_EQ(board->getPanelIn(a, p, true), p); // itself, locked or not
    EXPECT_TRUE(board->getPanelIn(b, p, false).isInvalid());
    EXPECT_EQ(board->getPanelIn(b, q, false).id(), board.panelId(1, 0));
    EXPECT_TRUE(board->getPanelIn(b, q, true).isInvalid());                   // q of A is not locked
    EXPECT_EQ(board->getPanelIn(b, lockedQ, true).id(), board.panelId(1, 1)); // goes on past the unlocked one
    EXPECT_EQ(board->getPanelIn(a, board->getPanelByNdx(5), false), Panel_t());
    EXPECT_TRUE(board->getPanelIn(b, Panel_t(), false).isInvalid());
    EXPECT_TRUE(board->getPanelIn(Shot_t(), q, false).isInvalid());
}

TEST_P(FrameLookup, FindsGapsBetweenShots)
{
    Storyboard board("-4- A(10) -10- B(10)", GetParam());
    EXPECT_EQ(board->getSpaceAt(1), Space_t(1, 4));
    EXPECT_EQ(board->getSpaceAt(4), Space_t(1, 4));
    EXPECT_EQ(board->getSpaceAt(20), Space_t(15, 24));
    EXPECT_FALSE(board->getSpaceAt(20).isInShot());
    const Space_t atEnd = board->getSpaceAt(99);
    EXPECT_EQ(atEnd, Space_t(35, 0xFFFFFFFF));
    EXPECT_TRUE(atEnd.isSpaceAtEnd());
    EXPECT_EQ(atEnd.length(), 0xFFFFFFFFu);
    EXPECT_EQ(board->getSpaceAt(7), Space_t::invalid);
    EXPECT_TRUE(board->hasSpaceAt(20));
    EXPECT_FALSE(board->hasSpaceAt(7));
}

TEST_P(FrameLookup, FindsGapsWithinAShot)
{
    Storyboard board("-10- A(-3,10,-5,10)", GetParam());
    const Shot_t a = board->getShotByNdx(0);
    EXPECT_EQ(board->getSpaceAt(11), Space_t(a, 11, 13));
    EXPECT_EQ(board->getSpaceAt(25), Space_t(a, 24, 28));
    EXPECT_TRUE(board->getSpaceAt(25).isInShot());
    EXPECT_EQ(board->getSpaceAt(14), Space_t::invalid);
}

TEST_P(FrameLookup, FindsAGapAtTheEndOfAShotOnlyInOneThatStartsAtFrameOne)
{
    Storyboard first("A(10,-5)", GetParam());
    EXPECT_EQ(first->getSpaceAt(12), Space_t(first->getShotByNdx(0), 11, 0xFFFFFFFF));
    Storyboard later("-10- A(10,-5)", GetParam());
    EXPECT_TRUE(later->getSpaceAt(22).isInvalid());
}

TEST_P(FrameLookup, StandsOnTransitionOrPanelOrBesideAGap)
{
    Storyboard board("A(20) ~2+2~ B(14) -10- C(5)", GetParam());
    EXPECT_EQ(panelOrTransition(board->panelTransAt(18)), PanelTrans_t(board->getTransByNdx(0)));
    EXPECT_EQ(panelOrTransition(board->panelTransAt(3)), PanelTrans_t(board->getPanelByNdx(0)));
    EXPECT_TRUE(board->panelTransAt(35).current().isInvalid());
    EXPECT_TRUE(board->panelTransAt(35).isTransitionAfter());
    EXPECT_EQ(board->panelTransAfter(35).current().firstFrame(), 41u);
    EXPECT_EQ(board->panelTransBefore(35).current().firstFrame(), 17u);
    EXPECT_EQ(panelOrTransition(board->panelTransAfter(18)), PanelTrans_t(board->getTransByNdx(0)));
    EXPECT_EQ(panelOrTransition(board->panelTransBefore(18)), PanelTrans_t(board->getTransByNdx(0)));
}

TEST_P(FrameLookup, SetsAnIteratorOnATransitionBesideAPanelOfItsFrames)
{
    Storyboard both("A(10,10) ~2+2~ B(8,6)", GetParam());
    const auto it = both->panelTransAt(18);
    EXPECT_EQ(it.current().lastFrame(), 20u);
    EXPECT_TRUE(it.isTransitionAfter());
    // The last panel runs past its shot, so the panel that begins with the transition is the one.
    Storyboard after("A@20(25) ~2+2~ B(14)", GetParam());
    EXPECT_EQ(after->panelTransAt(18).current().firstFrame(), 17u);
    EXPECT_FALSE(after->panelTransAt(18).isTransitionAfter());
    // The walk by panels ends at the gap, so none is met.
    Storyboard gapBefore("A(10,-10) ~2+2~ B(14)", GetParam());
    EXPECT_TRUE(gapBefore->panelTransAt(18).current().isInvalid());
    EXPECT_TRUE(gapBefore->panelTransAt(18).isTransitionAfter());
}

TEST_P(FrameLookup, StaysInTheShotAtAGapWithinIt)
{
    Storyboard board("A(10,-5,10) B(5)", GetParam());
    EXPECT_TRUE(board->getPanelAt(12, Backward, false, true).isInvalid());
    EXPECT_EQ(board->getPanelAt(12, Backward, true, true).firstFrame(), 16u);
    EXPECT_EQ(board->getPanelAt(12, Backward, true, false).firstFrame(), 1u);
    Storyboard atEnd("A(10,-5) B(5)", GetParam());
    EXPECT_TRUE(atEnd->getPanelAt(12, Backward, true, true).isInvalid()); // not the next shot's
}
