#include "scene/timeline/AT_FrameBlock.h"

const AT_FrameBlock &AT_FrameBlock::none()
{
    static const AT_FrameBlock *const block = new AT_FrameBlock; // lives to the end: statics may ask late
    return *block;
}
