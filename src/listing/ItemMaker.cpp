#include "listing/ItemMaker_p.h"

#include "metadata/PKC_SceneInfo.h"
#include "project/ObjectIds.h"
#include "project/PKC_PlotkaProject.h"
#include "scene/metadata/PIO_MetadataAccess.h"
#include "scene/metadata/PIO_MetadataBool.h"
#include "scene/project/SC_ProjectCommon.h"
#include "scene/project/TUScene.h"
#include "scene/timeline/AT_TransitionSeq.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TimelineSearches.h"

#include <algorithm>
#include <limits>

using Plotka::Panel_t;
using Plotka::Shot_t;
using Plotka::Trans_t;

namespace
{

/// Where nobody gave a name the text is empty, not null: the thing could have one.
QString nameOrEmpty(const QString &name)
{
    return name.isNull() ? QStringLiteral("") : name;
}

QString customName(const PKC_ObjectName &name)
{
    return name.isCustom() ? nameOrEmpty(name.value()) : QString();
}

bool isEnabled(const TUScene *scene)
{
    const PIO_MetadataBool *const record =
        PIO_MetadataAccess<PIO_MetadataBool>(scene->metadatas(), QStringLiteral("enabled")).get();
    return !record || !record->isValid() || record->valueBool();
}

} // namespace

TUScene *ItemMaker::sceneOf(const AT_FrameBlock &block) const
{
    return sceneOfBlock(m_project.projectCommon()->sceneManager(), block);
}

QString ItemMaker::timecode(unsigned int projectFrame, UT_Timecode::Counting counting) const
{
    const SC_ProjectCommon *const common = m_project.projectCommon();
    constexpr qint64 last = std::numeric_limits<quint32>::max();
    const qint64 start = std::clamp<qint64>(common->startTimecode(), -last, last);
    const qint64 frame = std::clamp<qint64>(start + qint64(projectFrame) - 1, 0, last);
    return UT_Timecode::text(static_cast<unsigned int>(frame), common->frameRate(), counting);
}

TimelineItem ItemMaker::item(
    TimelineItem::Kind kind, const SC_Id &id, unsigned int firstFrame, unsigned int lastFrame) const
{
    TimelineItem made;
    made.kind = kind;
    made.id = id;
    made.firstFrame = firstFrame;
    made.lastFrame = lastFrame;
    made.timecode = timecode(firstFrame);
    return made;
}

TimelineItem ItemMaker::shot(const AT_FrameBlock &block, const Shot_t &handle) const
{
    TimelineItem made = item(TimelineItem::Shot, Plotka::objectId(block), block.fromFrame(), block.toFrame());
    made.shotFirstFrame = 1;
    made.shotLastFrame = block.key.frameCount;
    if (handle.isInvalid())
        return made;
    made.name = nameOrEmpty(handle.name());
    made.isEnabled = isEnabled(handle.symbol());
    if (const PKC_SceneInfo *info = handle.sceneInfo()) {
        made.act = customName(info->actName());
        made.sequence = customName(info->sequenceName());
    }
    return made;
}

Shot_t ItemMaker::shotOf(const AT_FrameBlock &block) const
{
    const TUScene *const scene = sceneOf(block);
    if (!scene)
        return Shot_t();
    // A shot under a transition begins with it, so at its first frame the later of two shots is the one meant.
    const Shot_t shot =
        m_project.getShotAt(block.fromFrame(), PKC_PlotkaProject::ResolveForward, /*nearest*/ false, /*forward*/ true);
    return shot.isValid() && shot.id() == scene->objectId() ? shot : Shot_t(m_project.topMainTv(), scene, nullptr);
}

TimelineItem ItemMaker::panel(const Panel_t &panel) const
{
    TimelineItem made = item(TimelineItem::Panel, panel.id(), panel.firstFrame(), panel.lastFrame());
    made.name = nameOrEmpty(panel.name());
    made.shotId = panel.shot().id();
    made.shotFirstFrame = panel.relativeFirstFrame();
    made.shotLastFrame = panel.relativeLastFrame();
    made.isEnabled = isEnabled(panel.symbol());
    return made;
}

TimelineItem ItemMaker::panel(const Shot_t &shot, const TUSeqTimedValue *panels, const AT_FrameBlock &block) const
{
    if (const TUScene *scene = sceneOf(block))
        return panel(Panel_t(panels, scene, shot, nullptr));
    TimelineItem made = item(TimelineItem::Panel, Plotka::objectId(block),
        shot.shotFrameToProjectFrame(block.fromFrame()), shot.shotFrameToProjectFrame(block.toFrame()));
    made.shotId = shot.id();
    made.shotFirstFrame = block.fromFrame();
    made.shotLastFrame = block.toFrame();
    return made;
}

TimelineItem ItemMaker::transition(const AT_FrameBlock &block) const
{
    TimelineItem made = item(TimelineItem::Transition, Plotka::objectId(block), block.fromFrame(), block.toFrame());
    made.name = Trans_t(m_project.topMainTv(), AT_TransitionSeq::toTransition(block.seq())).name();
    return made;
}

TimelineItem ItemMaker::gap(unsigned int firstFrame, unsigned int lastFrame) const
{
    return item(TimelineItem::Gap, SC_Id(), firstFrame, lastFrame);
}

TimelineItem ItemMaker::gapOf(const Shot_t &shot, unsigned int tvFirstFrame, unsigned int tvLastFrame) const
{
    TimelineItem made = gap(shot.shotFrameToProjectFrame(tvFirstFrame), shot.shotFrameToProjectFrame(tvLastFrame));
    made.shotId = shot.id();
    made.shotFirstFrame = tvFirstFrame;
    made.shotLastFrame = tvLastFrame;
    return made;
}

TimelineItem ItemMaker::gapIn(const Shot_t &shot, const TUSeqTimedValue *panels, unsigned int tvFrame) const
{
    const AT_FrameBlock &before = panels ? panels->prevBlockBefore(tvFrame) : AT_FrameBlock::none();
    const AT_FrameBlock &after = panels ? panels->nextBlockAfter(tvFrame) : AT_FrameBlock::none();
    const unsigned int shotEnd = shot.objNumOfFrame() + 1;
    return gapOf(shot, before.toFrame() + 1, std::min(after.isValid() ? after.fromFrame() : shotEnd, shotEnd) - 1);
}

std::vector<TimelineItem> ItemMaker::contentsOf(const Shot_t &shot) const
{
    std::vector<TimelineItem> contents;
    const unsigned int frameCount = shot.objNumOfFrame();
    unsigned int nextFrame = 1;
    const auto takeBlock = [&](const TUSeqTimedValue *panels, const AT_FrameBlock &block) {
        const unsigned int gapEnd = std::min(block.fromFrame(), frameCount + 1);
        if (nextFrame < gapEnd)
            contents.push_back(gapOf(shot, nextFrame, gapEnd - 1));
        nextFrame = std::max(nextFrame, block.toFrame() + 1);
        if (!block.key.isTransition)
            contents.push_back(panel(shot, panels, block));
    };
    if (const TUSeqTimedValue *panels = sceneMainTv(shot.symbol())) {
        for (auto block = panels->beginBlock(); block != panels->endBlock(); ++block)
            takeBlock(panels, *block);
    }
    if (nextFrame <= frameCount)
        contents.push_back(gapOf(shot, nextFrame, frameCount));
    return contents;
}
