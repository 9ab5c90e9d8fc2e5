#include "support/Printers.h"
#include "support/Storyboard.h"

#include "scene/network/MO_ElementModule.h"
#include "scene/network/TUGroup.h"
#include "scene/timeline/TUSoundTimedValue.h"

#include <gtest/gtest.h>

using namespace Plotka;

class Adjacency : public ::testing::TestWithParam<bool>
{
};

INSTANTIATE_TEST_SUITE_P(
    Cache, Adjacency, ::testing::Bool(), [](const auto &road) { return road.param ? "On" : "Off"; });

TEST_P(Adjacency, FindsTheGapsBesideShotsAndPanels)
{
    // frame:  1      11       21     31
    //         |A     |  gap   |B     | gap without end
    Storyboard board("A(10) -10- B(10)", GetParam());
    const Shot_t a = board->getShotByNdx(0);
    const Shot_t b = board->getShotByNdx(1);
    Space_t space;
    EXPECT_TRUE(board->isFollowedBySpace(a, &space));
    EXPECT_EQ(space, Space_t(11, 20));
    EXPECT_TRUE(board->isPrecededBySpace(b));
    EXPECT_TRUE(board->isFollowedBySpace(board->getPanelByNdx(1), &space));
    EXPECT_TRUE(space.isSpaceAtEnd());
    EXPECT_TRUE(board->isPrecededBySpace(board->getPanelByNdx(1), &space));
    EXPECT_EQ(space, Space_t(11, 20));
}

TEST_P(Adjacency, AsksForFrameZeroBeforeAShotAtFrameOne)
{
    Storyboard board("A(10) B(10)", GetParam());
    Space_t space(3, 4);
    // Frame 0 lies in no block: the gap before the first frame is from 1 to 0.
    EXPECT_FALSE(board->isPrecededBySpace(board->getShotByNdx(0), &space));
    EXPECT_TRUE(space.isInvalid());
    EXPECT_FALSE(board->isFollowedBySpace(board->getShotByNdx(0), &space));
}

TEST_P(Adjacency, LeavesTheGapAloneForAnInvalidObject)
{
    Storyboard board("-5- A(10)", GetParam());
    Space_t space(3, 4);
    EXPECT_FALSE(board->isFollowedBySpace(Panel_t(), &space));
    EXPECT_FALSE(board->isPrecededBySpace(Panel_t(), &space));
    EXPECT_FALSE(board->isFollowedBySpace(Shot_t(), &space));
    EXPECT_FALSE(board->isPrecededBySpace(Shot_t(), &space));
    EXPECT_EQ(space, Space_t(3, 4));
}

TEST_P(Adjacency, FindsTheTransitionsBesideShotsAndPanels)
{
    Storyboard board("A(10,10) ~2+2~ B(8,6) C(5)", GetParam());
    const Trans_t transition = board->getTransByNdx(0);
    Trans_t found;
    EXPECT_FALSE(board->isFollowedByTrans(board->getPanelByNdx(0), &found)); // not the last of its shot
    EXPECT_TRUE(found.isInvalid());
    EXPECT_TRUE(board->isFollowedByTrans(board->getPanelByNdx(1), &found));
    EXPECT_EQ(found, transition);
    EXPECT_TRUE(board->isFollowedByTrans(board->getPanelByNdx(1)));
    EXPECT_TRUE(board->isPrecededByTrans(board->getPanelByNdx(2), &found));
    EXPECT_EQ(found, transition);
    EXPECT_FALSE(board->isPrecededByTrans(board->getPanelByNdx(3), &found));
    EXPECT_TRUE(found.isInvalid()); // set back
    EXPECT_TRUE(board->isFollowedByTrans(board->getShotByNdx(0), &found));
    EXPECT_EQ(found, transition);
    EXPECT_TRUE(board->isPrecededByTrans(board->getShotByNdx(1)));
    EXPECT_FALSE(board->isFollowedByTrans(board->getShotByNdx(1)));
    EXPECT_FALSE(board->isPrecededByTrans(board->getShotByNdx(0)));
    EXPECT_FALSE(board->isPrecededByTrans(board->getShotByNdx(2)));
    EXPECT_FALSE(board->isFollowedByTrans(Panel_t(), &found));
    EXPECT_FALSE(board->isPrecededByTrans(Shot_t(), &found));
}

