#include "TimelineFixture.h"

#include <limits>

namespace
{

class Sequence : public TimelineFixture
{
};

} // namespace

TEST_F(Sequence, OfNeitherKindHasNoViewAndTheNullId)
{
    const TUSeq seq;
    EXPECT_EQ(seq.identifiedSeq(), nullptr);
    EXPECT_EQ(seq.sceneSeq(), nullptr);
    EXPECT_EQ(seq.transitionView(), nullptr);
    EXPECT_TRUE(seq.objectId().isNull());
    EXPECT_TRUE(seq.id.isNull());
    EXPECT_TRUE(TUSeq(SC_Id(9)).objectId().isNull()) << "an id alone places nothing";
    EXPECT_EQ(seq.timedValue(), nullptr);
}

TEST_F(Sequence, OfASceneShowsBothItsIds)
{
    const TUScene *const scene = project.addScene();
    const AT_SceneSeq clip(scene);
    const AT_TimeWarpSeq shot(scene, 1, 12);
    for (const TUSeq *seq : {static_cast<const TUSeq *>(&clip), static_cast<const TUSeq *>(&shot)}) {
        EXPECT_EQ(seq->identifiedSeq()->id, scene->objectId());
        EXPECT_EQ(seq->sceneSeq()->id, scene->sceneId());
        EXPECT_NE(seq->identifiedSeq(), seq->sceneSeq());
        EXPECT_EQ(seq->transitionView(), nullptr);
        EXPECT_EQ(seq->objectId(), scene->objectId());
    }
}

TEST_F(Sequence, OfAGivenSceneThatIsNullHasNullIds)
{
    const AT_TimeWarpSeq seq(nullptr, 1, 2);
    EXPECT_TRUE(seq.identifiedSeq()->id.isNull());
    EXPECT_TRUE(seq.sceneSeq()->id.isNull());
}

TEST_F(Sequence, OfATransitionShowsItsId)
{
    const AT_TransitionSeq transition(SC_Id(77), AT_TransitionSeq::ClockWipe, 45, true);
    EXPECT_EQ(transition.transitionView(), &transition);
    EXPECT_EQ(transition.transitionView()->id, SC_Id(77));
    EXPECT_EQ(transition.objectId(), SC_Id(77));
    EXPECT_EQ(transition.identifiedSeq(), nullptr);
    EXPECT_EQ(transition.sceneSeq(), nullptr);
    EXPECT_EQ(transition.type, 2);
    EXPECT_EQ(transition.angle, 45);
    EXPECT_TRUE(transition.reverse);
}

TEST_F(Sequence, TellsItsNatureAndStandsNull)
{
    AT_TimeWarpSeq warp(SC_Id(1), SC_Id(2), 1, 2);
    AT_SceneSeq clip(SC_Id(3), SC_Id(4));
    AT_TransitionSeq transition(SC_Id(5), 0);
    EXPECT_EQ(AT_TimeWarpSeq::toTimeWarp(&warp), &warp);
    EXPECT_EQ(AT_TimeWarpSeq::toTimeWarp(&clip), nullptr);
    EXPECT_EQ(AT_TimeWarpSeq::toTimeWarp(&transition), nullptr);
    EXPECT_EQ(AT_TimeWarpSeq::toTimeWarp(nullptr), nullptr);
    EXPECT_EQ(AT_TransitionSeq::toTransition(&transition), &transition);
    EXPECT_EQ(AT_TransitionSeq::toTransition(&warp), nullptr);
    EXPECT_EQ(AT_TransitionSeq::toTransition(nullptr), nullptr);
    EXPECT_TRUE(AT_TransitionSeq::isTransition(&transition));
    EXPECT_FALSE(AT_TransitionSeq::isTransition(&clip));
    EXPECT_FALSE(AT_TransitionSeq::isTransition(nullptr));
    EXPECT_EQ(dynamic_cast<AT_TimeWarpSeq *>(static_cast<TUSeq *>(&warp)), &warp);
}

TEST_F(Sequence, NamesTheTypesOfTransitions)
{
    const char *const names[] = {"Dissolve", "Edge Wipe", "Clock Wipe", "Slide", "Transition", "Transition"};
    for (int type = 0; type < 6; ++type)
        EXPECT_EQ(AT_TransitionSeq(SC_Id(1), type).typeString().toStdString(), names[type]);
    EXPECT_EQ(AT_TransitionSeq(SC_Id(1), -1).typeString(), QStringLiteral("Transition"));
    EXPECT_EQ(AT_TransitionSeq(SC_Id(1), std::numeric_limits<int>::max()).typeString(), QStringLiteral("Transition"));
}

TEST_F(Sequence, WarpsTimeLinearly)
{
    const AT_TimeWarpSeq plain(nullptr, 1, 10); // one frame for one
    EXPECT_EQ(plain.toLocalFrame(101, 101, 110), 1);
    EXPECT_EQ(plain.toLocalFrame(110, 101, 110), 10);
    EXPECT_EQ(plain.toLocalFrame(104.5, 101, 110), 4.5);
    EXPECT_EQ(plain.toParentFrame(4.5, 101, 110), 104.5);
    const AT_TimeWarpSeq fast(nullptr, 5, 25);
    EXPECT_EQ(fast.toLocalFrame(11, 1, 11), 25);
    EXPECT_EQ(fast.toLocalFrame(6, 1, 11), 15);
    EXPECT_EQ(fast.toParentFrame(15, 1, 11), 6);
    EXPECT_EQ(fast.toLocalFrame(21, 1, 11), 45) << "also outside of the block";
    const AT_TimeWarpSeq backwards(nullptr, 10, 1);
    EXPECT_EQ(backwards.toLocalFrame(1, 1, 10), 10);
    EXPECT_EQ(backwards.toParentFrame(10, 1, 10), 1);
}

