#include "support/Printers.h"
#include "support/Storyboard.h"

#include "project/ObjectIds.h"

#include "metadata/PKC_SceneInfo.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Plotka;

class IdentityLookup : public ::testing::TestWithParam<bool>
{
};

INSTANTIATE_TEST_SUITE_P(
    Cache, IdentityLookup, ::testing::Bool(), [](const auto &road) { return road.param ? "On" : "Off"; });

TEST_P(IdentityLookup, FindsObjectsById)
{
    Storyboard board("A(10,10) ~2+2~ B(14) C(5)", GetParam());
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(board->getShotByID(board.shotId(1)).firstFrame(), 17u);
        EXPECT_EQ(board->getPanelByID(board.panelId(2, 0)).firstFrame(), 31u);
        EXPECT_EQ(board->getTransByID(board.transitionId(0)).firstFrame(), 17u);
        EXPECT_TRUE(board->getShotByID(board.panelId(0, 0)).isInvalid());
        EXPECT_TRUE(board->getPanelByID(board.shotId(0)).isInvalid());
        EXPECT_TRUE(board->getTransByID(SC_Id(999999)).isInvalid());
        EXPECT_TRUE(board->getPanelByID(invalidId).isInvalid());
        board->invalidate();
    }
    EXPECT_TRUE(board->isShotValid(board.shotId(0)));
    EXPECT_FALSE(board->isShotValid(board.panelId(0, 0)));
    EXPECT_TRUE(board->isPanelValid(board.panelId(0, 1)));
    EXPECT_FALSE(board->isPanelValid(SC_Id()));
    EXPECT_TRUE(board->isTransValid(board.transitionId(0)));
    EXPECT_FALSE(board->isTransValid(board.shotId(0)));
}

TEST_P(IdentityLookup, PrefersTheTransitionAmongPanelsAndTransitions)
{
    Storyboard board("A(20) ~2+2~ B(14)", GetParam());
    EXPECT_TRUE(board->getPanelTransById(board.transitionId(0)).isTrans());
    EXPECT_TRUE(board->getPanelTransById(board.panelId(1, 0)).isPanel());
    EXPECT_TRUE(board->getPanelTransById(SC_Id(999999)).isInvalid());
    EXPECT_TRUE(board->panelTransById(board.transitionId(0)).isOnTransition());
    const auto onPanel = board->panelTransById(board.panelId(1, 0));
    EXPECT_EQ(onPanel.current().firstFrame(), 17u);
    EXPECT_FALSE(onPanel.isOnTransition());
    EXPECT_TRUE(onPanel.isTransitionAfter());
    EXPECT_TRUE(board->panelTransById(SC_Id(999999)).current().isInvalid());
}

TEST(IdentityLookup, FindsAPanelBehindAGapAtAShotsEndOnlyOnceItHasBeenSeenByFrame)
{
    Storyboard board("A(10,-5) B(5)");
    const SC_Id hidden = board.panelId(1, 0);
    EXPECT_TRUE(board->getPanelByID(hidden).isInvalid());
    ASSERT_TRUE(board->getPanelAt(16, PKC_PlotkaProject::ResolveBackward, false, true).isValid());
    EXPECT_EQ(board->getPanelByID(hidden).firstFrame(), 16u);
    board->invalidate();
    EXPECT_TRUE(board->getPanelByID(hidden).isInvalid());
}

TEST_P(IdentityLookup, FindsObjectsByPlaceAndPlacesByObject)
{
    Storyboard board("A(10,10) ~2+2~ B(14) C(5)", GetParam());
    EXPECT_EQ(board->getShotByNdx(2).firstFrame(), 31u);
    EXPECT_TRUE(board->getShotByNdx(3).isInvalid());
    EXPECT_TRUE(board->getShotByNdx(0xFFFFFFFF).isInvalid());
    EXPECT_EQ(board->getPanelByNdx(3).firstFrame(), 31u);
    EXPECT_TRUE(board->getPanelByNdx(board->panelCount()).isInvalid());
    EXPECT_EQ(board->getTransByNdx(0).firstFrame(), 17u);
    EXPECT_TRUE(board->getTransByNdx(1).isInvalid());

    EXPECT_EQ(board->getShotNdx(board->getShotByNdx(1)), 1u);
    EXPECT_EQ(board->getShotNdx(Shot_t()), PKC_PlotkaProject::invalidNdx);
    EXPECT_EQ(board->getShotNdx(QStringLiteral("C")), 2u);
    EXPECT_EQ(board->getShotNdx(QStringLiteral("c")), PKC_PlotkaProject::invalidNdx);
    EXPECT_EQ(board->getPanelNdx(board->getPanelByNdx(2), /*inShot*/ false), 2u);
    EXPECT_EQ(board->getPanelNdx(board->getPanelByNdx(2), /*inShot*/ true), 0u);
    EXPECT_EQ(board->getPanelNdx(board->getPanelByNdx(1), /*inShot*/ true), 1u);
    EXPECT_EQ(board->getPanelNdx(Panel_t(), /*inShot*/ false), PKC_PlotkaProject::invalidNdx);
    EXPECT_EQ(board->getPanelNdx(Panel_t(), /*inShot*/ true), PKC_PlotkaProject::invalidNdx);
}

