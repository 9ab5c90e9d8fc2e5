#include "scene/base/UT_Timecode.h"

#include <QStringList>

#include <algorithm>
#include <limits>

namespace
{

/// How many numbers a minute drops: 2 of 30 frames a second, 4 of 60.
quint64 droppedAMinute(quint64 perSecond)
{
    return perSecond / 15;
}

/// The number that the frame would have without drops.
quint64 withDrops(quint64 frame, quint64 perSecond)
{
    const quint64 dropped = droppedAMinute(perSecond);
    const quint64 perMinute = 60 * perSecond - dropped;
    const quint64 perTenMinutes = 10 * perMinute + dropped; // the tenth minute drops none
    const quint64 tens = frame / perTenMinutes;
    const quint64 rest = frame % perTenMinutes;
    const quint64 minutes = rest < dropped ? 0 : (rest - dropped) / perMinute;
    return frame + dropped * (9 * tens + minutes);
}

bool isDigits(const QString &text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

} // namespace

bool UT_Timecode::hasDropFrames(const UT_FrameRate &rate)
{
    return rate == UT_FrameRate(30000, 1001) || rate == UT_FrameRate(60000, 1001);
}

QString UT_Timecode::text(unsigned int frame, const UT_FrameRate &rate, Counting counting)
{
    const quint64 perSecond = rate.fpsRound();
    const bool drops = counting == DropFrame && hasDropFrames(rate);
    const quint64 number = drops ? withDrops(frame, perSecond) : frame;
    const quint64 seconds = number / perSecond;
    const auto twoDigits = [](quint64 part) { return QStringLiteral("%1").arg(part, 2, 10, QLatin1Char('0')); };
    return twoDigits(seconds / 3600) + u':' + twoDigits(seconds / 60 % 60) + u':' + twoDigits(seconds % 60)
        + (drops ? u';' : u':') + twoDigits(number % perSecond);
}

std::optional<unsigned int> UT_Timecode::parse(const QString &text, const UT_FrameRate &rate)
{
    QString plain = text;
    const qsizetype last = text.lastIndexOf(u';');
    const bool drops = last >= 0;
    if (drops)
        plain[last] = u':';
    QStringList groups = plain.split(u':');
    const bool isDropInPlace = !drops || (hasDropFrames(rate) && isDigits(text.mid(last + 1)));
    if (!isDropInPlace || groups.size() < 2 || groups.size() > 4
        || !std::all_of(groups.begin(), groups.end(), isDigits))
        return std::nullopt;
    while (groups.size() < 4)
        groups.prepend(QStringLiteral("0"));

    const quint64 perSecond = rate.fpsRound();
    quint64 parts[4];
    for (qsizetype i = 0; i < 4; ++i) {
        bool fits = false;
        parts[i] = groups[i].toUInt(&fits);
        if (!fits)
            return std::nullopt;
    }
    const auto [hours, minutes, seconds, frames] = parts;
    const quint64 dropped = drops ? droppedAMinute(perSecond) : 0;
    const bool isDropped = seconds == 0 && frames < dropped && minutes % 10 != 0;
    if (minutes > 59 || seconds > 59 || frames >= perSecond || isDropped)
        return std::nullopt;
    const quint64 allMinutes = 60 * hours + minutes;
    const quint64 frame = (60 * allMinutes + seconds) * perSecond + frames - dropped * (allMinutes - allMinutes / 10);
    constexpr quint64 largest = std::numeric_limits<unsigned int>::max();
    return frame <= largest ? std::optional(static_cast<unsigned int>(frame)) : std::nullopt;
}
