#pragma once

#include <string>
#include <vector>

class SC_SceneManager;
class TUSeqTimedValue;

/// A block as plain values, read from the scenes and from nothing above them.
struct PlainBlock {
    unsigned int from = 0;
    unsigned int to = 0; ///< belongs to the block
    bool isTransition = false;
    long long id = 0; ///< of the scene or transition it places, 0 for neither

    bool placesScene = false;
    bool sceneLives = false;
    bool hasWarp = false;
    double warpStart = 0.0;
    double warpEnd = 0.0;

    // Of the scene, when it lives: its custom name as a shot or as a panel, and its own timed value.
    std::string shotName;
    std::string panelName;
    bool panelNameLocked = false;
    bool hasTrack = false;
    std::vector<PlainBlock> track;

    unsigned int frames() const { return to - from + 1; }
    bool covers(unsigned int frame) const { return from <= frame && frame <= to; }
};

using PlainTimeline = std::vector<PlainBlock>;

/// The blocks of @p tv in order, those of the shots' own timed values included.
PlainTimeline plainTimelineOf(const TUSeqTimedValue &tv, const SC_SceneManager &scenes);
