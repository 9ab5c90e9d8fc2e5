#include "interchange/LooseJson_p.h"
#include "interchange/otio/OtioKeeper_p.h"
#include "interchange/otio/OtioProjectImport.h"
#include "project/PKC_PlotkaProject.h"
#include "project/PKC_SessionContext.h"
#include "scene/project/SC_Project.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace
{

void require(bool holds)
{
    if (!holds)
        std::abort();
}

// What whoever builds on a plan relies on, for any input.
void checkShots(const OtioPlan &plan)
{
    unsigned int lastCut = 0;
    for (const OtioShotPlan &shot : plan.shots) {
        require(shot.firstFrameBetweenCuts > lastCut && shot.lastFrameBetweenCuts >= shot.firstFrameBetweenCuts);
        require(shot.firstFrame >= 1 && shot.firstFrame <= shot.firstFrameBetweenCuts);
        require(shot.lastFrame >= shot.lastFrameBetweenCuts && shot.lastFrame <= 2147483647U);
        lastCut = shot.lastFrameBetweenCuts;
        unsigned int lastPanel = 0;
        for (const OtioPanelPlan &panel : shot.panels) {
            require(panel.firstFrame > lastPanel && panel.lastFrame >= panel.firstFrame);
            lastPanel = panel.lastFrame;
        }
        require(lastPanel <= shot.frameCount());
    }
}

void checkTransitions(const OtioPlan &plan)
{
    unsigned int lastFrame = 0;
    for (const OtioTransitionPlan &transition : plan.transitions) {
        require(transition.before + 1 < plan.shots.size());
        const OtioShotPlan &earlier = plan.shots[transition.before];
        const OtioShotPlan &later = plan.shots[transition.before + 1];
        require(transition.firstFrame() == later.firstFrame && transition.lastFrame() == earlier.lastFrame);
        require(earlier.firstFrame < transition.firstFrame() && transition.lastFrame() < later.lastFrame);
        require(transition.firstFrame() > lastFrame + 1 && transition.lastFrame() >= transition.firstFrame());
        lastFrame = transition.lastFrame();
    }
}

void checkTracks(const std::vector<OtioTrackPlan> &tracks)
{
    for (const OtioTrackPlan &track : tracks) {
        unsigned int lastFrame = 0;
        for (const OtioClipPlan &clip : track.clips) {
            require(clip.firstFrame > lastFrame && clip.lastFrame >= clip.firstFrame && clip.lastFrame <= 2147483647U);
            lastFrame = clip.lastFrame;
        }
    }
}

// What is kept of an item is an object that can be read again and holds nothing that a file cannot.
void checkRecords(const std::vector<OtioRecordPlan> &records)
{
    for (const OtioRecordPlan &record : records) {
        const QByteArray text = record.text.toUtf8();
        require(record.name.startsWith(QLatin1String("otio")) && text.size() <= OtioKeeper::mostBytes);
        const auto isStorable = [](QChar c) { return c.unicode() >= 0x20 && c.unicode() < 0xFFFE; };
        require(std::all_of(record.text.begin(), record.text.end(), isStorable));
        require(!LooseJson::parse(text).hasError());
    }
}

void checkKept(const OtioReading &reading)
{
    checkRecords(reading.plan.records);
    for (const OtioShotPlan &shot : reading.plan.shots) {
        checkRecords(shot.records);
        for (const OtioPanelPlan &panel : shot.panels)
            checkRecords(panel.records);
    }
    for (const OtioTrackPlan &track : reading.plan.videoTracks) {
        for (const OtioClipPlan &clip : track.clips)
            checkRecords(clip.records);
    }
    for (const ImportNote &note : reading.notes)
        require(note.severity != ImportNote::Loss || OtioImport::lossCodes().contains(note.code));
}

// The project is what the plan says; the timeline refuses nothing.
void checkProject(const QByteArray &bytes, const OtioReading &reading)
{
    static PKC_SessionContext *const session = PKC_SessionContext::createSessionContext(nullptr, nullptr);
    const OtioProjectImport made = OtioImport::importInto(*session, bytes, QStringLiteral("/nowhere"));
    require(made.hasError() == reading.hasError() && (made.project != nullptr) != made.hasError());
    for (const ImportNote &note : made.notes)
        require(note.code != QLatin1String("refused"));
    if (!made.project)
        return;
    const OtioPlan &plan = reading.plan;
    session->createPlotkaProject(made.project);
    const PKC_PlotkaProject &project = *session->plotkaProject();
    require(project.shotCount() == plan.shots.size() && project.transCount() == plan.transitions.size());
    require(project.getNumOfFrames() == (plan.shots.empty() ? 0 : plan.shots.back().lastFrame));
    Plotka::Shot_t shot = project.first(Plotka::Shot_t());
    for (const OtioShotPlan &planned : plan.shots) {
        require(shot.firstFrame() == planned.firstFrame && shot.lastFrame() == planned.lastFrame);
        shot = project.next(shot);
    }
    session->releaseProject();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const OtioReading reading = OtioImport::read(bytes);
    checkShots(reading.plan);
    checkTransitions(reading.plan);
    checkTracks(reading.plan.videoTracks);
    checkTracks(reading.plan.soundTracks);
    checkKept(reading);
    checkProject(bytes, reading);
    return 0;
}
