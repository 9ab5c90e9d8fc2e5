#include "interchange/CutText.h"

#include <QJsonDocument>

#include <sstream>

namespace
{

QJsonObject object(const char *schema)
{
    return {{QStringLiteral("OTIO_SCHEMA"), QString::fromUtf8(schema)}};
}

QJsonArray array(const std::vector<QJsonObject> &objects)
{
    QJsonArray result;
    for (const QJsonObject &each : objects)
        result.append(each);
    return result;
}

void printTracks(std::ostringstream &out, const char *kind, const std::vector<OtioTrackPlan> &tracks)
{
    for (const OtioTrackPlan &track : tracks) {
        out << '\n' << kind << (track.enabled ? "" : " off") << ' ' << track.name.toStdString() << ':';
        for (const OtioClipPlan &clip : track.clips) {
            out << ' ' << clip.name.toStdString() << (clip.enabled ? " " : " off ") << clip.firstFrame << '-'
                << clip.lastFrame;
        }
    }
}

void printPanels(std::ostringstream &out, const OtioShotPlan &shot)
{
    const char *separator = "(";
    for (const OtioPanelPlan &panel : shot.panels) {
        out << separator;
        if (!panel.name.isEmpty())
            out << panel.name.toStdString() << ' ';
        if (!panel.enabled)
            out << "off ";
        out << panel.firstFrame << '-' << panel.lastFrame;
        separator = " ";
    }
    out << (shot.panels.empty() ? "()" : ")");
}

} // namespace

namespace CutText
{

QJsonObject with(QJsonObject object, const char *field, const QJsonValue &value)
{
    object.insert(QString::fromUtf8(field), value);
    return object;
}

QJsonObject without(QJsonObject object, const char *field)
{
    object.remove(QString::fromUtf8(field));
    return object;
}

QJsonObject time(double value, double rate)
{
    return with(with(object("RationalTime.1"), "value", value), "rate", rate);
}

QJsonObject range(double start, double duration, double rate)
{
    return with(with(object("TimeRange.1"), "start_time", time(start, rate)), "duration", time(duration, rate));
}

QJsonObject clip(const char *name, double duration, double rate)
{
    return with(with(object("Clip.2"), "name", QString::fromUtf8(name)), "source_range", range(0, duration, rate));
}

QJsonObject gap(double duration, double rate)
{
    return with(object("Gap.1"), "source_range", range(0, duration, rate));
}

QJsonObject dissolve(double inOffset, double outOffset, double rate)
{
    const QJsonObject typed = with(object("Transition.1"), "transition_type", QStringLiteral("SMPTE_Dissolve"));
    return with(with(typed, "in_offset", time(inOffset, rate)), "out_offset", time(outOffset, rate));
}

QJsonObject track(const std::vector<QJsonObject> &children, const char *kind, const char *name)
{
    const QJsonObject named = with(object("Track.1"), "name", QString::fromUtf8(name));
    return with(with(named, "kind", QString::fromUtf8(kind)), "children", array(children));
}

QJsonObject stack(const std::vector<QJsonObject> &tracks)
{
    return with(object("Stack.1"), "children", array(tracks));
}

QJsonObject timeline(const std::vector<QJsonObject> &tracks)
{
    return with(object("Timeline.1"), "tracks", stack(tracks));
}

OtioReading read(const QJsonObject &cut)
{
    return OtioImport::read(QJsonDocument(cut).toJson());
}

std::string print(const OtioPlan &plan)
{
    std::ostringstream out;
    const char *separator = "";
    for (const OtioShotPlan &shot : plan.shots) {
        out << separator << shot.name.toStdString() << (shot.enabled ? " " : " off ") << shot.firstFrame << '-'
            << shot.lastFrame << ' ';
        printPanels(out, shot);
        separator = " | ";
    }
    for (const OtioTransitionPlan &transition : plan.transitions) {
        out << "\ntransition after shot " << transition.before << ": " << transition.firstFrame() << '-'
            << transition.lastFrame() << " cut " << transition.cutFrame;
    }
    printTracks(out, "layer", plan.videoTracks);
    printTracks(out, "sound", plan.soundTracks);
    return out.str();
}

std::string planOf(const std::vector<QJsonObject> &items)
{
    const OtioReading reading = read(timeline({track(items)}));
    return reading.hasError() ? "error: " + reading.error.message.toStdString() : print(reading.plan);
}

std::string print(const std::vector<ImportNote> &notes)
{
    const char *const severities[] = {"info", "change", "loss"};
    std::ostringstream out;
    for (const ImportNote &note : notes) {
        out << severities[note.severity] << ' ' << note.code.toStdString() << ": " << note.item.toStdString() << ": "
            << note.message.toStdString() << '\n';
    }
    return out.str();
}

std::string codes(const OtioReading &reading)
{
    std::string result;
    for (const ImportNote &note : reading.notes)
        result += (result.empty() ? "" : " ") + note.code.toStdString();
    return result;
}

} // namespace CutText
