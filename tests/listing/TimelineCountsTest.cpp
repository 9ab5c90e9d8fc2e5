#include "listing/TimelineCounts.h"
#include "listing/TimelineListing.h"
#include "support/RandomTimeline.h"
#include "support/Storyboard.h"

#include "scene/timeline/TUSeqTimedValue.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

std::string text(
    unsigned int frames, unsigned int shots, unsigned int panels, unsigned int transitions, unsigned int gaps)
{
    const auto counted = [](unsigned int count, const char *what) { return std::to_string(count) + what; };
    return counted(frames, " frames, ") + counted(shots, " shots, ") + counted(panels, " panels, ")
        + counted(transitions, " transitions, ") + counted(gaps, " gaps");
}

std::string countedIn(const Storyboard &board)
{
    const TimelineCounts counts = countTimeline(board.sceneProject(), board.project().topMainTv());
    return text(counts.frames, counts.shots, counts.panels, counts.transitions, counts.gaps);
}

std::string listedIn(const Storyboard &board)
{
    const TimelineListing listing = listTimeline(board.project());
    return text(listing.frameCount, listing.count(TimelineItem::Shot), listing.count(TimelineItem::Panel),
        listing.count(TimelineItem::Transition), listing.count(TimelineItem::Gap));
}

} // namespace

TEST(TimelineCounts, OfNoTimelineAreNone)
{
    const Storyboard board("A(24)");
    const TimelineCounts counts = countTimeline(board.sceneProject(), nullptr);
    EXPECT_EQ(text(counts.frames, counts.shots, counts.panels, counts.transitions, counts.gaps),
        "0 frames, 0 shots, 0 panels, 0 transitions, 0 gaps");
    EXPECT_EQ(countedIn(Storyboard("")), "0 frames, 0 shots, 0 panels, 0 transitions, 0 gaps");
}

TEST(TimelineCounts, CountWhatTheListingLists)
{
    EXPECT_EQ(countedIn(Storyboard("-6- A(24,12) ~4+6~ B(30,-5,18) -10- C(-3,20,-7)")),
        "125 frames, 3 shots, 5 panels, 1 transitions, 5 gaps");
    std::mt19937 random(23);
    for (int round = 0; round < 500; ++round) {
        const TimelineText timeline = buildable(randomTimeline(random));
        const Storyboard board(timeline);
        ASSERT_EQ(countedIn(board), listedIn(board)) << round;
    }
}
