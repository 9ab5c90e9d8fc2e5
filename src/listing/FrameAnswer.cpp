#include "listing/FrameAnswer.h"

#include "listing/ItemMaker_p.h"
#include "project/PKC_PlotkaProject.h"
#include "scene/timeline/TUSeqTimedValue.h"

using Plotka::Panel_t;
using Plotka::Shot_t;
using Plotka::Trans_t;

namespace
{

/// The shot at the frame as the project finds it, else the block without a scene that covers the frame.
std::optional<TimelineItem> shotAt(
    const ItemMaker &maker, const TUSeqTimedValue *timeline, const Shot_t &found, unsigned int frame)
{
    if (found.isValid())
        return maker.shot(found.frameBlock(), found);
    if (timeline->blockCountAt(frame) != 1 || maker.sceneOf(timeline->blockAt(frame)))
        return std::nullopt;
    return maker.shot(timeline->blockAt(frame), Shot_t());
}

FrameAnswer::Side sideAt(const PKC_PlotkaProject &project, const ItemMaker &maker, unsigned int frame,
    PKC_PlotkaProject::ResolutionPriority priority)
{
    FrameAnswer::Side side;
    const Shot_t shot = project.getShotAt(frame, priority, /*nearest*/ false, /*forward*/ true);
    side.shot = shotAt(maker, project.topMainTv(), shot, frame);
    if (shot.isInvalid()) {
        side.shotFrame = side.shot ? frame - side.shot->firstFrame + 1 : 0;
        return side;
    }
    side.shotFrame = shot.projectFrameToShotFrame(frame);
    side.tvFrame = shot.prjFrameToTvFrame(frame - shot.firstFrame() + 1);
    const Panel_t panel = project.getPanelAt(frame, priority, /*nearest*/ false, /*forward*/ true);
    if (panel.isInvalid())
        return side;
    side.panel = maker.panel(panel);
    side.panelFrame = panel.projectFrameToPanelFrame(frame);
    return side;
}

/// The gap of the shot at the frame, when it is found in one and shows no panel there.
std::optional<TimelineItem> gapInShot(const PKC_PlotkaProject &project, const ItemMaker &maker,
    const FrameAnswer::Side &side, PKC_PlotkaProject::ResolutionPriority priority, unsigned int frame)
{
    if (side.panel)
        return std::nullopt;
    const Shot_t shot = project.getShotAt(frame, priority, /*nearest*/ false, /*forward*/ true);
    if (shot.isInvalid())
        return std::nullopt;
    const unsigned int tvFrame = shot.prjFrameToTvFrame(frame - shot.firstFrame() + 1);
    for (const TimelineItem &item : maker.contentsOf(shot)) {
        if (item.kind == TimelineItem::Gap && item.shotFirstFrame <= tvFrame && tvFrame <= item.shotLastFrame)
            return item;
    }
    return std::nullopt;
}

} // namespace

FrameAnswer lookAt(const PKC_PlotkaProject &project, qint64 frame)
{
    const ItemMaker maker(project);
    FrameAnswer answer;
    answer.frame = frame;
    const TUSeqTimedValue *const timeline = project.topMainTv();
    answer.frameCount = timeline ? timeline->nFrames() : 0;
    if (frame < 1 || frame > answer.frameCount)
        return answer;

    const auto projectFrame = static_cast<unsigned int>(frame);
    answer.timecode = maker.timecode(projectFrame);
    answer.backward = sideAt(project, maker, projectFrame, PKC_PlotkaProject::ResolveBackward);
    answer.forward = sideAt(project, maker, projectFrame, PKC_PlotkaProject::ResolveForward);
    if (const Trans_t transition = project.getTransAt(projectFrame); transition.isValid())
        answer.transition = maker.transition(transition.frameBlock());
    const Plotka::Space_t space = project.getSpaceAt(projectFrame);
    if (space.isValid() && !space.isInShot())
        answer.gap = maker.gap(space.firstFrame(), space.lastFrame());
    // Within shots the project does not find every gap that reaches the end of one.
    if (!answer.gap)
        answer.gap = gapInShot(project, maker, answer.forward, PKC_PlotkaProject::ResolveForward, projectFrame);
    if (!answer.gap)
        answer.gap = gapInShot(project, maker, answer.backward, PKC_PlotkaProject::ResolveBackward, projectFrame);
    return answer;
}
