#include "cli/AtCommand.h"

#include "cli/CliText.h"
#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/DisplayWidth.h"
#include "cli/OpenedProject.h"
#include "cli/Progress.h"
#include "cli/TextTable.h"
#include "listing/FrameAnswer.h"
#include "listing/ItemFields.h"
#include "listing/JsonWriter.h"

#include <QCommandLineParser>
#include <QLocale>

#include <algorithm>
#include <limits>

namespace
{

/// The item under its key, with the frames that are asked for beside it; null without one.
void writeItem(
    JsonWriter &json, QLatin1String key, const std::optional<TimelineItem> &item, const ItemFields &frames = {})
{
    if (!item) {
        json.field(key, QVariant());
        return;
    }
    json.beginObject(key, JsonWriter::OneLine);
    for (const auto &field : fieldsOf(*item))
        json.field(field.first, field.second);
    for (const auto &field : frames)
        json.field(field.first, field.second);
    json.endObject();
}

void writeShot(JsonWriter &json, QLatin1String key, const FrameAnswer::Side &side)
{
    writeItem(json, key, side.shot, {{QStringLiteral("shotFrame"), side.shotFrame}});
}

void writePanel(JsonWriter &json, QLatin1String key, const FrameAnswer::Side &side)
{
    writeItem(json, key, side.panel,
        {{QStringLiteral("shotFrame"), side.shotFrame}, {QStringLiteral("tvFrame"), side.tvFrame},
            {QStringLiteral("panelFrame"), side.panelFrame}});
}

QString jsonText(const FrameAnswer &answer)
{
    const QLatin1String backward("backward");
    const QLatin1String forward("forward");
    JsonWriter json;
    json.beginObject();
    json.field(QLatin1String("frame"), answer.frame);
    json.beginObject(QLatin1String("shot"));
    writeShot(json, backward, answer.backward);
    writeShot(json, forward, answer.forward);
    json.endObject();
    json.beginObject(QLatin1String("panel"));
    writePanel(json, backward, answer.backward);
    writePanel(json, forward, answer.forward);
    json.endObject();
    writeItem(json, QLatin1String("transition"), answer.transition);
    writeItem(json, QLatin1String("gap"), answer.gap);
    json.endObject();
    return json.text();
}

QString nameText(const TimelineItem &item)
{
    if (item.id.isNull())
        return CliText::tr("nothing");
    const QString id = CliText::tr("id %1").arg(item.id.AsString());
    return item.name.isEmpty() ? id : QStringLiteral("%1 (%2)").arg(item.name, id);
}

QString placeText(const TimelineItem &item)
{
    return CliText::tr("frames %1-%2").arg(item.firstFrame).arg(item.lastFrame);
}

QString itemText(const std::optional<TimelineItem> &item)
{
    return item ? CliText::tr("%1, %2").arg(nameText(*item), placeText(*item)) : QStringLiteral("-");
}

QString frameText(bool isThere, double frame)
{
    return isThere ? QString::number(frame, 'g', QLocale::FloatingPointShortest) : QStringLiteral("-");
}

QString valueText(const FrameAnswer::Side &side, int row)
{
    switch (row) {
    case 0:
        return itemText(side.shot);
    case 1:
        return itemText(side.panel);
    case 2:
        return frameText(side.shot.has_value(), side.shotFrame);
    case 3:
        return frameText(side.tvFrame > 0, side.tvFrame);
    default:
        return frameText(side.panel.has_value(), side.panelFrame);
    }
}

/// Shots and panels, in two columns where a transition gives two answers.
QStringList sideLines(const FrameAnswer &answer, int width)
{
    const bool isOneAnswer =
        answer.backward.shot && answer.forward.shot && answer.backward.shot->id == answer.forward.shot->id;
    TextTable table(
        {{QString()}, {isOneAnswer ? QString() : CliText::tr("backward"), TextTable::Left, /*mayBeCut*/ true},
            {isOneAnswer ? QString() : CliText::tr("forward"), TextTable::Left, /*mayBeCut*/ true}});
    const QStringList titles = {CliText::tr("shot"), CliText::tr("panel"), CliText::tr("shot frame"),
        CliText::tr("timed value frame"), CliText::tr("panel frame")};
    for (int row = 0; row < titles.size(); ++row) {
        QStringList cells = {titles[row], valueText(answer.backward, row)};
        if (!isOneAnswer)
            cells += valueText(answer.forward, row);
        table.addRow(cells);
    }
    return table.lines(width);
}

QString peopleText(const FrameAnswer &answer)
{
    if (answer.frame < 1 || answer.frame > answer.frameCount) {
        return CliText::tr("project frame %1 is outside of the timeline, which has %2 frames")
                   .arg(answer.frame)
                   .arg(answer.frameCount)
            + u'\n';
    }
    QStringList lines = {CliText::tr("project frame %1 of %2, timecode %3")
                             .arg(QString::number(answer.frame), QString::number(answer.frameCount), answer.timecode)};
    const int width = Console::outputWidth();
    if (answer.transition) {
        const QString name = DisplayWidth::printable(itemText(answer.transition));
        lines += CliText::tr("on the transition %1").arg(name);
    }
    if (answer.gap) {
        lines += answer.gap->shotId.isNull()
            ? CliText::tr("in the gap of %1").arg(placeText(*answer.gap))
            : CliText::tr("in the gap of %1, within a shot").arg(placeText(*answer.gap));
    }
    if (answer.backward.shot || answer.forward.shot) {
        lines += QString();
        lines += sideLines(answer, width);
    }
    return lines.join(u'\n') + u'\n';
}

/// Digits with or without a sign. What 64 bits cannot hold is the outermost number that they can.
bool parseFrame(const QString &text, qint64 &frame)
{
    const bool isNegative = text.startsWith(u'-');
    const QString digits = isNegative || text.startsWith(u'+') ? text.mid(1) : text;
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    if (digits.isEmpty() || !std::all_of(digits.begin(), digits.end(), isDigit))
        return false;
    bool fits = false;
    frame = text.toLongLong(&fits);
    if (!fits)
        frame = isNegative ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
    return true;
}

FrameAnswer answerAt(OpenedProject &opened, qint64 frame)
{
    const Progress progress(CliText::tr("looking at frame %1").arg(frame));
    return lookAt(opened.project(), frame);
}

ExitCode runAt(const QCommandLineParser &parser)
{
    const QStringList arguments = parser.positionalArguments();
    qint64 frame = 0;
    if (!parseFrame(arguments[1], frame))
        return refuseUsage(CliText::tr("at: \"%1\" is no frame").arg(arguments[1]));
    OpenedProject opened(arguments[0]);
    if (!opened.isOpen())
        return ExitCode::BadInput;
    const FrameAnswer answer = answerAt(opened, frame);
    const QString text = parser.isSet(QStringLiteral("json")) ? jsonText(answer) : peopleText(answer);
    return Console::writeResult(text) ? ExitCode::Done : ExitCode::Failed;
}

} // namespace

Subcommand atCommand()
{
    return {QStringLiteral("at"), {QStringLiteral("FILE"), QStringLiteral("FRAME")},
        QStringLiteral("FILE FRAME [--json]"), CliText::tr("Tell what stands at a frame of the project."),
        {{QStringLiteral("json"), CliText::tr("Print JSON.")}}, runAt};
}
