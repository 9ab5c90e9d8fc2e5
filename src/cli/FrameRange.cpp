#include "cli/FrameRange.h"

#include "cli/CliText.h"
#include "scene/base/UT_Timecode.h"
#include "scene/project/SC_ProjectCommon.h"

#include <QRegularExpression>

#include <algorithm>
#include <limits>

namespace
{

/// Digits with or without a sign.
qint64 number(const QString &text)
{
    bool fits = false;
    const qint64 frame = text.toLongLong(&fits);
    if (fits)
        return frame;
    return text.startsWith(u'-') ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
}

} // namespace

std::optional<FrameRange> FrameRange::parse(const QString &text)
{
    static const QString end = QStringLiteral("([+-]?[0-9]+|[0-9]+(?::[0-9]+){0,2}[:;][0-9]+)");
    static const QRegularExpression form(
        QRegularExpression::anchoredPattern(end + QStringLiteral("(?:-") + end + u')' + QStringLiteral("?")));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    FrameRange range;
    range.m_first = match.captured(1);
    range.m_last = match.captured(2);
    return range;
}

bool FrameRange::resolve(const SC_ProjectCommon &common)
{
    const std::optional<qint64> first = frameOf(m_first, common);
    const std::optional<qint64> last = isSingle() ? first : frameOf(m_last, common);
    if (!first || !last)
        return false;
    m_firstFrame = *first;
    m_lastFrame = *last;
    if (*last < *first)
        m_problem = CliText::tr("\"%1-%2\" ends before it begins").arg(m_first, m_last);
    else if (static_cast<quint64>(*last) - static_cast<quint64>(*first) >= static_cast<quint64>(mostFrames))
        m_problem = CliText::tr("\"%1-%2\" is more than %3 frames").arg(m_first, m_last).arg(mostFrames);
    return m_problem.isEmpty();
}

std::optional<qint64> FrameRange::frameOf(const QString &text, const SC_ProjectCommon &common)
{
    if (!text.contains(u':') && !text.contains(u';'))
        return number(text);
    const UT_FrameRate rate = common.frameRate();
    if (const std::optional<unsigned int> count = UT_Timecode::parse(text, rate)) {
        constexpr qint64 far = std::numeric_limits<quint32>::max(); // as far as timecodes of frames go
        return qint64(*count) - std::clamp(common.startTimecode(), -far, far) + 1;
    }
    m_problem = text.contains(u';') && !UT_Timecode::hasDropFrames(rate)
        ? CliText::tr("\"%1\" is drop-frame timecode, which %2 frames a second do not have; it is written with \":\"")
              .arg(text, rate.asString())
        : CliText::tr("there is no timecode \"%1\" at %2 frames a second").arg(text, rate.asString());
    return std::nullopt;
}
