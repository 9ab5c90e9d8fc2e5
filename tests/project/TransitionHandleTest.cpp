#include "support/Printers.h"
#include "support/Storyboard.h"

#include "project/ObjectIds.h"

#include "scene/timeline/AT_TransitionSeq.h"

#include <gtest/gtest.h>

using namespace Plotka;

TEST(TransitionHandle, IsInvalidByDefaultAndAnswersNeutrally)
{
    const Trans_t none;
    EXPECT_TRUE(none.isInvalid());
    EXPECT_EQ(none, Trans_t::invalid);
    EXPECT_EQ(none.id(), invalidId);
    EXPECT_EQ(none.type(), -1);
    EXPECT_EQ(none.angle(), 0);
    EXPECT_FALSE(none.reverse());
    EXPECT_EQ(none.transitionSeq(), nullptr);
    EXPECT_TRUE(none.name().isNull());
    EXPECT_EQ(none.firstFrame(), 0u);
    EXPECT_EQ(none.lastFrame(), 0u);
    EXPECT_EQ(none.objNumOfFrame(), 1u); // last plus 1 minus first
}

TEST(TransitionHandle, TellsItsPlaceAndItsTransition)
{
    // frame:  1          17   20        31
    //         |A              |
    //                    |B             |
    Storyboard board("A(20) ~2+2~ B(15)");
    const Trans_t transition = board->getTransByNdx(0);
    ASSERT_TRUE(transition.isValid());
    EXPECT_EQ(transition.firstFrame(), 17u);
    EXPECT_EQ(transition.lastFrame(), 20u);
    EXPECT_EQ(transition.objNumOfFrame(), 4u);
    EXPECT_EQ(transition.id(), board.transitionId(0));
    AT_TransitionSeq *const sequence = AT_TransitionSeq::toTransition(board.transitionBlock(0).seq());
    EXPECT_EQ(transition.transitionSeq(), sequence);
    sequence->setAngle(45);
    sequence->setReverse(true);
    EXPECT_EQ(transition.type(), sequence->type);
    EXPECT_EQ(transition.angle(), 45);
    EXPECT_TRUE(transition.reverse());
}

TEST(TransitionHandle, RemembersTheTextOfItsType)
{
    Storyboard board("A(20) ~2+2~ B(15)");
    const Trans_t transition = board->getTransByNdx(0);
    AT_TransitionSeq *const sequence = AT_TransitionSeq::toTransition(board.transitionBlock(0).seq());
    const QString name = transition.name();
    EXPECT_EQ(name, sequence->typeString());
    sequence->setType(AT_TransitionSeq::Slide);
    EXPECT_EQ(transition.name(), name);
    EXPECT_EQ(Trans_t(&board.timeline(), sequence).name(), sequence->typeString());
}

TEST(TransitionHandle, KeepsItsTransitionAfterTheBlockIsGone)
{
    Storyboard board("A(20) ~2+2~ B(15)");
    const Trans_t transition = board->getTransByNdx(0);
    const SC_Id id = transition.id();
    board->invalidate();
    ASSERT_TRUE(board.removeTransition(0));
    EXPECT_TRUE(transition.isValid());
    EXPECT_EQ(transition.id(), id);
    EXPECT_EQ(transition.firstFrame(), 0u);
    EXPECT_EQ(transition.lastFrame(), 0u);
    ASSERT_NE(transition.transitionSeq(), nullptr);
    EXPECT_EQ(transition.name(), transition.transitionSeq()->typeString());
}

TEST(TransitionHandle, ForgetsItsPlaceWithItsBlock)
{
    Storyboard board("A(20) ~2+2~ B(15)");
    const Trans_t transition = board->getTransByNdx(0);
    ASSERT_EQ(transition.firstFrame(), 17u); // asked before the edit: the place is remembered
    ASSERT_TRUE(board.removeTransition(0));
    EXPECT_EQ(transition.firstFrame(), 0u);
    EXPECT_EQ(transition.lastFrame(), 0u);
}

TEST(TransitionHandle, ForgetsItsPlaceWithItsTimedValue)
{
    Storyboard board("A(20) ~2+2~ B(15)");
    const Trans_t transition = board->getTransByNdx(0);
    ASSERT_EQ(transition.firstFrame(), 17u);
    ASSERT_TRUE(board.topScene().removeTimedValue(&board.timeline()));
    EXPECT_EQ(transition.firstFrame(), 0u);
    EXPECT_EQ(transition.lastFrame(), 0u);
    EXPECT_NE(transition.transitionSeq(), nullptr) << "it is held";
}

TEST(TransitionHandle, OfANullTransitionHasNoId)
{
    Storyboard board("A(20)");
    const Trans_t transition(&board.timeline(), nullptr);
    EXPECT_TRUE(transition.isValid());
    EXPECT_EQ(transition.id(), invalidId);
    EXPECT_EQ(transition.type(), -1);
    EXPECT_EQ(transition.firstFrame(), 0u);
}

TEST(TransitionHandle, ComparesByObjectId)
{
    Storyboard board("A(20) ~2+2~ B(15) ~1+1~ C(9)");
    const Trans_t once = board->getTransByNdx(0);
    const Trans_t again(&board.timeline(), once.transitionSeq());
    const Trans_t other = board->getTransByNdx(1);
    EXPECT_EQ(once, again);
    EXPECT_NE(once, other);
    EXPECT_EQ(once < other, once.id() < other.id());
}

TEST(TransitionHandle, OfANullTransitionStandsWhereABlockPlacesNothing)
{
    Storyboard board("?5 A(20)");
    const Trans_t transition(&board.timeline(), nullptr);
    EXPECT_EQ(transition.firstFrame(), 1u);
    EXPECT_EQ(transition.lastFrame(), 5u);
}
