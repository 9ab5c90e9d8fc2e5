#include "listing/ItemFields.h"

namespace
{

QVariant orNull(const QString &text)
{
    return text.isNull() ? QVariant() : QVariant(text);
}

QVariant orNull(const SC_Id &id)
{
    return id.isNull() ? QVariant() : QVariant(id.AsString());
}

/// Frames count from 1.
QVariant orNull(unsigned int frame)
{
    return frame == 0 ? QVariant() : QVariant(frame);
}

} // namespace

QString kindText(TimelineItem::Kind kind)
{
    switch (kind) {
    case TimelineItem::Shot:
        return QStringLiteral("shot");
    case TimelineItem::Panel:
        return QStringLiteral("panel");
    case TimelineItem::Transition:
        return QStringLiteral("transition");
    case TimelineItem::Gap:
        break;
    }
    return QStringLiteral("gap");
}

ItemFields fieldsOf(const TimelineItem &item)
{
    const bool isEndless = item.isEndless();
    const bool canBeOff = item.kind == TimelineItem::Shot || item.kind == TimelineItem::Panel;
    return {
        {QStringLiteral("kind"), kindText(item.kind)},
        {QStringLiteral("id"), orNull(item.id)},
        {QStringLiteral("name"), orNull(item.name)},
        {QStringLiteral("firstFrame"), item.firstFrame},
        {QStringLiteral("lastFrame"), isEndless ? QVariant() : QVariant(item.lastFrame)},
        {QStringLiteral("frames"), isEndless ? QVariant() : QVariant(item.frameCount())},
        {QStringLiteral("timecode"), item.timecode},
        {QStringLiteral("shot"), orNull(item.shotId)},
        {QStringLiteral("shotFirstFrame"), orNull(item.shotFirstFrame)},
        {QStringLiteral("shotLastFrame"), orNull(item.shotLastFrame)},
        {QStringLiteral("act"), orNull(item.act)},
        {QStringLiteral("sequence"), orNull(item.sequence)},
        {QStringLiteral("enabled"), canBeOff ? QVariant(item.isEnabled) : QVariant()},
    };
}