TEST(Adjacency, GivesTheTransitionAfterAPanelAHandleOfItsOwn)
{
    Storyboard board("A(20) ~2+2~ B(14)");
    const Trans_t remembered = board->getTransAt(17);
    Trans_t found;
    ASSERT_TRUE(board->isFollowedByTrans(board->getPanelByNdx(0), &found));
    EXPECT_EQ(found, remembered);
    EXPECT_NE(
        static_cast<const SharedPtr<TransPrivate> &>(found), static_cast<const SharedPtr<TransPrivate> &>(remembered));
    ASSERT_TRUE(board->isPrecededByTrans(board->getPanelByNdx(1), &found));
    EXPECT_EQ(
        static_cast<const SharedPtr<TransPrivate> &>(found), static_cast<const SharedPtr<TransPrivate> &>(remembered));
}

TEST_P(Adjacency, FindsNoTransitionBesideAShotThatEndsInAGap)
{
    Storyboard board("A(10,-10) ~2+2~ B(14)", GetParam());
    EXPECT_FALSE(board->isFollowedByTrans(board->getShotByNdx(0)));
    EXPECT_TRUE(board->isPrecededByTrans(board->getShotByNdx(1)));
}

TEST_P(Adjacency, FindsTheGapsWithinAShotBesideItsPanels)
{
    Storyboard board("-5- A(10,-5,10)", GetParam());
    Space_t space;
    EXPECT_TRUE(board->isFollowedBySpace(board->getPanelByNdx(0), &space));
    EXPECT_EQ(space, Space_t(board->getShotByNdx(0), 16, 20));
    EXPECT_TRUE(board->isPrecededBySpace(board->getPanelByNdx(1), &space));
    EXPECT_EQ(space, Space_t(board->getShotByNdx(0), 16, 20));
}

class Conversion : public ::testing::TestWithParam<bool>
{
};

INSTANTIATE_TEST_SUITE_P(
    Cache, Conversion, ::testing::Bool(), [](const auto &road) { return road.param ? "On" : "Off"; });

TEST_P(Conversion, FindsTheObjectOfASceneANodeOrATimedValue)
{
    Storyboard board("A(10,10) B(5)", GetParam());
    for (int round = 0; round < 2; ++round) { // the second time from the map
        TUScene *const panelScene = board.panelScene(0, 1);
        TUScene *const shotScene = board.shotScene(1);
        EXPECT_EQ(board->sceneCommonToPanel(panelScene->sceneCommon()).id(), panelScene->objectId());
        EXPECT_EQ(board->sceneCommonToShot(shotScene->sceneCommon()).id(), shotScene->objectId());
        EXPECT_TRUE(board->sceneCommonToPanel(shotScene->sceneCommon()).isInvalid());
        EXPECT_TRUE(board->sceneCommonToShot(panelScene->sceneCommon()).isInvalid());
        EXPECT_EQ(board->tvToShot(board.panelTrack(1)).id(), shotScene->objectId());
        EXPECT_TRUE(board->tvToPanel(board.panelTrack(1)).isInvalid());
    }
    MO_ElementModule *const layer =
        new MO_ElementModule(board.panelScene(0, 1)->sceneCommon(), QStringLiteral("layer"));
    ASSERT_TRUE(board.panelScene(0, 1)->getRootGroup()->addNode(layer));
    EXPECT_EQ(board->nodeToPanel(layer).id(), board.panelId(0, 1));
    EXPECT_TRUE(board->nodeToPanel(board.topScene().getRootGroup()).isInvalid());
    TUTimedValue *const drawings = board.panelScene(0, 1)->addSeqTimedValue(QStringLiteral("drawings"));
    board.notify();
    EXPECT_EQ(board->tvToPanel(drawings).id(), board.panelId(0, 1));
    EXPECT_TRUE(board->tvToShot(drawings).isInvalid());
}

TEST_P(Conversion, OfNullIsInvalid)
{
    Storyboard board("A(10)", GetParam());
    EXPECT_TRUE(board->sceneCommonToPanel(nullptr).isInvalid());
    EXPECT_TRUE(board->sceneCommonToShot(nullptr).isInvalid());
    EXPECT_TRUE(board->nodeToPanel(nullptr).isInvalid());
    EXPECT_TRUE(board->tvToPanel(nullptr).isInvalid());
    EXPECT_TRUE(board->tvToShot(nullptr).isInvalid());
}

TEST(Conversion, RemembersShotsWithTheCachesOffAsWell)
{
    Storyboard board("A(10) B(5)");
    board->setCacheEnabled(false);
    TUScene *const b = board.shotScene(1);
    ASSERT_TRUE(board->sceneCommonToShot(b->sceneCommon()).isValid());
    ASSERT_TRUE(board.placeShot("C", 50, 5));
    TUScene *const c = board.shotScene(2);
    EXPECT_TRUE(board->sceneCommonToShot(c->sceneCommon()).isInvalid()); // not in the map
    board.notify();
    EXPECT_TRUE(board->sceneCommonToShot(c->sceneCommon()).isValid());
}

