#pragma once

#include "interchange/otio/OtioNode_p.h"

#include <vector>

class ImportNotes;

/// An item in its place on the timeline, as exact times from the start of the timeline.
struct OtioPlaced {
    const OtioNode *node = nullptr;
    OtioTime start;
    OtioTime end; ///< the start for a transition, which stands at its cut
    /// How much of the item's own head is trimmed away.
    OtioTime headTrim;
};

/// A stretch of a composition that is shown, and where on the timeline it stands.
///
/// A composition counts from the start of its own source range, or of what it holds.
struct OtioWindow {
    OtioTime from;
    OtioTime to;
    OtioTime at;
};

/// Places those children of @p track that the window shows, trimmed to it and in order; gaps that the
/// track has are among them, those that its ranges open are not. Notes what is trimmed.
std::vector<OtioPlaced> placeTrack(const OtioNode &track, const OtioWindow &window, ImportNotes &notes);

/// The window that shows, of a nested track or stack, the part that is placed.
OtioWindow windowOf(const OtioPlaced &nested);
/// The window on a stack's children that its source range opens.
OtioWindow windowOnChildren(const OtioNode &stack, const OtioWindow &window);
