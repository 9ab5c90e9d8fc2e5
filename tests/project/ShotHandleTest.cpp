#include "support/Printers.h"
#include "support/Storyboard.h"

#include "project/ObjectIds.h"

#include "metadata/PKC_SceneInfo.h"
#include "project/ObjectNameHelper.h"
#include "scene/timeline/AT_TimeWarpSeq.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <optional>
#include <utility>

using namespace Plotka;

namespace
{

class FixedNames : public ObjectNameHelper
{
public:
    QString getPanelName(const Panel_t &) const override { return QStringLiteral("panel by helper"); }
    QString getSceneName(const Shot_t &) const override { return QStringLiteral("shot by helper"); }
};

/// Identifies an object without placing a scene.
class SceneLessSeq : public TUSeq
{
public:
    using TUSeq::TUSeq;

    const TUSeq *identifiedSeq() const override { return this; }
};

/// Runs something when it dies.
class LastWords : public AT_TimeWarpSeq
{
public:
    LastWords(const TUScene *scene, std::function<void()> words) :
        AT_TimeWarpSeq(scene, 1.0, 5.0), m_words(std::move(words))
    {
    }
    ~LastWords() override { m_words(); }

private:
    std::function<void()> m_words;
};

} // namespace

TEST(ShotHandle, IsInvalidByDefaultAndAnswersNeutrally)
{
    const Shot_t none;
    EXPECT_TRUE(none.isInvalid());
    EXPECT_FALSE(none.isValid());
    EXPECT_EQ(none, Shot_t::invalid);
    EXPECT_EQ(none.id(), invalidId);
    EXPECT_EQ(none.sceneId(), SC_Id());
    EXPECT_EQ(none.symbol(), nullptr);
    EXPECT_FALSE(none.frameBlock().isValid());
    EXPECT_EQ(none.firstFrame(), 0u);
    EXPECT_EQ(none.lastFrame(), 0u);
    EXPECT_EQ(none.objNumOfFrame(), 0u);
    EXPECT_TRUE(none.name().isNull());
    EXPECT_EQ(none.sequenceName(), QStringLiteral("0"));
    EXPECT_EQ(none.actName(), QStringLiteral("0"));
    EXPECT_EQ(none.sceneInfo(), nullptr);
    EXPECT_EQ(none.prjFrameToTvFrame(7), 7u);
}

TEST(ShotHandle, OfANullSceneIsValidWithoutAnId)
{
    Storyboard board("A(24)");
    const Shot_t shot(&board.timeline(), nullptr, nullptr);
    EXPECT_TRUE(shot.isValid());
    EXPECT_EQ(shot.id(), invalidId);
    EXPECT_FALSE(shot.frameBlock().isValid());
    EXPECT_EQ(shot.sceneInfo(), nullptr);
}

TEST(ShotHandle, TellsItsPlaceAndItsTwoIds)
{
    Storyboard board("A(24,12) -10- B(36)");
    const Shot_t b = board->getShotByNdx(1);
    EXPECT_EQ(b.firstFrame(), 47u);
    EXPECT_EQ(b.lastFrame(), 82u);
    EXPECT_EQ(b.objNumOfFrame(), 36u);
    EXPECT_EQ(b.id(), board.shotScene(1)->objectId());
    EXPECT_EQ(b.sceneId(), board.shotScene(1)->sceneId());
    EXPECT_NE(b.id(), b.sceneId());
    EXPECT_EQ(b.symbol(), board.shotScene(1));
}

TEST(ShotHandle, ComparesByObjectIdWhateverItsOrigin)
{
    Storyboard board("A(24) B(12)");
    const Shot_t a = board->getShotByNdx(0);
    const Shot_t again(&board.timeline(), board.shotScene(0), nullptr);
    const Shot_t b = board->getShotByNdx(1);
    EXPECT_EQ(a, again);
    EXPECT_NE(static_cast<const SharedPtr<ShotPrivate> &>(a), static_cast<const SharedPtr<ShotPrivate> &>(again));
    EXPECT_NE(a, b);
    EXPECT_EQ(a < b, a.id() < b.id());
}

TEST(ShotHandle, FollowsAnEditWithoutBeingToldOfIt)
{
    Storyboard board("A(24) B(12)");
    const Shot_t b = board->getShotByNdx(1);
    ASSERT_EQ(b.firstFrame(), 25u);
    board.moveShots(1, 5);
    EXPECT_EQ(b.firstFrame(), 30u);
    EXPECT_EQ(b.lastFrame(), 41u);
}

TEST(ShotHandle, AnswersNeutrallyOnceItsBlockIsGone)
{
    Storyboard board("A(24) B(12)");
    const Shot_t b = board->getShotByNdx(1);
    ASSERT_EQ(b.firstFrame(), 25u); // found once: where an old place would linger
    const SC_Id id = b.id();
    ASSERT_TRUE(board.liftShot(1));
    EXPECT_TRUE(b.isValid());
    EXPECT_EQ(b.id(), id);
    EXPECT_FALSE(b.frameBlock().isValid());
    EXPECT_EQ(b.firstFrame(), 0u);
    EXPECT_EQ(b.lastFrame(), 0u);
    EXPECT_EQ(b.objNumOfFrame(), 0u);
    EXPECT_EQ(b.sceneId(), SC_Id());
}

