#include "cli/AtCommand.h"

#include "cli/CliText.h"
#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/DisplayWidth.h"
#include "cli/FrameRange.h"
#include "cli/OpenedProject.h"
#include "cli/Progress.h"
#include "cli/TextTable.h"
#include "listing/FrameAnswer.h"
#include "listing/ItemFields.h"
#include "listing/JsonWriter.h"
#include "listing/NumberText.h"
#include "scene/project/SC_Project.h"

#include <QCommandLineParser>
#include <QFile>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <utility>
#include <vector>

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
            {QStringLiteral("panelFrame"), side.panelFrame ? QVariant(*side.panelFrame) : QVariant()}});
}

QVariant orNull(const QString &text)
{
    return text.isEmpty() ? QVariant() : QVariant(text);
}

void writeAnswer(JsonWriter &json, const FrameAnswer &answer)
{
    const QLatin1String backward("backward");
    const QLatin1String forward("forward");
    json.beginObject();
    json.field(QLatin1String("frame"), answer.frame);
    json.field(QLatin1String("timecode"), orNull(answer.timecode));
    json.field(QLatin1String("dropTimecode"), orNull(answer.dropTimecode));
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
}

QString placeText(const TimelineItem &item)
{
    return CliText::tr("frames %1-%2").arg(item.firstFrame).arg(item.lastFrame);
}

/// Of the parts of a text only the name gives way where @p width columns have no room for all.
QString itemText(const std::optional<TimelineItem> &item, int width)
{
    constexpr int narrowestName = 8;
    if (!item)
        return QStringLiteral("-");
    const QString place = item->isEnabled ? placeText(*item) : CliText::tr("%1, off").arg(placeText(*item));
    if (item->id.isNull())
        return CliText::tr("nothing, %1").arg(place);
    const QString id = CliText::tr("id %1").arg(item->id.AsString());
    if (item->name.isEmpty())
        return CliText::tr("%1, %2").arg(id, place);
    const QString rest = CliText::tr(" (%1), %2").arg(id, place);
    const int room = std::max(narrowestName, width - DisplayWidth::of(rest));
    return DisplayWidth::fitted(DisplayWidth::printable(item->name), room) + rest;
}

QString frameText(unsigned int frame)
{
    return frame > 0 ? QString::number(frame) : QStringLiteral("-");
}

QString valueText(const FrameAnswer::Side &side, int row, int width)
{
    switch (row) {
    case 0:
        return itemText(side.shot, width);
    case 1:
        return itemText(side.panel, width);
    case 2:
        return frameText(side.shotFrame);
    case 3:
        return frameText(side.tvFrame);
    default:
        return side.panelFrame ? numberText(*side.panelFrame) : QStringLiteral("-");
    }
}

/// A look at the frame from one side.
struct Look {
    QString title;
    const FrameAnswer::Side *side;
};

/// Shots and panels, a column for each look.
QStringList lookLines(const std::vector<Look> &looks, int width)
{
    const QStringList titles = {CliText::tr("shot"), CliText::tr("panel"), CliText::tr("shot frame"),
        CliText::tr("timed value frame"), CliText::tr("panel frame")};
    int titleWidth = 0;
    for (const QString &title : titles)
        titleWidth = std::max(titleWidth, DisplayWidth::of(title));
    const int lookWidth = (width - titleWidth) / static_cast<int>(looks.size()) - TextTable::spaceBetween;

    std::vector<TextTable::Column> columns(1);
    for (const Look &look : looks)
        columns.push_back({look.title});
    TextTable table(columns);
    for (int row = 0; row < titles.size(); ++row) {
        QStringList cells = {titles[row]};
        for (const Look &look : looks)
            cells += valueText(*look.side, row, lookWidth);
        table.addRow(cells);
    }
    return table.lines(width);
}

/// Shots and panels; where a transition gives two answers beside one another, or below where there is no room.
QStringList sideLines(const FrameAnswer &answer, int width)
{
    const bool isOneAnswer =
        answer.backward.shot && answer.forward.shot && answer.backward.shot->id == answer.forward.shot->id;
    if (isOneAnswer)
        return lookLines({{QString(), &answer.backward}}, width);
    const Look backward{CliText::tr("backward"), &answer.backward};
    const Look forward{CliText::tr("forward"), &answer.forward};
    const QStringList beside = lookLines({backward, forward}, width);
    const bool hasRoom = std::all_of(
        beside.begin(), beside.end(), [width](const QString &line) { return DisplayWidth::of(line) <= width; });
    return hasRoom ? beside : lookLines({backward}, width) + QStringList{QString()} + lookLines({forward}, width);
}

