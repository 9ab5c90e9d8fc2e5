#pragma once

#include "scene/base/UT_FrameRate.h"

#include <QString>

#include <vector>

/// @file
/// What a cut becomes as a storyboard, before anything is built of it.
///
/// All frames count from 1 and the last frame belongs, as for blocks. Every range has at least one
/// frame and ends at or before 2147483647; ranges of one list ascend and, but for shots under a
/// transition, do not overlap.

/// A text record that keeps what an item of the cut carries and a storyboard has no place for.
struct OtioRecordPlan {
    /// "otio" for the item that the holder of the record was made of; else "otio/" and where below that item it stands,
    /// as in "otio/track 2/item 3".
    QString name;
    /// The item's JSON as it was read, without its children and without white space between tokens.
    QString text;
};

/// A panel of a shot, in frames of the shot: its block covers firstFrame to lastFrame.
struct OtioPanelPlan {
    QString name; ///< empty: no name of its own
    bool enabled = true;
    unsigned int firstFrame = 0;
    unsigned int lastFrame = 0;
    std::vector<OtioRecordPlan> records;

    unsigned int frameCount() const { return lastFrame - firstFrame + 1; }
};

/// A shot. The scene it places has a time warp from 1 to frameCount(), and each panel one from 1 to its own.
struct OtioShotPlan {
    QString name;     ///< custom name; empty: none
    QString act;      ///< custom name of its act; empty: none
    QString sequence; ///< custom name of its sequence; empty: none
    bool enabled = true;
    /// With what transitions add at either side.
    unsigned int firstFrame = 0;
    unsigned int lastFrame = 0;
    /// From cut to cut, without transitions: shots that touch in the cut touch here.
    unsigned int firstFrameBetweenCuts = 0;
    unsigned int lastFrameBetweenCuts = 0;
    /// Fills the shot as it is under its transitions, but for gaps.
    std::vector<OtioPanelPlan> panels;
    /// Of the shot's item, and of tracks and gaps in it.
    std::vector<OtioRecordPlan> records;

    unsigned int frameCount() const { return lastFrame - firstFrame + 1; }
};

/// A transition from shot @c before to shot @c before + 1, both touching at the cut.
///
/// It covers firstFrame to lastFrame: the first frame of the later shot to the last of the earlier.
struct OtioTransitionPlan {
    unsigned int before = 0;   ///< index of the earlier shot
    unsigned int cutFrame = 0; ///< first frame of the later shot between cuts
    unsigned int framesBeforeCut = 0;
    unsigned int framesAfterCut = 0;

    unsigned int firstFrame() const { return cutFrame - framesBeforeCut; }
    unsigned int lastFrame() const { return cutFrame + framesAfterCut - 1; }
};

/// A picture or sound on a track beside the timeline, in project frames. Sounds have no records of their own.
struct OtioClipPlan {
    QString name;
    bool enabled = true;
    unsigned int firstFrame = 0;
    unsigned int lastFrame = 0;
    std::vector<OtioRecordPlan> records;

    unsigned int frameCount() const { return lastFrame - firstFrame + 1; }
};

struct OtioTrackPlan {
    QString name;
    /// False: a sound is muted; of a picture, every clip says it too.
    bool enabled = true;
    std::vector<OtioClipPlan> clips;
};

/// The whole storyboard of a cut.
struct OtioPlan {
    QString name;
    UT_FrameRate rate;
    /// Timecode of the first frame, in frames.
    unsigned int startTimecode = 0;
    /// From the start to the end of the longest track, gaps at the end included.
    unsigned int frameCount = 0;

    QString timelineName; ///< of the track that is the timeline
    std::vector<OtioShotPlan> shots;
    std::vector<OtioTransitionPlan> transitions;
    /// Further video tracks from the bottom up, each a top layer of clips.
    std::vector<OtioTrackPlan> videoTracks;
    std::vector<OtioTrackPlan> soundTracks;

    /// Of the timeline as "otio", and of all that is neither a shot, panel or clip nor in one.
    std::vector<OtioRecordPlan> records;
};
