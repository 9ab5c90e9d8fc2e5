#include "listing/FrameAnswer.h"

#include "listing/ItemMaker_p.h"
#include "project/PKC_PlotkaProject.h"
#include "scene/project/SC_ProjectCommon.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TimelineSearches.h"

#include <iterator>

using Plotka::Panel_t;
using Plotka::Shot_t;

namespace
{

enum class Look { Backward, Forward };

/// The block that covers the frame; under a transition, which two blocks share, that before it or that after it. The
/// invalid block in a gap.
const AT_FrameBlock &blockAt(const TUSeqTimedValue &timedValue, unsigned int frame, Look look)
{
    const auto [first, end] = timedValue.blocksAt(frame); // by first frame, the transition before the block after it
    if (first == end)
        return AT_FrameBlock::none();
    return look == Look::Backward ? *first : *std::prev(end);
}

/// Fills in what a look at the frame finds, and answers the gap within a shot that it finds instead of a panel.
std::optional<TimelineItem> lookAt(
    FrameAnswer::Side &side, const ItemMaker &maker, const TUSeqTimedValue &timeline, unsigned int frame, Look look)
{
    const AT_FrameBlock &block = blockAt(timeline, frame, look);
    const Shot_t shot = maker.shotOf(block);
    side.shot = maker.shot(block, shot);
    side.shotFrame = frame - block.fromFrame() + 1;
    if (shot.isInvalid())
        return std::nullopt;
    side.tvFrame = shot.prjFrameToTvFrame(side.shotFrame);
    const TUSeqTimedValue *const panels = sceneMainTv(shot.symbol());
    const AT_FrameBlock &panel = panels ? blockAt(*panels, side.tvFrame, look) : AT_FrameBlock::none();
    if (panel.isValid()) {
        side.panel = maker.panel(shot, panels, panel);
        if (const TUScene *scene = maker.sceneOf(panel))
            side.panelFrame = Panel_t(panels, scene, shot, nullptr).projectFrameToPanelFrame(frame);
        return std::nullopt;
    }
    // A shot that shows its timed value from a later frame may show what lies behind its own length: no gap of it.
    return side.tvFrame <= shot.objNumOfFrame() ? std::optional(maker.gapIn(shot, panels, side.tvFrame)) : std::nullopt;
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
    if (UT_Timecode::hasDropFrames(project.projectCommon()->frameRate()))
        answer.dropTimecode = maker.timecode(projectFrame, UT_Timecode::DropFrame);

    if (timeline->blockCountAt(projectFrame) == 0) {
        const AT_FrameBlock &before = timeline->prevBlockBefore(projectFrame);
        answer.gap = maker.gap(before.toFrame() + 1, timeline->nextBlockAfter(projectFrame).fromFrame() - 1);
        return answer;
    }
    if (const AT_FrameBlock &block = timeline->blockAt(projectFrame); block.key.isTransition)
        answer.transition = maker.transition(block);
    const auto backwardGap = lookAt(answer.backward, maker, *timeline, projectFrame, Look::Backward);
    const auto forwardGap = lookAt(answer.forward, maker, *timeline, projectFrame, Look::Forward);
    answer.gap = forwardGap ? forwardGap : backwardGap;
    return answer;
}
