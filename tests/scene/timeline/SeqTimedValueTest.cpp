#include "TimelineFixture.h"

#include <limits>

namespace
{

class SeqTimedValue : public TimelineFixture
{
protected:
    const TUSeqTimedValue &constTimeline() const { return *timeline; }
};

} // namespace

TEST_F(SeqTimedValue, AnswersNothingWhenEmpty)
{
    const TUSeqTimedValue &tv = constTimeline();
    EXPECT_EQ(tv.timedValueKind(), 0);
    EXPECT_EQ(tv.nFrames(), 0u);
    EXPECT_EQ(tv.blockCount(), 0u);
    EXPECT_EQ(tv.blockCountAt(1), 0u);
    EXPECT_FALSE(tv.firstBlock().isValid());
    EXPECT_FALSE(tv.blockAt(1).isValid());
    EXPECT_FALSE(tv.nextBlockAfter(0).isValid());
    EXPECT_FALSE(tv.prevBlockBefore(100).isValid());
    EXPECT_FALSE(tv.nextBlock({1, 1, false}).isValid());
    EXPECT_FALSE(tv.previousBlock({1, 1, false}).isValid());
    EXPECT_FALSE(tv.blockOf(SC_Id(1)).isValid());
    const auto end = tv.endBlock();
    EXPECT_EQ(tv.beginBlock(), end);
    EXPECT_EQ(tv.rbeginBlock(), tv.rendBlock());
    EXPECT_EQ(tv.blockIteratorAt(1u), end);
    EXPECT_EQ(tv.blockIteratorAt(AT_FrameBlockKey{1, 1, false}), end);
    EXPECT_EQ(tv.nextBlockIterator(end), end);
    EXPECT_EQ(tv.previousBlockIterator(end), end);
    EXPECT_EQ(tv.nextBlockIteratorAt(0), end);
    EXPECT_EQ(tv.previousBlockIteratorAt(100), end);
    EXPECT_EQ(tv.blockIteratorOf(SC_Id(1)), end);
    EXPECT_EQ(tv.blockIteratorOf(SC_Id()), end);
}

TEST_F(SeqTimedValue, CountsTheBlocksOverEachFrame)
{
    // frame:  1         10        20   25      30
    //         A                   (gap) C
    //              T 9..12
    //              B 9..20
    addShot(1, 10);
    addShot(11, 10);
    addShot(25, 6);
    addTransition(11, 2, 2);
    ASSERT_EQ(frames(), "1..12 T9..12 9..20 25..30");
    EXPECT_EQ(timeline->nFrames(), 30u);
    EXPECT_EQ(timeline->blockCount(), 4u);
    EXPECT_EQ(timeline->blockCountAt(0), 0u);
    EXPECT_EQ(timeline->blockCountAt(1), 1u);
    EXPECT_EQ(timeline->blockCountAt(8), 1u);
    for (const int frame : {9, 10, 11, 12})
        EXPECT_EQ(timeline->blockCountAt(frame), 3u) << frame;
    EXPECT_EQ(timeline->blockCountAt(13), 1u);
    EXPECT_EQ(timeline->blockCountAt(20), 1u);
    EXPECT_EQ(timeline->blockCountAt(21), 0u);
    EXPECT_EQ(timeline->blockCountAt(24), 0u);
    EXPECT_EQ(timeline->blockCountAt(30), 1u);
    EXPECT_EQ(timeline->blockCountAt(31), 0u);
}

TEST_F(SeqTimedValue, CountsNothingAtPositionsThatAreNone)
{
    addShot(1, 10);
    addShot(11, 10);
    EXPECT_EQ(timeline->blockCountAt(10.5), 0u) << "between two blocks";
    EXPECT_EQ(timeline->blockCountAt(9.5), 1u);
    EXPECT_EQ(timeline->blockCountAt(0.5), 0u);
    EXPECT_EQ(timeline->blockCountAt(-3), 0u);
    EXPECT_EQ(timeline->blockCountAt(std::numeric_limits<double>::quiet_NaN()), 0u);
    EXPECT_EQ(timeline->blockCountAt(std::numeric_limits<double>::infinity()), 0u);
    EXPECT_EQ(timeline->blockCountAt(-std::numeric_limits<double>::infinity()), 0u);
    EXPECT_EQ(timeline->blockCountAt(1e300), 0u);
}

