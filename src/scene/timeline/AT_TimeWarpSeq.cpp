#include "scene/timeline/AT_TimeWarpSeq.h"

#include "scene/timeline/TUSeqTimedValue.h"

AT_TimeWarpSeq::AT_TimeWarpSeq(const TUScene *scene, double innerStart, double innerEnd) :
    AT_SceneSeq(scene), start(innerStart), end(innerEnd)
{
}

AT_TimeWarpSeq::AT_TimeWarpSeq(SC_Id objectId, SC_Id sceneId, double innerStart, double innerEnd) :
    AT_SceneSeq(objectId, sceneId), start(innerStart), end(innerEnd)
{
}

AT_TimeWarpSeq *AT_TimeWarpSeq::toTimeWarp(TUSeq *seq)
{
    return seq ? const_cast<AT_TimeWarpSeq *>(seq->timeWarpView()) : nullptr;
}

void AT_TimeWarpSeq::setRange(double innerStart, double innerEnd)
{
    if (start == innerStart && end == innerEnd)
        return;
    start = innerStart;
    end = innerEnd;
    if (timedValue())
        timedValue()->queueChange(/*placesScene*/ true);
}

double AT_TimeWarpSeq::toLocalFrame(double frame, double fromFrame, double toFrame) const
{
    return toFrame == fromFrame ? start : start + (frame - fromFrame) * (end - start) / (toFrame - fromFrame);
}

double AT_TimeWarpSeq::toParentFrame(double position, double fromFrame, double toFrame) const
{
    return end == start ? fromFrame : fromFrame + (position - start) * (toFrame - fromFrame) / (end - start);
}
