#pragma once

#include "scene/timeline/AT_SceneSeq.h"

/// Places a scene and shows the inner range from start to end of it, linearly.
///
///     local  = start + (frame - from) * (end - start) / (to - from), start when to equals from
///     parent = from + (x - start) * (to - from) / (end - start), from when end equals start
class PLOTKA_SCENE_EXPORT AT_TimeWarpSeq : public AT_SceneSeq
{
public:
    AT_TimeWarpSeq(const TUScene *scene, double innerStart, double innerEnd);
    AT_TimeWarpSeq(SC_Id objectId, SC_Id sceneId, double innerStart, double innerEnd);

    /// The sequence as a time warp, or null; null for null.
    static AT_TimeWarpSeq *toTimeWarp(TUSeq *seq);

    double start;
    double end;

    /// Sets the inner range and queues the change of the timed value that holds the sequence, if it is a change.
    void setRange(double innerStart, double innerEnd);

    /// True when one frame of the block shows one frame of the inner range, for a block of that length.
    /// Compared in the form in which the end is made to follow the length, so that it stays true afterwards.
    bool hasSlopeOne(unsigned int frameCount) const { return end == start + (double(frameCount) - 1.0); }

    /// A frame of the block, whose limits are given, as a position in the inner range.
    virtual double toLocalFrame(double frame, double fromFrame, double toFrame) const;
    /// A position in the inner range as a frame of the block.
    virtual double toParentFrame(double position, double fromFrame, double toFrame) const;

    const AT_TimeWarpSeq *timeWarpView() const override { return this; }
};
