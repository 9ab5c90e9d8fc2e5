#include "scene/timeline/AT_FrameBlock.h"

#include "TimelineFixture.h"

#include <utility>
#include <vector>

namespace
{

struct Sequence : TUSeq {
    explicit Sequence(int &countOfDeaths) : deaths(countOfDeaths) {}
    ~Sequence() override { ++deaths; }
    int &deaths;
};

} // namespace

TEST(FrameBlock, IsInvalidByDefaultAndAnswersZeroes)
{
    const AT_FrameBlock block;
    EXPECT_FALSE(block.isValid());
    EXPECT_EQ(block.seq(), nullptr);
    EXPECT_EQ(block.fromFrame(), 0u);
    EXPECT_EQ(block.toFrame(), 0u);
    EXPECT_EQ(block.key.frameCount, 0u);
    EXPECT_FALSE(block.isInRange(0u));
    EXPECT_FALSE(block.isInRange(0.0));
    EXPECT_FALSE(AT_FrameBlock::none().isValid());
    EXPECT_EQ(&AT_FrameBlock::none(), &AT_FrameBlock::none());
}

TEST(FrameBlock, AnswersZeroesWhereverAnInvalidOneIsSaidToBegin)
{
    const AT_FrameBlock block(nullptr, {7, 0, false});
    EXPECT_FALSE(block.isValid());
    EXPECT_EQ(block.fromFrame(), 0u);
    EXPECT_EQ(block.toFrame(), 0u);
    EXPECT_FALSE(block.isInRange(7u));
}

TEST(FrameBlock, IsValidWithoutASequence)
{
    const AT_FrameBlock block(nullptr, {5, 3, false});
    EXPECT_TRUE(block.isValid());
    EXPECT_EQ(block.seq(), nullptr);
    EXPECT_EQ(block.fromFrame(), 5u);
    EXPECT_EQ(block.toFrame(), 7u);
}

TEST(FrameBlock, BothEndsBelongToIt)
{
    const AT_FrameBlock block(nullptr, {5, 3, false});
    for (const unsigned int frame : {5u, 6u, 7u}) {
        EXPECT_TRUE(block.isInRange(frame));
        EXPECT_TRUE(block.isInRange(double(frame)));
    }
    EXPECT_FALSE(block.isInRange(4u));
    EXPECT_FALSE(block.isInRange(8u));
    EXPECT_TRUE(block.isInRange(6.5));
    EXPECT_FALSE(block.isInRange(4.999));
    EXPECT_FALSE(block.isInRange(7.001));
}

TEST(FrameBlock, KeepsItsSequenceAliveInEveryCopy)
{
    int deaths = 0;
    {
        AT_FrameBlock copy;
        {
            const AT_FrameBlock block(new Sequence(deaths), {1, 2, false});
            copy = block;
            const AT_FrameBlock &itself = copy;
            copy = itself;
            std::vector<AT_FrameBlock> more(10, block);
            more.erase(more.begin(), more.begin() + 5);
        }
        EXPECT_EQ(deaths, 0);
        const AT_FrameBlock moved = std::move(copy);
        EXPECT_FALSE(copy.isValid());
        EXPECT_EQ(copy.seq(), nullptr);
        EXPECT_EQ(moved.toFrame(), 2u);
        copy = AT_FrameBlock(moved);
        EXPECT_EQ(deaths, 0);
    }
    EXPECT_EQ(deaths, 1);
}

TEST(FrameBlock, LetsGoOfItsSequenceWhenAssigned)
{
    int deaths = 0;
    AT_FrameBlock block(new Sequence(deaths), {1, 2, false});
    block = AT_FrameBlock();
    EXPECT_EQ(deaths, 1);
}

TEST(FrameBlockKey, IsEqualInAllThreeFields)
{
    const AT_FrameBlockKey key{3, 4, false};
    EXPECT_EQ(key, (AT_FrameBlockKey{3, 4, false}));
    EXPECT_NE(key, (AT_FrameBlockKey{2, 4, false}));
    EXPECT_NE(key, (AT_FrameBlockKey{3, 5, false}));
    EXPECT_NE(key, (AT_FrameBlockKey{3, 4, true}));
    EXPECT_EQ(AT_FrameBlockKey(), (AT_FrameBlockKey{0, 0, false}));
}
