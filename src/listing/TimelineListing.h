#pragma once

#include "listing/TimelineItem.h"
#include "plotka_listing_export.h"
#include "scene/base/UT_FrameRate.h"

#include <QString>

#include <vector>

class PKC_PlotkaProject;

/// All that lies on a timeline, in its order: a shot, its panels and the gaps among them, the transition into the next
/// shot, the gap before it; last the gap without end. An empty timeline has no items.
///
/// It goes from block to block, so that nothing is hidden by what a walk stops at: what stands behind a gap at the
/// edge of a shot, and what stands behind a shot whose scene has gone. The frames of panels are those that their handles
/// answer; gaps within a shot are counted likewise and end with the shot.
struct PLOTKA_LISTING_EXPORT TimelineListing {
    QString name;
    UT_FrameRate rate;
    unsigned int frameCount = 0;
    std::vector<TimelineItem> items;

    /// How many there are; the gap without end does not count.
    unsigned int count(TimelineItem::Kind kind) const;
};

PLOTKA_LISTING_EXPORT TimelineListing listTimeline(const PKC_PlotkaProject &project);