TEST_F(SeqTimedValue, FindsTheTransitionWhereOneCovers)
{
    addShot(1, 10);
    addShot(11, 10);
    addTransition(11, 2, 2);
    EXPECT_FALSE(timeline->blockAt(0).isValid());
    EXPECT_EQ(timeline->blockAt(8).toFrame(), 12u);
    for (const unsigned int frame : {9u, 10u, 11u, 12u}) {
        EXPECT_TRUE(timeline->blockAt(frame).key.isTransition) << frame;
        EXPECT_EQ(timeline->blockIteratorAt(frame), timeline->beginBlock() + 1);
    }
    EXPECT_EQ(timeline->blockAt(13).fromFrame(), 9u);
    EXPECT_FALSE(timeline->blockAt(21).isValid());
    EXPECT_FALSE(timeline->blockAt(4294967295u).isValid());
    EXPECT_EQ(timeline->blockIteratorAt(21u), timeline->endBlock());
}

TEST_F(SeqTimedValue, StepsToNeighboursOverGapsAndTransitions)
{
    addShot(3, 8);
    addShot(11, 10);
    addShot(25, 6);
    addTransition(11, 2, 2);
    ASSERT_EQ(frames(), "3..12 T9..12 9..20 25..30");
    const TUSeqTimedValue &tv = constTimeline();
    const AT_FrameBlockKey first{3, 10, false}, transition{9, 4, true}, second{9, 12, false}, third{25, 6, false};
    EXPECT_EQ(tv.firstBlock().key, first);
    EXPECT_EQ(tv.nextBlock(first).key, transition);
    EXPECT_EQ(tv.nextBlock(transition).key, second);
    EXPECT_EQ(tv.nextBlock(second).key, third);
    EXPECT_FALSE(tv.nextBlock(third).isValid());
    EXPECT_EQ(tv.previousBlock(third).key, second);
    EXPECT_EQ(tv.previousBlock(second).key, transition);
    EXPECT_EQ(tv.previousBlock(transition).key, first);
    EXPECT_FALSE(tv.previousBlock(first).isValid());
    EXPECT_EQ(tv.rbeginBlock()->key, third);
    EXPECT_EQ(std::prev(tv.rendBlock())->key, first);
    EXPECT_EQ(tv.previousBlockIterator(tv.beginBlock()), tv.endBlock()) << "not the first block";
    EXPECT_EQ(tv.nextBlockIterator(tv.endBlock() - 1), tv.endBlock());
    EXPECT_EQ(tv.nextBlockIterator(tv.endBlock()), tv.endBlock());
    EXPECT_EQ(tv.previousBlockIterator(tv.endBlock()), tv.endBlock());
}

TEST_F(SeqTimedValue, FindsABlockByItsExactKeyOnly)
{
    addShot(3, 8);
    addShot(11, 10);
    addTransition(11, 2, 2);
    ASSERT_EQ(frames(), "3..12 T9..12 9..20");
    const TUSeqTimedValue &tv = constTimeline();
    const auto none = tv.endBlock();
    EXPECT_EQ(tv.blockIteratorAt(AT_FrameBlockKey{9, 12, false}), tv.beginBlock() + 2);
    EXPECT_EQ(tv.blockIteratorAt(AT_FrameBlockKey{9, 4, true}), tv.beginBlock() + 1);
    EXPECT_EQ(tv.blockIteratorAt(AT_FrameBlockKey{9, 4, false}), none);
    EXPECT_EQ(tv.blockIteratorAt(AT_FrameBlockKey{9, 12, true}), none);
    EXPECT_EQ(tv.blockIteratorAt(AT_FrameBlockKey{3, 9, false}), none);
    EXPECT_EQ(tv.blockIteratorAt(AT_FrameBlockKey{4, 10, false}), none);
    EXPECT_EQ(tv.blockIteratorAt(AT_FrameBlockKey{}), none);
    EXPECT_EQ(tv.blockIteratorAt(AT_FrameBlockKey{4294967295u, 4294967295u, false}), none);
    EXPECT_FALSE(tv.nextBlock({3, 9, false}).isValid());
    EXPECT_FALSE(tv.previousBlock({4, 10, false}).isValid());
}

