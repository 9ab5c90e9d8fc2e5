#include "project/FrameCache_p.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

using namespace Plotka;

namespace
{

/// Stands for a timeline object.
struct Mark : UT_ShareBase {
    explicit Mark(int markNumber) : number(markNumber) {}
    const int number;
};

UT_SharedPtr<Mark> mark(int number)
{
    return UT_SharedPtr<Mark>(new Mark(number));
}

/// The number of the mark, 0 without one.
int numberAt(const FrameCache<Mark> &cache, unsigned int frame, bool earliest)
{
    const Mark *found = cache.findAt(frame, earliest);
    return found ? found->number : 0;
}

} // namespace

TEST(FrameCache, GivesTheFirstOrTheLastOfThoseThatCoverAFrame)
{
    FrameCache<Mark> cache;
    cache.insert(10, 20, mark(1));
    cache.insert(15, 20, mark(2));
    cache.insert(20, 20, mark(3));
    EXPECT_EQ(numberAt(cache, 22, /*earliest*/ true), 1);
    EXPECT_EQ(numberAt(cache, 22, /*earliest*/ false), 3);
    EXPECT_EQ(numberAt(cache, 9, true), 0);
    EXPECT_EQ(numberAt(cache, 10, false), 1);
    EXPECT_EQ(numberAt(cache, 39, true), 3);
    EXPECT_EQ(numberAt(cache, 40, true), 0);
}

TEST(FrameCache, StopsAtTheFirstThatDoesNotCoverTheFrame)
{
    FrameCache<Mark> cache;
    cache.insert(1, 100, mark(1));
    cache.insert(10, 5, mark(2)); // ends before 50 and hides what began before it
    cache.insert(40, 20, mark(3));
    EXPECT_EQ(numberAt(cache, 50, true), 3);
    EXPECT_EQ(numberAt(cache, 30, true), 0);
    cache.insert(45, 20, nullptr); // nothing at a frame ends the search as well
    EXPECT_EQ(numberAt(cache, 50, true), 0);
}

TEST(FrameCache, KeepsEqualFramesInOrderOfArrivalAcrossManyOfThem)
{
    FrameCache<Mark> cache;
    for (int i = 1; i <= 1000; ++i)
        cache.insert(7, 3, mark(i));
    EXPECT_EQ(numberAt(cache, 8, true), 1);
    EXPECT_EQ(numberAt(cache, 8, false), 1000);
    EXPECT_EQ(numberAt(cache, 6, true), 0);
    EXPECT_EQ(numberAt(cache, 10, true), 0);
}

TEST(FrameCache, AnswersAsASortedListWhateverTheOrderOfInsertion)
{
    std::mt19937 random(7);
    FrameCache<Mark> cache;
    std::multimap<unsigned int, std::pair<unsigned int, int>> list;
    for (int i = 1; i <= 5000; ++i) {
        const unsigned int firstFrame = static_cast<unsigned int>(random() % 20000);
        const unsigned int frameCount = static_cast<unsigned int>(1 + random() % 30);
        cache.insert(firstFrame, frameCount, mark(i));
        list.insert({firstFrame, {frameCount, i}});
    }
    for (unsigned int frame = 0; frame < 20100; frame += 3) {
        int earliest = 0;
        int latest = 0;
        for (auto it = list.upper_bound(frame); it != list.begin();) {
            --it;
            if (it->first - 1 + it->second.first < frame)
                break;
            earliest = it->second.second;
            latest = latest ? latest : earliest;
        }
        ASSERT_EQ(numberAt(cache, frame, true), earliest) << frame;
        ASSERT_EQ(numberAt(cache, frame, false), latest) << frame;
    }
}
