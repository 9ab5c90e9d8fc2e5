#pragma once

#include "scene/base/SC_Id.h"

#include <QString>

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

    /// Of a shot: its custom names, null where it has none.
    QString act;
    QString sequence;
    /// Of a shot or panel: whether it is shown, which its record "enabled" denies; true where the scene has gone.
    bool isEnabled = true;
};