TEST_P(IdentityLookup, UppercasesOnlyTheShotsSideOfAName)
{
    Storyboard board("one(10) Two(10) Two(5)", GetParam());
    PKC_SceneInfo *const third = board->getShotByNdx(2).sceneInfo();
    third->sequenceName().setValue(QStringLiteral("Sq"));
    third->sequenceName().setFlag(2);
    const auto found = [&](const char *name, const char *sequence, bool upperCase) {
        return board->getShotByName(QString::fromUtf8(name), QString::fromUtf8(sequence), upperCase).firstFrame();
    };
    EXPECT_EQ(found("Two", "", false), 11u);
    EXPECT_EQ(found("Two", "Sq", false), 21u);
    EXPECT_EQ(found("Two", "0", false), 11u);
    EXPECT_EQ(found("Two", "SQ", false), 0u);
    EXPECT_EQ(found("TWO", "SQ", true), 21u);
    EXPECT_EQ(found("two", "", true), 0u); // the argument is taken as it is
    EXPECT_EQ(found("one", "", true), 1u);
    EXPECT_EQ(found("ONE", "", false), 0u);
    EXPECT_TRUE(board->getShotByName(QStringLiteral("x"), QString(), true).isInvalid());
}

TEST_P(IdentityLookup, ListsThePanelsBetweenTwo)
{
    Storyboard board("A(10,10) B(5,5) C(7)", GetParam());
    const auto panel = [&](unsigned int index) { return board->getPanelByNdx(index); };
    const auto id = [&](unsigned int index) { return panel(index).id(); };
    using Ids = std::list<SC_Id>;
    EXPECT_EQ(board->panelsIdBetween(panel(0), panel(2), true), (Ids{id(0), id(1), id(2)}));
    EXPECT_EQ(board->panelsIdBetween(panel(0), panel(2), false), (Ids{id(1)}));
    EXPECT_EQ(board->panelsIdBetween(panel(1), panel(1), true), (Ids{id(1)}));
    EXPECT_EQ(board->panelsIdBetween(panel(1), panel(1), false), Ids());
    EXPECT_EQ(board->panelsIdBetween(panel(3), panel(4), true), (Ids{id(3), id(4)})); // up to the last one
    EXPECT_EQ(board->panelsIdBetween(panel(3), panel(4), false), Ids());
    EXPECT_EQ(board->panelsIdBetween(Panel_t(), panel(4), true), Ids());
    EXPECT_EQ(board->panelsIdBetween(panel(0), Panel_t(), true), Ids());
    EXPECT_EQ(board->panelsIdIn(board->getShotByNdx(1)), (Ids{id(2), id(3)}));
    EXPECT_EQ(board->panelsIdIn(board->getShotByNdx(2)), (Ids{id(4)}));
    EXPECT_EQ(board->panelsIdIn(Shot_t()), Ids());
}

TEST_P(IdentityLookup, RefusesToListPanelsBackward)
{
    Storyboard board("A(10,10) B(5,5)", GetParam());
    const auto listBackward = [&](bool inclusive) {
        return board->panelsIdBetween(board->getPanelByNdx(2), board->getPanelByNdx(0), inclusive);
    };
    try {
        listBackward(true);
        FAIL();
    } catch (const std::length_error &error) {
        EXPECT_STREQ(error.what(), "list too long");
    }
    EXPECT_THROW(listBackward(false), std::length_error);
    // The end of an inclusive list is what follows: right behind it, a list of nothing.
    EXPECT_TRUE(board->panelsIdBetween(board->getPanelByNdx(2), board->getPanelByNdx(1), true).empty());
    EXPECT_THROW(board->panelsIdBetween(board->getPanelByNdx(3), board->getPanelByNdx(2), false), std::length_error);
}

TEST_P(IdentityLookup, TellsWhetherPanelsAreOfOneShot)
{
    Storyboard board("A(10,10) B(5,5)", GetParam());
    const SC_Id a0 = board.panelId(0, 0);
    const SC_Id a1 = board.panelId(0, 1);
    const SC_Id b0 = board.panelId(1, 0);
    EXPECT_TRUE(board->areAllPanelsOfSameScene({}));
    EXPECT_TRUE(board->areAllPanelsOfSameScene({a0}));
    EXPECT_TRUE(board->areAllPanelsOfSameScene({a0, a1, a0}));
    EXPECT_FALSE(board->areAllPanelsOfSameScene({a0, b0}));
    EXPECT_FALSE(board->areAllPanelsOfSameScene({a0, SC_Id(999999)}));
    EXPECT_FALSE(board->areAllPanelsOfSameScene({SC_Id(999999)}));
}

TEST_P(IdentityLookup, TellsWhetherANeighbourIsOfTheSameShot)
{
    Storyboard board("A(10,10) B(5) C(5,5)", GetParam());
    const SC_Id a0 = board.panelId(0, 0);
    const SC_Id a1 = board.panelId(0, 1);
    const SC_Id b0 = board.panelId(1, 0);
    const SC_Id c0 = board.panelId(2, 0);
    const SC_Id c1 = board.panelId(2, 1);
    EXPECT_TRUE(board->neighborIsOfSameScene(a1, b0)); // before a1
    EXPECT_TRUE(board->neighborIsOfSameScene(b0, c0)); // after c0
    EXPECT_FALSE(board->neighborIsOfSameScene(b0, b0));
    EXPECT_FALSE(board->neighborIsOfSameScene(b0, c1));
    EXPECT_FALSE(board->neighborIsOfSameScene(a0, c0)); // nothing before a0, whatever the second is
    EXPECT_FALSE(board->neighborIsOfSameScene(SC_Id(999999), c0));
    EXPECT_FALSE(board->neighborIsOfSameScene(b0, SC_Id(999999)));
}
