#include "listing/FrameAnswer.h"
#include "listing/TimelineListing.h"
#include "support/Storyboard.h"

#include "scene/timeline/TUSeqTimedValue.h"

#include <gtest/gtest.h>

namespace
{

bool covers(const TimelineItem &item, unsigned int frame)
{
    return item.firstFrame <= frame && frame <= item.lastFrame;
}

/// "panel 5 1-24", or "-".
std::string text(const std::optional<TimelineItem> &item)
{
    if (!item)
        return "-";
    return std::to_string(item->kind) + " " + item->id.AsString().toStdString() + " " + std::to_string(item->firstFrame)
        + "-" + std::to_string(item->lastFrame) + " " + item->name.toStdString() + (item->isEnabled ? "" : " off");
}

/// The last item of the kind at the frame: of two shots under a transition the later, which is seen looking forward.
std::optional<TimelineItem> lastAt(const TimelineListing &listing, TimelineItem::Kind kind, unsigned int frame)
{
    std::optional<TimelineItem> found;
    for (const TimelineItem &item : listing.items) {
        if (item.kind == kind && covers(item, frame))
            found = item;
    }
    return found;
}

std::optional<TimelineItem> firstAt(const TimelineListing &listing, TimelineItem::Kind kind, unsigned int frame)
{
    for (const TimelineItem &item : listing.items) {
        if (item.kind == kind && covers(item, frame))
            return item;
    }
    return std::nullopt;
}

} // namespace

TEST(FrameAnswer, AgreesWithTheListingAtEveryFrame)
{
    for (const char *timeline : {"-6- Opening(wide=24,near=12) ~4+6~ Street(30,-5,18) -10- Door(-3,20,-7)",
             "A(10,5gone,-3)", "A(10) B@10(gone) ?5 C(10,5gone)", "A@10() B@10(bare)", "-1- A(-1,1,-1) -1-",
             "A(2,3gone) ~1+1~ B(5gone,-2,3)", "A(3,3gone) ~1+1~ B@8(bare) ~2+2~ C(9)"}) {
        const Storyboard board(timeline);
        const TimelineListing listing = listTimeline(board.project());
        for (unsigned int frame = 1; frame <= listing.frameCount; ++frame) {
            const FrameAnswer answer = lookAt(board.project(), frame);
            SCOPED_TRACE(std::string(timeline) + " at " + std::to_string(frame));
            EXPECT_EQ(text(answer.backward.shot), text(firstAt(listing, TimelineItem::Shot, frame)));
            EXPECT_EQ(text(answer.forward.shot), text(lastAt(listing, TimelineItem::Shot, frame)));
            EXPECT_EQ(text(answer.transition), text(firstAt(listing, TimelineItem::Transition, frame)));
            if (answer.transition)
                continue; // a shot may show a panel where the other has a gap
            EXPECT_EQ(text(answer.backward.panel), text(firstAt(listing, TimelineItem::Panel, frame)));
            EXPECT_EQ(text(answer.forward.panel), text(lastAt(listing, TimelineItem::Panel, frame)));
            EXPECT_EQ(text(answer.gap), text(firstAt(listing, TimelineItem::Gap, frame)));
        }
    }
}

TEST(FrameAnswer, AgreesWithTheProject)
{
    const Storyboard board("-6- A(24,12) ~4+6~ B(30,-5,18) -10- C[5..28](-3,20[1..9],-7)");
    const PKC_PlotkaProject &project = board.project();
    for (unsigned int frame = 1; frame <= project.topMainTv()->nFrames(); ++frame) {
        const FrameAnswer answer = lookAt(project, frame);
        for (const auto priority : {PKC_PlotkaProject::ResolveBackward, PKC_PlotkaProject::ResolveForward}) {
            const FrameAnswer::Side &side =
                priority == PKC_PlotkaProject::ResolveBackward ? answer.backward : answer.forward;
            const auto shot = project.getShotAt(frame, priority, /*nearest*/ false, /*forward*/ true);
            const auto panel = project.getPanelAt(frame, priority, /*nearest*/ false, /*forward*/ true);
            EXPECT_EQ(side.shot ? side.shot->id : SC_Id(), shot.id()) << frame;
            EXPECT_EQ(side.panel ? side.panel->id : SC_Id(), panel.id()) << frame;
            const double panelFrame = panel.isValid() ? panel.projectFrameToPanelFrame(frame) : 0.0;
            EXPECT_EQ(side.panelFrame.value_or(0.0), panelFrame) << frame;
        }
    }
}
