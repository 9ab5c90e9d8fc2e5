#include "cli/InfoCommand.h"

#include "cli/CliText.h"
#include "cli/Console.h"
#include "cli/OpenedProject.h"
#include "cli/Progress.h"
#include "cli/TextTable.h"
#include "listing/JsonWriter.h"
#include "listing/TimelineCounts.h"
#include "project/PKC_PlotkaProject.h"
#include "scene/metadata/PIO_MetadataUnknown.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TUSoundTimedValue.h"
#include "scene/timeline/TimelineSearches.h"

#include <QCommandLineParser>
#include <QMap>

#include <algorithm>

namespace
{

/// The records of the file, of the project and of all scenes.
struct RecordCounts {
    struct Unknown {
        QString type;
        QString name;
        QString creator;
        QString version;
    };

    QMap<QString, int> ofType;
    QList<Unknown> unknown;
};

struct TrackCounts {
    int videoTracks = 0; ///< beside the timeline
    int videoClips = 0;
    int soundTracks = 0;
    int sounds = 0;
};

struct Info {
    QString name;
    QString file;
    UT_FrameRate rate;
    qint64 startTimecode = 0;
    unsigned int sceneCount = 0;
    TimelineCounts timeline;
    TrackCounts tracks;
    RecordCounts records;
};

void countRecords(const PIO_Metadatas *records, RecordCounts &counts)
{
    if (!records)
        return;
    for (const PIO_Metadata *record : records->view()) {
        ++counts.ofType[record->metaType()];
        if (dynamic_cast<const PIO_MetadataUnknown *>(record))
            counts.unknown.push_back({record->metaType(), record->metaName(), record->creator(), record->version()});
    }
}

RecordCounts countRecords(const SC_Project &project)
{
    RecordCounts counts;
    countRecords(project.metadatas(), counts);
    for (unsigned int i = 0; i < project.sceneCount(); ++i) {
        if (const auto *scene = dynamic_cast<const TUScene *>(project.sceneAt(i)))
            countRecords(scene->metadatas(), counts);
    }
    return counts;
}

/// The timeline of the project. Only where there is a choice a project object is needed, and made, to choose.
const TUSeqTimedValue *timelineOf(OpenedProject &opened)
{
    const auto *const top = dynamic_cast<const TUScene *>(opened.asFiled().sceneAt(0));
    const auto sequences = std::count_if(top->timedValues().begin(), top->timedValues().end(),
        [](const TUTimedValue *timedValue) { return dynamic_cast<const TUSeqTimedValue *>(timedValue) != nullptr; });
    return sequences > 1 ? opened.project().topMainTv() : sceneMainTv(top);
}

TrackCounts countTracks(const TUScene &top, const TUSeqTimedValue *timeline)
{
    TrackCounts counts;
    for (const TUTimedValue *timedValue : top.timedValues()) {
        if (const auto *sound = dynamic_cast<const TUSoundTimedValue *>(timedValue)) {
            ++counts.soundTracks;
            counts.sounds += static_cast<int>(sound->sounds().size());
        } else if (const auto *video = dynamic_cast<const TUSeqTimedValue *>(timedValue); video && video != timeline) {
            ++counts.videoTracks;
            counts.videoClips += static_cast<int>(video->blockCount());
        }
    }
    return counts;
}

Info infoOf(OpenedProject &opened)
{
    const Progress progress(CliText::tr("counting"));
    Info info;
    info.records = countRecords(opened.asFiled()); // before the panels are given records
    const SC_ProjectCommon *const common = opened.asFiled().projectCommon();
    info.name = common->dbSceneData()->sceneName();
    info.file = common->dbSceneData()->filePath();
    info.rate = common->frameRate();
    info.startTimecode = common->startTimecode();
    info.sceneCount = opened.asFiled().sceneCount();
    const TUSeqTimedValue *const timeline = timelineOf(opened);
    info.timeline = countTimeline(opened.asFiled(), timeline);
    info.tracks = countTracks(*dynamic_cast<const TUScene *>(opened.asFiled().sceneAt(0)), timeline);
    return info;
}

QList<std::pair<QString, QVariant>> countFields(const Info &info)
{
    return {{QStringLiteral("shots"), info.timeline.shots}, {QStringLiteral("panels"), info.timeline.panels},
        {QStringLiteral("transitions"), info.timeline.transitions}, {QStringLiteral("gaps"), info.timeline.gaps},
        {QStringLiteral("videoTracks"), info.tracks.videoTracks},
        {QStringLiteral("videoClips"), info.tracks.videoClips},
        {QStringLiteral("soundTracks"), info.tracks.soundTracks}, {QStringLiteral("sounds"), info.tracks.sounds},
        {QStringLiteral("scenes"), info.sceneCount}};
}

QString jsonText(const Info &info)
{
    JsonWriter json;
    json.beginObject();
    json.field(QLatin1String("schema"), 1);
    json.field(QLatin1String("name"), info.name);
    json.field(QLatin1String("file"), info.file);
    json.field(QLatin1String("rate"), info.rate.asString());
    json.field(QLatin1String("startTimecode"), info.startTimecode);
    json.field(QLatin1String("frames"), info.timeline.frames);
    json.beginObject(QLatin1String("counts"));
    const auto counts = countFields(info);
    for (const auto &count : counts)
        json.field(count.first, count.second);
    json.endObject();
    json.beginObject(QLatin1String("records"));
    for (auto type = info.records.ofType.cbegin(); type != info.records.ofType.cend(); ++type)
        json.field(type.key(), type.value());
    json.endObject();
    json.beginArray(QLatin1String("unknownRecords"));
    for (const RecordCounts::Unknown &record : info.records.unknown) {
        json.beginObject(JsonWriter::OneLine);
        json.field(QLatin1String("type"), record.type);
        json.field(QLatin1String("name"), record.name);
        json.field(QLatin1String("creator"), record.creator);
        json.field(QLatin1String("version"), record.version);
        json.endObject();
    }
    json.endArray();
    json.endObject();
    return json.text();
}

QString tableText(const Info &info)
{
    TextTable table({{}, {}}); // nothing is cut: half a path or rate is none
    table.addRow({CliText::tr("name"), info.name});
    table.addRow({CliText::tr("file"), info.file});
    table.addRow({CliText::tr("rate"), info.rate.asString()});
    table.addRow({CliText::tr("start timecode"), CliText::tr("%1 frames").arg(info.startTimecode)});
    table.addRow({CliText::tr("frames"), QString::number(info.timeline.frames)});
    const QStringList titles = {CliText::tr("shots"), CliText::tr("panels"), CliText::tr("transitions"),
        CliText::tr("gaps"), CliText::tr("video tracks"), CliText::tr("video clips"), CliText::tr("sound tracks"),
        CliText::tr("sounds"), CliText::tr("scenes")};
    const auto counts = countFields(info);
    for (qsizetype i = 0; i < counts.size(); ++i)
        table.addRow({titles[i], counts[i].second.toString()});
    for (auto type = info.records.ofType.cbegin(); type != info.records.ofType.cend(); ++type)
        table.addRow({CliText::tr("records of type %1").arg(type.key()), QString::number(type.value())});
    for (const RecordCounts::Unknown &record : info.records.unknown) {
        table.addRow({CliText::tr("unknown record"),
            CliText::tr("type \"%1\", name \"%2\", creator \"%3\", version \"%4\"")
                .arg(record.type, record.name, record.creator, record.version)});
    }
    return table.lines(Console::outputWidth()).join(u'\n') + u'\n';
}

ExitCode runInfo(const QCommandLineParser &parser)
{
    OpenedProject opened(parser.positionalArguments().first());
    if (!opened.isOpen())
        return ExitCode::BadInput;
    const Info info = infoOf(opened);
    const QString text = parser.isSet(QStringLiteral("json")) ? jsonText(info) : tableText(info);
    return Console::writeResult(text) ? ExitCode::Done : ExitCode::Failed;
}

} // namespace

Subcommand infoCommand()
{
    return {QStringLiteral("info"), {QStringLiteral("FILE")}, QStringLiteral("FILE [--json]"),
        CliText::tr("Tell what a project holds."), {{QStringLiteral("json"), CliText::tr("Print JSON.")}}, runInfo};
}
