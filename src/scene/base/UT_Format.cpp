#include "scene/base/UT_Format.h"

#include "scene/base/UT_Timecode.h"

UT_String UT_Format::formatFrame(unsigned int frame, unsigned int rate, bool, int)
{
    return UT_String(UT_Timecode::text(frame, UT_FrameRate(rate)));
}
