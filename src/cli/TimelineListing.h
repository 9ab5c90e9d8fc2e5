#pragma once

#include "scene/base/SC_Id.h"
#include "scene/base/UT_FrameRate.h"

#include <QString>

#include <array>
#include <optional>
#include <vector>

class PKC_PlotkaProject;

/// A shot, panel, transition or gap of a timeline, as plain values.
struct TimelineItem {
    enum Kind { Shot, Panel, Transition, Gap };

    /// The last frame of the gap after the end.
    static constexpr unsigned int endless = 0xFFFFFFFF;

    bool isEndless() const { return lastFrame == endless; }
    unsigned int frameCount() const { return lastFrame - firstFrame + 1; }

    Kind kind = Gap;
    SC_Id id;     ///< null for a gap and for a block that holds nothing
    QString name; ///< null where nothing can have one: a gap, a shot or panel whose scene has gone
    /// Project frames; the last one belongs.
    unsigned int firstFrame = 0;
    unsigned int lastFrame = 0;
    QString timecode; ///< of the first frame

    /// Of a panel, and of a gap within a shot: the shot; null for all others.
    SC_Id shotId;
    /// The same in frames of the shot, 1 at its first frame; 0 for transitions and for gaps between shots.
    unsigned int shotFirstFrame = 0;
    unsigned int shotLastFrame = 0;

    /// Of a shot: its custom names, null where it has none, and whether it is shown.
    QString act;
    QString sequence;
    bool isEnabled = true;
};

/// All that lies on a timeline, in its order: a shot, its panels and the gaps among them, the transition into the next
/// shot, the gap before it; last the gap without end. An empty timeline has no items.
///
/// It goes from block to block, so that nothing is hidden by what a walk stops at: what stands behind a gap at the
/// edge of a shot, and what stands behind a shot whose scene has gone. The frames of panels are those that their handles
/// answer; gaps within a shot are counted likewise and end with the shot.
struct TimelineListing {
    QString name;
    UT_FrameRate rate;
    unsigned int frameCount = 0;
    std::vector<TimelineItem> items;

    /// How many there are; the gap without end does not count.
    unsigned int count(TimelineItem::Kind kind) const;
};

TimelineListing listTimeline(const PKC_PlotkaProject &project);

/// What stands at one frame. Outside the timeline, which is before frame 1 and after its last one, nothing does.
struct FrameAnswer {
    /// What is found with one priority, where a transition lets two shots cover the frame.
    struct Side {
        std::optional<TimelineItem> shot;
        double shotFrame = 0;
        std::optional<TimelineItem> panel;
        unsigned int tvFrame = 0;
        double panelFrame = 0;
    };

    qint64 frame = 0;
    QString timecode;            ///< empty outside
    unsigned int frameCount = 0; ///< of the timeline
    Side backward;
    Side forward;
    std::optional<TimelineItem> transition;
    std::optional<TimelineItem> gap;
};

FrameAnswer lookAt(const PKC_PlotkaProject &project, qint64 frame);