TEST_F(SeqTimedValue, FindsTheNearestBlockStrictlyAfterOrBeforeAFrame)
{
    addShot(3, 8);
    addShot(11, 10);
    addShot(25, 6);
    addTransition(11, 2, 2);
    ASSERT_EQ(frames(), "3..12 T9..12 9..20 25..30");
    const TUSeqTimedValue &tv = constTimeline();
    EXPECT_EQ(tv.nextBlockAfter(0).fromFrame(), 3u);
    EXPECT_EQ(tv.nextBlockAfter(2).fromFrame(), 3u);
    EXPECT_TRUE(tv.nextBlockAfter(3).key.isTransition) << "it sorts before the shot that begins with it";
    EXPECT_EQ(tv.nextBlockAfter(9).fromFrame(), 25u);
    EXPECT_EQ(tv.nextBlockAfter(24).fromFrame(), 25u);
    EXPECT_FALSE(tv.nextBlockAfter(25).isValid());
    EXPECT_FALSE(tv.nextBlockAfter(4294967295u).isValid());
    EXPECT_FALSE(tv.prevBlockBefore(0).isValid());
    EXPECT_FALSE(tv.prevBlockBefore(12).isValid());
    EXPECT_EQ(tv.prevBlockBefore(13).toFrame(), 12u);
    EXPECT_EQ(tv.prevBlockBefore(20).toFrame(), 12u);
    EXPECT_EQ(tv.prevBlockBefore(21).toFrame(), 20u);
    EXPECT_EQ(tv.prevBlockBefore(30).toFrame(), 20u);
    EXPECT_EQ(tv.prevBlockBefore(31).toFrame(), 30u);
    EXPECT_EQ(tv.prevBlockBefore(4294967295u).toFrame(), 30u);
    EXPECT_EQ(tv.nextBlockIteratorAt(25), tv.endBlock());
    EXPECT_EQ(tv.previousBlockIteratorAt(12), tv.endBlock());
}

TEST_F(SeqTimedValue, FindsABlockByTheObjectItPlacesAfterEveryEdit)
{
    const SC_Id a = addShot(1, 10)->objectId();
    const SC_Id b = addShot(11, 10)->objectId();
    const SC_Id transition = addTransition(11, 2, 2)->objectId();
    EXPECT_EQ(timeline->blockOf(a).fromFrame(), 1u);
    EXPECT_EQ(timeline->blockOf(b).fromFrame(), 9u);
    EXPECT_TRUE(timeline->blockOf(transition).key.isTransition);
    EXPECT_FALSE(timeline->blockOf(SC_Id(99999)).isValid());
    ASSERT_TRUE(timeline->removeTransition({9, 4, true}));
    EXPECT_FALSE(timeline->blockOf(transition).isValid());
    ASSERT_TRUE(timeline->removeBlock({1, 10, false}));
    EXPECT_FALSE(timeline->blockOf(a).isValid());
    EXPECT_EQ(timeline->blockOf(b).fromFrame(), 11u);
}

TEST_F(SeqTimedValue, FindsBlocksThatPlaceNothingByTheNullId)
{
    addShot(1, 5);
    EXPECT_FALSE(timeline->blockOf(SC_Id()).isValid());
    ASSERT_TRUE(timeline->insertBlock(6, 3, nullptr));
    ASSERT_TRUE(timeline->insertBlock(9, 3, new TUSeq));
    EXPECT_EQ(timeline->blockOf(SC_Id()).fromFrame(), 6u);
}

TEST_F(SeqTimedValue, ReachesToTheLastFrameThatABlockMayCover)
{
    addShot(TUSeqTimedValue::maxFrame - 9, 10);
    EXPECT_EQ(timeline->nFrames(), 2147483647u);
    EXPECT_EQ(timeline->blockAt(2147483647u).toFrame(), 2147483647u);
    EXPECT_FALSE(timeline->blockAt(2147483648u).isValid());
    EXPECT_EQ(timeline->prevBlockBefore(2147483648u).toFrame(), 2147483647u);
    EXPECT_EQ(timeline->blockCountAt(2147483647.0), 1u);
}
