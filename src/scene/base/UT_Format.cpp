#include "scene/base/UT_Format.h"

#include <algorithm>

UT_String UT_Format::formatFrame(unsigned int frame, unsigned int rate, bool, int)
{
    const quint64 perSecond = std::max(rate, 1u);
    const quint64 seconds = frame / perSecond;
    const auto twoDigits = [](quint64 number) { return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')); };
    return UT_String(twoDigits(seconds / 3600) + u':' + twoDigits(seconds / 60 % 60) + u':' + twoDigits(seconds % 60)
        + u':' + twoDigits(frame % perSecond));
}