TEST_P(Conversion, CountsTheLongestSoundOfTheTopScene)
{
    Storyboard board("A(10)", GetParam());
    EXPECT_EQ(board->getNumOfAudioFrames(true), 0u);
    TUSoundTimedValue *const music = board.topScene().addSoundTimedValue(QStringLiteral("music"));
    TUSoundTimedValue *const voice = board.topScene().addSoundTimedValue(QStringLiteral("voice"));
    music->addSound(1, 90);
    voice->addSound(20, 50);
    EXPECT_EQ(board->getNumOfAudioFrames(false), 90u);
    music->muted = true;
    EXPECT_EQ(board->getNumOfAudioFrames(false), 50u);
    EXPECT_EQ(board->getNumOfAudioFrames(true), 90u);
    voice->audible = false;
    EXPECT_EQ(board->getNumOfAudioFrames(false), 0u);
    music->setExcluded(true);
    EXPECT_EQ(board->getNumOfAudioFrames(true), 50u);
}

TEST_P(Conversion, CountsThePanelsThatEndWithinTheTimeWarp)
{
    Storyboard board("A[5..28](10,10,10) B[]@10(10) C(3,4,-2,5) D[40..50](10) E[1..29](10,10,10)", GetParam());
    EXPECT_EQ(board->panelCount(board->getShotByNdx(0)), 2u); // the third runs past 28; the first began before 5
    EXPECT_EQ(board->panelCount(board->getShotByNdx(1)), 0u);
    EXPECT_EQ(board->panelCount(board->getShotByNdx(2)), 3u);
    EXPECT_EQ(board->panelCount(board->getShotByNdx(3)), 0u); // starts past the last panel
    EXPECT_EQ(board->panelCount(board->getShotByNdx(4)), 2u);
    EXPECT_EQ(board->panelCount(Shot_t()), 0u);
}

TEST_P(Conversion, CountsNoPanelOfATimeWarpThatBeginsOrEndsBeforeFrameOne)
{
    Storyboard board("A(10,10)", GetParam());
    const Shot_t shot = board->getShotByNdx(0);
    const auto countShown = [&](double start, double end) {
        EXPECT_TRUE(board.setShotWarp(0, start, end));
        return board->panelCount(shot);
    };
    EXPECT_EQ(countShown(1.0, 20.0), 2u);
    EXPECT_EQ(countShown(1.0, 1e300), 2u);
    EXPECT_EQ(countShown(1.0, 0.0), 0u);
    EXPECT_EQ(countShown(1.0, -1.0), 0u);
    EXPECT_EQ(countShown(1.0, -4294967290.0), 0u);
    EXPECT_EQ(countShown(1.0, -1e300), 0u);
    EXPECT_EQ(countShown(0.0, 20.0), 0u);
    EXPECT_EQ(countShown(-1.0, 20.0), 0u);
    EXPECT_EQ(countShown(-4294967295.0, 20.0), 0u);
}

TEST(Conversion, ReadsARememberedSceneThatNowStandsElsewhereAsNotFound)
{
    Storyboard board("A(10,10)");
    TUScene *const scene = board.panelScene(0, 1);
    const SC_SceneCommon *common = scene->sceneCommon();
    ASSERT_TRUE(board->sceneCommonToPanel(common).isValid());
    ASSERT_TRUE(board.deletePanelScene(0, 1)); // and not told of it
    EXPECT_TRUE(board->sceneCommonToPanel(common).isInvalid());
}

TEST(Conversion, OfAProjectWithoutScenesHasNoAudio)
{
    UT_SharedPtr<SC_Project> empty(new SC_Project(QStringLiteral("/nowhere"), QStringLiteral("empty")));
    const PKC_PlotkaProject project(empty.get());
    EXPECT_EQ(project.getNumOfAudioFrames(true), 0u);
    EXPECT_EQ(project.topScene(), nullptr);
    EXPECT_EQ(project.topMainTv(), nullptr);
    EXPECT_EQ(project.shotCount(), 0u);
}

TEST_P(Conversion, CountsFramesToTheEndOfTheLastShot)
{
    Storyboard board("-5- A(10) B(7)", GetParam());
    EXPECT_EQ(board->getNumOfFrames(), 22u);
}
