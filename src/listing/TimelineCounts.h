#pragma once

#include "plotka_listing_export.h"

class SC_Project;
class TUSeqTimedValue;

/// How many things listTimeline() lists. The gap without end does not count.
struct PLOTKA_LISTING_EXPORT TimelineCounts {
    unsigned int frames = 0; ///< the last frame of the timeline
    unsigned int shots = 0;
    unsigned int panels = 0;
    unsigned int transitions = 0;
    unsigned int gaps = 0;
};

/// Counts along a sequence of the top scene, blocks alone, so that it needs no project object and gives no panel records.
/// Null counts nothing.
PLOTKA_LISTING_EXPORT TimelineCounts countTimeline(const SC_Project &project, const TUSeqTimedValue *timeline);
