#include "cli/TimelineCommand.h"

#include "cli/CliText.h"
#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/DisplayWidth.h"
#include "cli/OpenedProject.h"
#include "cli/Progress.h"
#include "cli/TextTable.h"
#include "cli/TimelineDrawing.h"
#include "listing/CsvWriter.h"
#include "listing/ItemFields.h"
#include "listing/JsonWriter.h"
#include "listing/TimelineListing.h"

#include <QCommandLineParser>

namespace
{

QString jsonText(const TimelineListing &listing)
{
    JsonWriter json;
    json.beginObject();
    json.field(QLatin1String("schema"), 1);
    json.field(QLatin1String("name"), listing.name);
    json.field(QLatin1String("rate"), listing.rate.asString());
    json.field(QLatin1String("frames"), listing.frameCount);
    json.beginArray(QLatin1String("items"));
    for (const TimelineItem &item : listing.items) {
        json.beginObject(JsonWriter::OneLine);
        for (const auto &field : fieldsOf(item))
            json.field(field.first, field.second);
        json.endObject();
    }
    json.endArray();
    json.endObject();
    return json.text();
}

QString csvText(const TimelineListing &listing, CsvWriter::Formulas formulas)
{
    CsvWriter csv(formulas);
    csv.addKeys(fieldsOf(TimelineItem()));
    for (const TimelineItem &item : listing.items)
        csv.addRow(fieldsOf(item));
    return csv.text();
}

QString rangeText(unsigned int firstFrame, unsigned int lastFrame)
{
    return firstFrame == 0 ? QString() : QStringLiteral("%1-%2").arg(firstFrame).arg(lastFrame);
}

/// Act and sequence of a shot; empty without.
QString placeText(const TimelineItem &item)
{
    QStringList names;
    for (const QString &name : {item.act, item.sequence}) {
        if (!name.isNull())
            names += name;
    }
    return names.join(QStringLiteral(" / "));
}

QString tableKind(const TimelineItem &item)
{
    const QString kind = item.isEnabled ? kindText(item.kind) : CliText::tr("%1, off").arg(kindText(item.kind));
    return item.shotId.isNull() ? kind : QStringLiteral("  ") + kind;
}

QStringList tableRow(const TimelineItem &item)
{
    const QString last = item.isEndless() ? QString() : QString::number(item.lastFrame);
    const QString count = item.isEndless() ? QString() : QString::number(item.frameCount());
    const QString inShot = item.shotId.isNull() ? QString() : rangeText(item.shotFirstFrame, item.shotLastFrame);
    const QString id = item.id.isNull() ? QString() : item.id.AsString();
    return {QString::number(item.firstFrame), last, count, inShot, item.timecode, tableKind(item), id, item.name};
}

/// Shots stand out, gaps step back.
QString coloured(const QString &line, TimelineItem::Kind kind)
{
    const char *const code = kind == TimelineItem::Shot ? "1"
        : kind == TimelineItem::Transition              ? "36"
        : kind == TimelineItem::Gap                     ? "2"
                                                        : "0";
    return QStringLiteral("\033[%1m%2\033[0m").arg(QLatin1String(code), line);
}

QString headText(const TimelineListing &listing)
{
    const auto counted = [&listing](TimelineItem::Kind kind, const char *one, const char *many) {
        const unsigned int count = listing.count(kind);
        return CliText::tr(count == 1 ? one : many).arg(count);
    };
    const QStringList counts = {counted(TimelineItem::Shot, "%1 shot", "%1 shots"),
        counted(TimelineItem::Panel, "%1 panel", "%1 panels"),
        counted(TimelineItem::Transition, "%1 transition", "%1 transitions"),
        counted(TimelineItem::Gap, "%1 gap", "%1 gaps")};
    return CliText::tr("%1: %2 frames at %3 per second; %4")
        .arg(DisplayWidth::printable(listing.name), QString::number(listing.frameCount), listing.rate.asString(),
            counts.join(QStringLiteral(", ")));
}

QString tableText(const TimelineListing &listing)
{
    QString text = headText(listing) + u'\n';
    if (listing.items.empty())
        return text;
    const int width = Console::outputWidth();
    text += u'\n' + drawTimeline(listing, width).join(u'\n') + QStringLiteral("\n\n");

    // What can be told from the other columns goes first where a terminal is narrow.
    TextTable table({{CliText::tr("first"), TextTable::Right},
        {CliText::tr("last"), TextTable::Right, /*mayBeCut*/ false, /*goes*/ 5},
        {CliText::tr("frames"), TextTable::Right, /*mayBeCut*/ false, /*goes*/ 2},
        {CliText::tr("in shot"), TextTable::Right, /*mayBeCut*/ false, /*goes*/ 1},
        {CliText::tr("timecode"), TextTable::Left, /*mayBeCut*/ false, /*goes*/ 3}, {CliText::tr("kind")},
        {CliText::tr("id"), TextTable::Right, /*mayBeCut*/ false, /*goes*/ 4},
        {CliText::tr("name"), TextTable::Left, /*mayBeCut*/ true}});
    for (const TimelineItem &item : listing.items)
        table.addRow(tableRow(item));
    const QStringList lines = table.lines(width);
    const bool hasColour = Console::outputHasColour();
    text += lines.first() + u'\n';
    QString place;
    for (std::size_t i = 0; i < listing.items.size(); ++i) {
        const TimelineItem &item = listing.items[i];
        const QString &line = lines[static_cast<qsizetype>(i) + 1];
        if (item.kind == TimelineItem::Shot && placeText(item) != place) {
            place = placeText(item);
            text += u'\n' + DisplayWidth::fitted(DisplayWidth::printable(place), width) + u'\n';
        }
        text += (hasColour ? coloured(line, item.kind) : line) + u'\n';
    }
    return text;
}

ExitCode runTimeline(const QCommandLineParser &parser)
{
    const bool wantsJson = parser.isSet(QStringLiteral("json"));
    const bool wantsCsv = parser.isSet(QStringLiteral("csv"));
    if (wantsJson && wantsCsv)
        return refuseUsage(CliText::tr("timeline: --json and --csv exclude one another"));
    const bool isGuarded = parser.isSet(QStringLiteral("guard"));
    if (isGuarded && !wantsCsv)
        return refuseUsage(CliText::tr("timeline: --guard is for --csv alone"));
    OpenedProject opened(parser.positionalArguments().first());
    if (!opened.isOpen())
        return ExitCode::BadInput;
    QString text;
    {
        const Progress progress(CliText::tr("listing the timeline"));
        const TimelineListing listing = listTimeline(opened.project());
        text = wantsJson ? jsonText(listing)
            : wantsCsv   ? csvText(listing, isGuarded ? CsvWriter::Guarded : CsvWriter::AsTheyAre)
                         : tableText(listing);
    }
    return Console::writeResult(text) ? ExitCode::Done : ExitCode::Failed;
}

} // namespace

Subcommand timelineCommand()
{
    return {QStringLiteral("timeline"), {QStringLiteral("FILE")}, QStringLiteral("FILE [--json | --csv [--guard]]"),
        CliText::tr("List shots, panels, transitions and gaps in order."),
        {{QStringLiteral("json"), CliText::tr("Print JSON.")},
            {QStringLiteral("csv"), CliText::tr("Print comma-separated values.")},
            {QStringLiteral("guard"),
                CliText::tr("Put an apostrophe before texts that a spreadsheet would run, such as \"=1+2\".")}},
        runTimeline};
}
