#include "scene/base/TUMaths.h"

#include "scene/base/UT_Numbers.h"

#include <cmath>

int TUMaths::round(double value)
{
    return UT_Numbers::toInt(std::round(value));
}

double TUMaths::abs(double value)
{
    return std::fabs(value);
}