QString peopleText(const FrameAnswer &answer)
{
    if (answer.frame < 1 || answer.frame > answer.frameCount) {
        return CliText::tr("project frame %1 is outside of the timeline, which has %2 frames")
                   .arg(answer.frame)
                   .arg(answer.frameCount)
            + u'\n';
    }
    const QString timecode = answer.dropTimecode.isNull()
        ? answer.timecode
        : CliText::tr("%1, without drop frames %2").arg(answer.dropTimecode, answer.timecode);
    QStringList lines = {CliText::tr("project frame %1 of %2, timecode %3")
                             .arg(QString::number(answer.frame), QString::number(answer.frameCount), timecode)};
    const int width = Console::outputWidth();
    if (answer.transition) {
        const QString text = CliText::tr("on the transition %1");
        lines += text.arg(itemText(answer.transition, width - DisplayWidth::of(text.arg(QString()))));
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

/// The words of FRAME arguments, then those of standard input when it is asked for.
QStringList frameWords(const QCommandLineParser &parser)
{
    QStringList words = parser.positionalArguments().mid(1);
    QFile input;
    if (parser.isSet(QStringLiteral("stdin")) && input.open(stdin, QIODevice::ReadOnly))
        words += QString::fromUtf8(input.readAll()).simplified().split(u' ', Qt::SkipEmptyParts);
    return words;
}

/// Answers as they are found, since many of them are more than should be held.
class AnswerWriter
{
public:
    enum Form { People, OneJsonObject, JsonList };

    explicit AnswerWriter(Form form) : m_form(form)
    {
        if (form != JsonList)
            return;
        m_json.beginObject();
        m_json.field(QLatin1String("schema"), 1);
        m_json.beginArray(QLatin1String("answers"));
    }

    bool write(const FrameAnswer &answer)
    {
        if (m_form == People) {
            const QString text = std::exchange(m_isFirst, false) ? peopleText(answer) : u'\n' + peopleText(answer);
            return Console::writeResult(text);
        }
        writeAnswer(m_json, answer);
        return Console::writeResult(m_json.takeWritten());
    }

    bool finish()
    {
        if (m_form == JsonList) {
            m_json.endArray();
            m_json.endObject();
        }
        return m_form == People || Console::writeResult(m_json.text());
    }

private:
    Form m_form;
    JsonWriter m_json;
    bool m_isFirst = true;
};

ExitCode answer(const PKC_PlotkaProject &project, const std::vector<FrameRange> &ranges, AnswerWriter writer)
{
    for (const FrameRange &range : ranges) {
        for (qint64 frame = range.firstFrame(); frame <= range.lastFrame(); ++frame) {
            if (!writer.write(lookAt(project, frame)))
                return ExitCode::Failed;
            if (frame == std::numeric_limits<qint64>::max())
                break;
        }
    }
    return writer.finish() ? ExitCode::Done : ExitCode::Failed;
}

void buildProject(OpenedProject &opened)
{
    const Progress progress(CliText::tr("reading the timeline"));
    opened.project();
}

ExitCode runAt(const QCommandLineParser &parser)
{
    const bool readsMore = parser.isSet(QStringLiteral("stdin"));
    const QStringList words = frameWords(parser);
    if (words.isEmpty() && !readsMore)
        return refuseUsage(CliText::tr("at: FRAME is missing"));
    std::vector<FrameRange> ranges;
    for (const QString &word : words) {
        const std::optional<FrameRange> range = FrameRange::parse(word);
        if (!range)
            return refuseUsage(CliText::tr("at: \"%1\" is no frame").arg(word));
        ranges.push_back(*range);
    }
    OpenedProject opened(parser.positionalArguments().first());
    if (!opened.isOpen())
        return ExitCode::BadInput;
    for (FrameRange &range : ranges) {
        if (!range.resolve(*opened.asFiled().projectCommon()))
            return refuseUsage(CliText::tr("at: %1").arg(range.problem()));
    }
    const bool isOne = !readsMore && ranges.size() == 1 && ranges.front().isSingle();
    const AnswerWriter::Form form = !parser.isSet(QStringLiteral("json")) ? AnswerWriter::People
        : isOne                                                           ? AnswerWriter::OneJsonObject
                                                                          : AnswerWriter::JsonList;
    buildProject(opened);
    return answer(opened.project(), ranges, AnswerWriter(form));
}

} // namespace

Subcommand atCommand()
{
    return {QStringLiteral("at"), {QStringLiteral("FILE")}, QStringLiteral("FILE FRAME... [--stdin] [--json]"),
        CliText::tr("Tell what stands at frames of the project."),
        {{QStringLiteral("stdin"), CliText::tr("Read more FRAMEs from standard input.")},
            {QStringLiteral("json"), CliText::tr("Print JSON.")}},
        runAt,
        CliText::tr(
            "FRAME is a frame of the project, from 1, or a timecode; FRAME-FRAME is all from one to the other."),
        /*takesMore*/ true};
}
