#include "interchange/otio/OtioImport.h"

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const OtioReading reading = OtioImport::read(bytes);
    checkShots(reading.plan);
    checkTransitions(reading.plan);
    checkTracks(reading.plan.videoTracks);
    checkTracks(reading.plan.soundTracks);
    return 0;
}
