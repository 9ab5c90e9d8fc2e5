#pragma once

#include "listing/TimelineItem.h"
#include "project/Panel_t.h"
#include "project/Shot_t.h"
#include "scene/base/UT_Timecode.h"
#include "scene/timeline/AT_FrameBlock.h"

#include <vector>

class PKC_PlotkaProject;
class TUScene;
class TUSeqTimedValue;

/// Makes items of the blocks of a project.
class ItemMaker
{
public:
    explicit ItemMaker(const PKC_PlotkaProject &project) : m_project(project) {}

    TUScene *sceneOf(const AT_FrameBlock &block) const;
    QString timecode(unsigned int projectFrame, UT_Timecode::Counting counting = UT_Timecode::NonDrop) const;
    /// @p handle is that of the block.
    TimelineItem shot(const AT_FrameBlock &block, const Plotka::Shot_t &handle) const;
    TimelineItem panel(const Plotka::Shot_t &shot, const TUSeqTimedValue *panels, const AT_FrameBlock &block) const;
    TimelineItem panel(const Plotka::Panel_t &panel) const;
    TimelineItem transition(const AT_FrameBlock &block) const;
    TimelineItem gap(unsigned int firstFrame, unsigned int lastFrame) const;
    /// The gap within the shot around a frame of its panels' timed value, where no panel stands; it ends with the shot.
    TimelineItem gapIn(const Plotka::Shot_t &shot, const TUSeqTimedValue *panels, unsigned int tvFrame) const;

    /// The handle of a block of the timeline; invalid when its scene has gone.
    Plotka::Shot_t shotOf(const AT_FrameBlock &block) const;
    /// The panels of the shot and the gaps among them, by frame.
    std::vector<TimelineItem> contentsOf(const Plotka::Shot_t &shot) const;

private:
    TimelineItem item(TimelineItem::Kind kind, const SC_Id &id, unsigned int firstFrame, unsigned int lastFrame) const;
    TimelineItem gapOf(const Plotka::Shot_t &shot, unsigned int tvFirstFrame, unsigned int tvLastFrame) const;

    const PKC_PlotkaProject &m_project;
};
