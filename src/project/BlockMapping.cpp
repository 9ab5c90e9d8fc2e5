#include "project/BlockMapping_p.h"

#include "scene/base/SC_Id.h"
#include "scene/base/UT_Numbers.h"
#include "scene/timeline/AT_FrameBlock.h"
#include "scene/timeline/AT_TimeWarpSeq.h"

#include <iostream>

double Plotka::towardParent(const AT_FrameBlock &block, double position)
{
    if (!block.isValid())
        return 1.0;
    const AT_TimeWarpSeq *warp = AT_TimeWarpSeq::toTimeWarp(block.seq());
    if (!warp || warp->start > position)
        return block.fromFrame();
    if (position > warp->end)
        return block.toFrame();
    return warp->toParentFrame(position, block.fromFrame(), block.toFrame());
}

double Plotka::towardInner(const AT_FrameBlock &block, double frame)
{
    if (!block.isValid())
        return 1.0;
    const AT_TimeWarpSeq *warp = AT_TimeWarpSeq::toTimeWarp(block.seq());
    if (!warp)
        return 1.0;
    if (block.fromFrame() > frame)
        return warp->start;
    if (frame > block.toFrame())
        return warp->end;
    return warp->toLocalFrame(frame, block.fromFrame(), block.toFrame());
}

unsigned int Plotka::toTimedValueFrame(const AT_FrameBlock &shotBlock, unsigned int shotFrame)
{
    const AT_TimeWarpSeq *warp = AT_TimeWarpSeq::toTimeWarp(shotBlock.seq());
    return warp ? UT_Numbers::toFrame(shotFrame + warp->start - 1.0) : shotFrame;
}

const SC_Id &Plotka::sceneIdOf(const AT_FrameBlock &block)
{
    if (!block.isValid() || !block.seq())
        return SC_Id::nullSceneId();
    if (const TUSeq *view = block.seq()->sceneSeq())
        return view->id;
    std::cout << "Err: "
              << "Invalid frame block, cannot get scene id"
              << " - ["
              << "seq"
              << "]\n";
    return SC_Id::nullSceneId();
}
