#include "scene/base/UT_Numbers.h"

#include <cmath>
#include <limits>

quint32 UT_Numbers::toFrame(double value)
{
    constexpr double limit = 9223372036854775808.0; // 2^63
    if (!(value > -limit && value < limit))
        return 0;
    return static_cast<quint32>(static_cast<quint64>(static_cast<qint64>(value)));
}

int UT_Numbers::toInt(double value)
{
    if (std::isnan(value))
        return 0;
    if (value <= double(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    if (value >= double(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    return static_cast<int>(value);
}
