#include "listing/TimelineListing.h"

#include "listing/ItemMaker_p.h"
#include "project/PKC_PlotkaProject.h"
#include "scene/project/SC_ProjectCommon.h"
#include "scene/timeline/TUSeqTimedValue.h"

#include <algorithm>

using Plotka::Shot_t;

unsigned int TimelineListing::count(TimelineItem::Kind kind) const
{
    return static_cast<unsigned int>(std::count_if(items.begin(), items.end(),
        [kind](const TimelineItem &item) { return item.kind == kind && !item.isEndless(); }));
}

TimelineListing listTimeline(const PKC_PlotkaProject &project)
{
    TimelineListing listing;
    listing.name = project.name();
    listing.rate = project.projectCommon()->frameRate();
    const TUSeqTimedValue *const timeline = project.topMainTv();
    if (!timeline || timeline->blockCount() == 0)
        return listing;
    listing.frameCount = timeline->nFrames();

    const ItemMaker maker(project);
    unsigned int nextFrame = 1;
    for (auto i = timeline->beginBlock(); i != timeline->endBlock(); ++i) {
        const AT_FrameBlock &block = *i;
        if (nextFrame < block.fromFrame())
            listing.items.push_back(maker.gap(nextFrame, block.fromFrame() - 1));
        nextFrame = std::max(nextFrame, block.toFrame() + 1);
        if (block.key.isTransition) {
            listing.items.push_back(maker.transition(block));
            continue;
        }
        const Shot_t shot = maker.shotOf(block);
        listing.items.push_back(maker.shot(block, shot));
        if (shot.isInvalid())
            continue;
        const std::vector<TimelineItem> contents = maker.contentsOf(shot);
        listing.items.insert(listing.items.end(), contents.begin(), contents.end());
    }
    listing.items.push_back(maker.gap(nextFrame, TimelineItem::endless));
    return listing;
}