TEST_F(Sequence, WarpsASingleFrameAndAStillWithoutDividing)
{
    const AT_TimeWarpSeq warp(nullptr, 3, 8);
    EXPECT_EQ(warp.toLocalFrame(50, 50, 50), 3);
    EXPECT_EQ(warp.toParentFrame(8, 50, 50), 50);
    const AT_TimeWarpSeq still(nullptr, 4, 4);
    EXPECT_EQ(still.toLocalFrame(7, 1, 10), 4);
    EXPECT_EQ(still.toParentFrame(4, 1, 10), 1);
    EXPECT_EQ(still.toParentFrame(9, 1, 10), 1);
}

TEST_F(Sequence, RecognisesSlopeOne)
{
    EXPECT_TRUE(AT_TimeWarpSeq(nullptr, 1, 10).hasSlopeOne(10));
    EXPECT_TRUE(AT_TimeWarpSeq(nullptr, 5, 14).hasSlopeOne(10));
    EXPECT_FALSE(AT_TimeWarpSeq(nullptr, 1, 10).hasSlopeOne(11));
    EXPECT_FALSE(AT_TimeWarpSeq(nullptr, 10, 1).hasSlopeOne(10));
    EXPECT_TRUE(AT_TimeWarpSeq(nullptr, 3, 3).hasSlopeOne(1));
}

TEST_F(Sequence, TellsOfAChangedTimeWarp)
{
    AT_TimeWarpSeq *const warp = addShot(1, 10);
    warp->setRange(2, 30);
    EXPECT_EQ(warp->start, 2);
    EXPECT_EQ(warp->end, 30);
    EXPECT_EQ(news.told(), "sceneChanged timedValuesChanged{T}");
    warp->setRange(2, 30);
    EXPECT_EQ(news.told(), "");
    AT_TimeWarpSeq unplaced(nullptr, 1, 2);
    unplaced.setRange(1, 3);
    EXPECT_EQ(unplaced.end, 3);
    EXPECT_EQ(news.told(), "");
}

TEST_F(Sequence, TellsOfAChangedTransitionWithoutItsScenes)
{
    addShot(1, 10);
    addShot(11, 10);
    AT_TransitionSeq *const transition = addTransition(11, 2, 2);
    transition->setType(AT_TransitionSeq::Slide);
    EXPECT_EQ(news.told(), "timedValuesChanged{T}");
    transition->setAngle(90);
    EXPECT_EQ(news.told(), "timedValuesChanged{T}");
    transition->setReverse(true);
    EXPECT_EQ(news.told(), "timedValuesChanged{T}");
    transition->setType(AT_TransitionSeq::Slide);
    transition->setAngle(90);
    transition->setReverse(true);
    EXPECT_EQ(news.told(), "") << "nothing changed";
    EXPECT_EQ(transition->typeString(), QStringLiteral("Slide"));
}

TEST_F(Sequence, OfATransitionOutlivesItsBlockForWhoeverHoldsIt)
{
    addShot(1, 10);
    addShot(11, 10);
    AT_TransitionSeq *const transition = addTransition(11, 2, 2);
    transition->IncRef();
    const UT_SharedWeakPtr<AT_TransitionSeq> watch(transition);
    ASSERT_TRUE(timeline->removeTransition({9, 4, true}));
    session.changeManager()->clear();
    ASSERT_TRUE(watch);
    EXPECT_EQ(transition->timedValue(), nullptr);
    transition->setAngle(12);
    EXPECT_EQ(news.told(), "") << "nobody shows it any more";
    ASSERT_EQ(transition->DecRef(), 0u);
    delete transition;
    EXPECT_FALSE(watch);
}

TEST_F(Sequence, OfATransitionDiesWithItsBlockWhenNobodyHoldsIt)
{
    addShot(1, 10);
    addShot(11, 10);
    const UT_SharedWeakPtr<AT_TransitionSeq> watch(addTransition(11, 2, 2));
    AT_FrameBlock copy = timeline->blockAt(10);
    ASSERT_TRUE(copy.key.isTransition);
    ASSERT_TRUE(timeline->removeTransition(copy.key));
    EXPECT_TRUE(watch) << "the copied block holds it";
    copy = AT_FrameBlock();
    EXPECT_FALSE(watch);
}

TEST(SequenceDeathTest, IsLetGoByNobodyWhoHasNotHeldIt)
{
    auto *const clip = new TUSeq;
    EXPECT_DEBUG_DEATH(clip->letGo(), "");
    clip->hold();
    clip->letGo();

    auto *const transition = new AT_TransitionSeq(SC_Id(7), AT_TransitionSeq::Slide);
    const UT_SharedWeakPtr<AT_TransitionSeq> watch(transition);
    EXPECT_DEBUG_DEATH(transition->letGo(), "");
    ASSERT_TRUE(watch);
    transition->hold();
    transition->letGo();
    EXPECT_FALSE(watch);
}
