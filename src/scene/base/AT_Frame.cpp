#include "scene/base/AT_Frame.h"

#include "scene/base/UT_Numbers.h"

#include <cmath>

int AT_Frame::roundToUnsigned(double position)
{
    return static_cast<int>(UT_Numbers::toFrame(std::round(position)));
}
