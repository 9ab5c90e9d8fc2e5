#pragma once

#include "listing/TimelineItem.h"
#include "plotka_listing_export.h"

#include <QString>

#include <optional>

class PKC_PlotkaProject;

/// What stands at one frame, in agreement with TimelineListing. Outside the timeline, which is before frame 1 and after
/// its last one, nothing does.
struct FrameAnswer {
    /// What is found looking from one side, where a transition lets two shots cover the frame.
    struct Side {
        std::optional<TimelineItem> shot;
        unsigned int shotFrame = 0;
        std::optional<TimelineItem> panel;
        unsigned int tvFrame = 0;         ///< 0 without a shot, and where its scene has gone
        std::optional<double> panelFrame; ///< none without a panel, and where its scene has gone
    };

    qint64 frame = 0;
    QString timecode;            ///< empty outside
    QString dropTimecode;        ///< the same in drop-frame counting; null outside and at rates without
    unsigned int frameCount = 0; ///< of the timeline
    Side backward;
    Side forward;
    std::optional<TimelineItem> transition;
    std::optional<TimelineItem> gap;
};

PLOTKA_LISTING_EXPORT FrameAnswer lookAt(const PKC_PlotkaProject &project, qint64 frame);