TEST(ShotHandle, AnswersNeutrallyOnceItsSceneIsGone)
{
    Storyboard board("A(24) B(12)");
    const Shot_t b = board->getShotByNdx(1);
    ASSERT_EQ(b.name(), QStringLiteral("B"));
    const SC_Id id = b.id();
    ASSERT_TRUE(board.deleteShotScene(1));
    EXPECT_TRUE(b.isValid());
    EXPECT_EQ(b.id(), id);
    EXPECT_EQ(b.symbol(), nullptr);
    EXPECT_FALSE(b.frameBlock().isValid());
    EXPECT_EQ(b.sceneInfo(), nullptr);
    EXPECT_TRUE(b.name().isNull());
    EXPECT_EQ(b.sequenceName(), QStringLiteral("0"));
}

TEST(ShotHandle, IsAskedWhileItsSequenceDies)
{
    for (const bool withTimeline : {false, true}) {
        Storyboard board;
        TUScene *const scene = board.sceneProject().addScene();
        unsigned int frame = 99;
        const Shot_t shot(&board.timeline(), scene, nullptr);
        ASSERT_TRUE(board.timeline().insertBlock(11, 5, new LastWords(scene, [&] { frame = shot.firstFrame(); })));
        ASSERT_EQ(shot.firstFrame(), 11u);
        EXPECT_TRUE(withTimeline ? board.topScene().removeTimedValue(&board.timeline())
                                 : board.timeline().removeBlock({11, 5, false}));
        EXPECT_EQ(frame, 0u);
    }
}

TEST(ShotHandle, OutlivesItsTimedValue)
{
    Storyboard board("A(24)");
    const Shot_t a = board->getShotByNdx(0);
    ASSERT_EQ(a.firstFrame(), 1u);
    board.topScene().removeTimedValue(&board.timeline());
    EXPECT_EQ(a.firstFrame(), 0u);
    EXPECT_FALSE(a.frameBlock().isValid());
    EXPECT_EQ(a.symbol(), board.sceneProject().projectCommon()->sceneManager()->find(a.symbol()->sceneId()));
}

TEST(ShotHandle, OutlivesItsProject)
{
    std::optional<Storyboard> board("A(24)");
    const Shot_t a = (*board)->getShotByNdx(0);
    const Panel_t panel = (*board)->getPanelByNdx(0);
    board.reset();
    EXPECT_EQ(a.firstFrame(), 0u);
    EXPECT_EQ(a.symbol(), nullptr);
    EXPECT_TRUE(a.name().isNull());
    EXPECT_EQ(panel.firstFrame(), 0u);
    EXPECT_EQ(panel.clipInfo(), nullptr);
    EXPECT_EQ(panel.shot(), a);
}

TEST(ShotHandle, TouchesNoRecordUntilItsNamesAreAskedFor)
{
    Storyboard board("A(24)");
    TUScene *const fresh = board.sceneProject().addScene();
    const Shot_t shot(&board.timeline(), fresh, nullptr);
    EXPECT_EQ(fresh->metadatas()->begin(), fresh->metadatas()->end());
    PKC_SceneInfo *const info = shot.sceneInfo();
    ASSERT_NE(info, nullptr);
    EXPECT_TRUE(info->metaName().isNull());
    EXPECT_TRUE(fresh->metadatas()->contains(info));
    EXPECT_EQ(shot.sceneInfo(), info);
    EXPECT_EQ(Shot_t(&board.timeline(), fresh, nullptr).sceneInfo(), info);
}

TEST(ShotHandle, LooksItsRecordUpAnewWhenTheContainerDroppedIt)
{
    Storyboard board("A(24)");
    const Shot_t a = board->getShotByNdx(0);
    PKC_SceneInfo *const dropped = a.sceneInfo();
    ASSERT_TRUE(a.symbol()->metadatas()->remove(dropped));
    PKC_SceneInfo *const fresh = a.sceneInfo();
    ASSERT_NE(fresh, nullptr);
    EXPECT_TRUE(a.symbol()->metadatas()->contains(fresh));
}

TEST(ShotHandle, HasItsCustomNameElseThatOfTheHelper)
{
    Storyboard board("A(24)");
    const FixedNames helper;
    const Shot_t shot(&board.timeline(), board.shotScene(0), &helper);
    EXPECT_EQ(shot.name(), QStringLiteral("A"));
    shot.sceneInfo()->name().setFlag(0);
    EXPECT_EQ(shot.name(), QStringLiteral("shot by helper"));
    EXPECT_TRUE(Shot_t(&board.timeline(), board.shotScene(0), nullptr).name().isNull());
}

