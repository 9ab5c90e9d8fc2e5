#include "cli/TimelineListing.h"

#include "metadata/PKC_SceneInfo.h"
#include "project/ObjectIds.h"
#include "project/PKC_PlotkaProject.h"
#include "scene/base/UT_Format.h"
#include "scene/metadata/PIO_MetadataAccess.h"
#include "scene/metadata/PIO_MetadataBool.h"
#include "scene/session/SC_ProjectCommon.h"
#include "scene/session/TUScene.h"
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

/// Makes items of the blocks of a project.
class ItemMaker
{
public:
    explicit ItemMaker(const PKC_PlotkaProject &project) : m_project(project) {}

    TUScene *sceneOf(const AT_FrameBlock &block) const
    {
        return sceneOfBlock(m_project.projectCommon()->sceneManager(), block);
    }

    QString timecode(unsigned int projectFrame) const;
    /// @p handle is that of the block.
    TimelineItem shot(const AT_FrameBlock &block, const Shot_t &handle) const;
    TimelineItem panel(const Shot_t &shot, const TUSeqTimedValue *panels, const AT_FrameBlock &block) const;
    TimelineItem panel(const Panel_t &panel) const;
    TimelineItem transition(const AT_FrameBlock &block) const;
    TimelineItem gap(unsigned int firstFrame, unsigned int lastFrame) const;

    /// The handle of a block of the timeline; invalid when its scene has gone.
    Shot_t shotOf(const AT_FrameBlock &block) const;
    /// The panels of the shot and the gaps among them, by frame.
    std::vector<TimelineItem> contentsOf(const Shot_t &shot) const;

private:
    TimelineItem item(TimelineItem::Kind kind, const SC_Id &id, unsigned int firstFrame, unsigned int lastFrame) const;
    TimelineItem gapIn(const Shot_t &shot, unsigned int tvFirstFrame, unsigned int tvLastFrame) const;

    const PKC_PlotkaProject &m_project;
};

QString ItemMaker::timecode(unsigned int projectFrame) const
{
    const SC_ProjectCommon *const common = m_project.projectCommon();
    constexpr qint64 last = std::numeric_limits<quint32>::max();
    const qint64 start = std::clamp<qint64>(common->startTimecode(), -last, last);
    const qint64 frame = start + qint64(projectFrame) - 1;
    return UT_Format::formatFrame(static_cast<unsigned int>(std::clamp<qint64>(frame, 0, last)),
        common->frameRate().fpsRound(), /*withFrames*/ true, /*style*/ 0)
        .ToQString();
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

TimelineItem ItemMaker::gapIn(const Shot_t &shot, unsigned int tvFirstFrame, unsigned int tvLastFrame) const
{
    TimelineItem made = gap(shot.shotFrameToProjectFrame(tvFirstFrame), shot.shotFrameToProjectFrame(tvLastFrame));
    made.shotId = shot.id();
    made.shotFirstFrame = tvFirstFrame;
    made.shotLastFrame = tvLastFrame;
    return made;
}

std::vector<TimelineItem> ItemMaker::contentsOf(const Shot_t &shot) const
{
    std::vector<TimelineItem> contents;
    const unsigned int frameCount = shot.objNumOfFrame();
    unsigned int nextFrame = 1;
    const auto takeBlock = [&](const TUSeqTimedValue *panels, const AT_FrameBlock &block) {
        const unsigned int gapEnd = std::min(block.fromFrame(), frameCount + 1);
        if (nextFrame < gapEnd)
            contents.push_back(gapIn(shot, nextFrame, gapEnd - 1));
        nextFrame = std::max(nextFrame, block.toFrame() + 1);
        if (!block.key.isTransition)
            contents.push_back(panel(shot, panels, block));
    };
    if (const TUSeqTimedValue *panels = sceneMainTv(shot.symbol())) {
        for (auto block = panels->beginBlock(); block != panels->endBlock(); ++block)
            takeBlock(panels, *block);
    }
    if (nextFrame <= frameCount)
        contents.push_back(gapIn(shot, nextFrame, frameCount));
    return contents;
}

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

unsigned int TimelineListing::count(TimelineItem::Kind kind) const
{
    return static_cast<unsigned int>(std::count_if(items.begin(), items.end(),
        [kind](const TimelineItem &item) { return item.kind == kind && !item.isEndless(); }));
}

TimelineListing listTimeline(const PKC_PlotkaProject &project)
{
    TimelineListing listing;
    listing.name = project.name();
    listing.rate = project.projectCommon()->frameRate();
    const TUSeqTimedValue *const timeline = project.topMainTv();
    if (!timeline || timeline->blockCount() == 0)
        return listing;
    listing.frameCount = timeline->nFrames();

    const ItemMaker maker(project);
    unsigned int nextFrame = 1;
    for (auto i = timeline->beginBlock(); i != timeline->endBlock(); ++i) {
        const AT_FrameBlock &block = *i;
        if (nextFrame < block.fromFrame())
            listing.items.push_back(maker.gap(nextFrame, block.fromFrame() - 1));
        nextFrame = std::max(nextFrame, block.toFrame() + 1);
        if (block.key.isTransition) {
            listing.items.push_back(maker.transition(block));
            continue;
        }
        const Shot_t shot = maker.shotOf(block);
        listing.items.push_back(maker.shot(block, shot));
        if (shot.isInvalid())
            continue;
        const std::vector<TimelineItem> contents = maker.contentsOf(shot);
        listing.items.insert(listing.items.end(), contents.begin(), contents.end());
    }
    listing.items.push_back(maker.gap(nextFrame, TimelineItem::endless));
    return listing;
}

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
