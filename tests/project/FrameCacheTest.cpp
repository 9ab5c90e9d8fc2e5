#include "project/FrameCache_p.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

using namespace Plotka;

namespace
{

/// Stands for a timeline object: a number, 0 being the invalid one.
struct Mark {
    int number = 0;
    bool isValid() const { return number != 0; }
    static const Mark invalid;
};
const Mark Mark::invalid;

} // namespace

TEST(FrameCache, GivesTheFirstOrTheLastOfThoseThatCoverAFrame)
{
    FrameCache<Mark> cache;
    cache.insert(10, 20, Mark{1});
    cache.insert(15, 20, Mark{2});
    cache.insert(20, 20, Mark{3});
    EXPECT_EQ(cache.findAt(22, /*earliest*/ true).number, 1);
    EXPECT_EQ(cache.findAt(22, /*earliest*/ false).number, 3);
    EXPECT_EQ(cache.findAt(9, true).number, 0);
    EXPECT_EQ(cache.findAt(10, false).number, 1);
    EXPECT_EQ(cache.findAt(39, true).number, 3);
    EXPECT_EQ(cache.findAt(40, true).number, 0);
}

TEST(FrameCache, StopsAtTheFirstThatDoesNotCoverTheFrame)
{
    FrameCache<Mark> cache;
    cache.insert(1, 100, Mark{1});
    cache.insert(10, 5, Mark{2}); // ends before 50 and hides what began before it
    cache.insert(40, 20, Mark{3});
    EXPECT_EQ(cache.findAt(50, true).number, 3);
    EXPECT_EQ(cache.findAt(30, true).number, 0);
    cache.insert(45, 20, Mark{0}); // an invalid object ends the search as well
    EXPECT_EQ(cache.findAt(50, true).number, 0);
}

TEST(FrameCache, KeepsEqualFramesInOrderOfArrivalAcrossManyOfThem)
{
    FrameCache<Mark> cache;
    for (int i = 1; i <= 1000; ++i)
        cache.insert(7, 3, Mark{i});
    EXPECT_EQ(cache.findAt(8, true).number, 1);
    EXPECT_EQ(cache.findAt(8, false).number, 1000);
    EXPECT_EQ(cache.findAt(6, true).number, 0);
    EXPECT_EQ(cache.findAt(10, true).number, 0);
}

TEST(FrameCache, AnswersAsASortedListWhateverTheOrderOfInsertion)
{
    std::mt19937 random(7);
    FrameCache<Mark> cache;
    std::multimap<unsigned int, std::pair<unsigned int, int>> list;
    for (int i = 1; i <= 5000; ++i) {
        const unsigned int firstFrame = static_cast<unsigned int>(random() % 20000);
        const unsigned int frameCount = static_cast<unsigned int>(1 + random() % 30);
        cache.insert(firstFrame, frameCount, Mark{i});
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
        ASSERT_EQ(cache.findAt(frame, true).number, earliest) << frame;
        ASSERT_EQ(cache.findAt(frame, false).number, latest) << frame;
    }
}