TEST(ShotHandle, OfAFreshSceneHasAnEmptyCustomName)
{
    Storyboard board("A(24)");
    const FixedNames helper;
    const Shot_t shot(&board.timeline(), board.sceneProject().addScene(), &helper);
    EXPECT_EQ(shot.name(), QString());
    EXPECT_TRUE(shot.sceneInfo()->name().isCustom());
}

TEST(ShotHandle, TakesADeadHelperForNone)
{
    Storyboard board("A(24)");
    std::optional<FixedNames> helper(std::in_place);
    const Shot_t shot(&board.timeline(), board.shotScene(0), &*helper);
    shot.sceneInfo()->name().setFlag(0);
    ASSERT_EQ(shot.name(), QStringLiteral("shot by helper"));
    helper.reset();
    EXPECT_TRUE(shot.name().isNull());
}

TEST(ShotHandle, HasSequenceAndActOnlyWhenTheirNamesAreCustom)
{
    Storyboard board("A(24)");
    const Shot_t a = board->getShotByNdx(0);
    a.sceneInfo()->sequenceName().setValue(QStringLiteral("S"));
    a.sceneInfo()->actName().setValue(QStringLiteral("One"));
    EXPECT_EQ(a.sequenceName(), QStringLiteral("0"));
    EXPECT_EQ(a.actName(), QStringLiteral("0"));
    a.sceneInfo()->sequenceName().setFlag(2);
    a.sceneInfo()->actName().setFlag(3);
    EXPECT_EQ(a.sequenceName(), QStringLiteral("S"));
    EXPECT_EQ(a.actName(), QStringLiteral("One"));
}

TEST(ShotHandle, CountsShotFramesFromItsFirstFrame)
{
    // frame:  1        26
    //         | (gap)  |A        |
    Storyboard board("-25- A(24)");
    const Shot_t a = board->getShotByNdx(0);
    EXPECT_EQ(a.projectFrameToShotFrame(26), 1.0);
    EXPECT_EQ(a.projectFrameToShotFrame(49), 24.0);
    EXPECT_EQ(a.projectFrameToShotFrame(25), 0.0);
    EXPECT_EQ(a.projectFrameToShotFrame(24), 4294967295.0); // wraps, 32 bits unsigned
    EXPECT_EQ(a.shotFrameToProjectFrame(1.0), 26u);
    EXPECT_EQ(a.shotFrameToProjectFrame(1.9), 26u);
    EXPECT_EQ(a.shotFrameToProjectFrame(0.5), 25u);
    EXPECT_EQ(a.shotFrameToProjectFrame(4294967295.0), 24u); // low 32 bits
    EXPECT_EQ(a.shotFrameToProjectFrame(-30.0), 4294967291u);
    EXPECT_EQ(a.shotFrameToProjectFrame(std::nan("")), 0u);
    EXPECT_EQ(a.shotFrameToProjectFrame(std::numeric_limits<double>::infinity()), 0u);
    EXPECT_EQ(a.shotFrameToProjectFrame(1e300), 0u);
}

TEST(ShotHandle, AddsTheStartOfItsTimeWarpToReachItsTimedValue)
{
    Storyboard board("A[5..28](40) B[]@36(24,12) C[1.5..24.5]@24(24)");
    EXPECT_EQ(board->getShotByNdx(0).prjFrameToTvFrame(1), 5u);
    EXPECT_EQ(board->getShotByNdx(0).prjFrameToTvFrame(24), 28u);
    EXPECT_EQ(board->getShotByNdx(1).prjFrameToTvFrame(7), 7u); // no time warp
    EXPECT_EQ(board->getShotByNdx(2).prjFrameToTvFrame(3), 3u); // 3.5 cut toward zero
    ASSERT_TRUE(board.setShotWarp(0, -10.0, 13.0));
    EXPECT_EQ(board->getShotByNdx(0).prjFrameToTvFrame(1), 4294967286u); // low 32 bits of -10
}

TEST(ShotHandle, ReportsOnStandardOutputThatASequencePlacesNoScene)
{
    Storyboard board("A(24)");
    TUScene *const scene = board.sceneProject().addScene();
    ASSERT_TRUE(board.timeline().insertBlock(50, 10, new SceneLessSeq(scene->objectId())));
    const Shot_t shot(&board.timeline(), scene, nullptr);
    ASSERT_EQ(shot.firstFrame(), 50u);
    testing::internal::CaptureStdout();
    EXPECT_EQ(shot.sceneId(), SC_Id());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Err: Invalid frame block, cannot get scene id - [seq]\n");
}

TEST(ShotHandle, IsSilentAboutItsSceneIdOtherwise)
{
    Storyboard board("A(24)");
    const Shot_t a = board->getShotByNdx(0);
    testing::internal::CaptureStdout();
    EXPECT_EQ(a.sceneId(), board.shotScene(0)->sceneId());
    EXPECT_EQ(Shot_t().sceneId(), SC_Id());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}
