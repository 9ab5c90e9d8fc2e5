#include "project/PKC_PlotkaProject.h"

#include "metadata/PKC_ClipInfo.h"
#include "metadata/PKC_SceneInfo.h"
#include "project/BlockMapping_p.h"
#include "project/ObjectIds.h"
#include "project/PKC_PlotkaProject_p.h"
#include "project/TimelineWalk_p.h"
#include "scene/project/TUScene.h"
#include "scene/timeline/AT_TransitionSeq.h"
#include "scene/timeline/TimelineSearches.h"

#include <algorithm>

using namespace Plotka;

namespace
{

using BlockIterator = TUSeqTimedValue::const_iterator;

BlockIterator step(const TUSeqTimedValue *timeline, BlockIterator block, bool forward)
{
    return forward ? timeline->nextBlockIterator(block) : timeline->previousBlockIterator(block);
}

/// The first block from @p block on that is no transition and covers the frame; the end without one. At the
/// first end of the timeline the direction turns, once.
BlockIterator besideTransition(const TUSeqTimedValue *timeline, BlockIterator block, unsigned int frame, bool forward)
{
    bool turned = false;
    while (block != timeline->endBlock()) {
        if (!block->isInRange(frame))
            return timeline->endBlock();
        if (!AT_TransitionSeq::isTransition(block->seq()))
            return block;
        BlockIterator neighbour = step(timeline, block, forward);
        if (neighbour == timeline->endBlock() && !turned) {
            turned = true;
            forward = !forward;
            neighbour = step(timeline, block, forward);
        }
        block = neighbour;
    }
    return block;
}

/// A record that a file brought under its own keyword as name, custom and without text, gets a text to show.
void nameNameless(TUScene *scene)
{
    const PIO_Metadatas *records = scene->metadatas();
    PIO_Metadata *const record =
        records ? records->metadata(QStringLiteral("sceneInfo"), QStringLiteral("sceneInfo")) : nullptr;
    PKC_SceneInfo *const info = dynamic_cast<PKC_SceneInfo *>(record);
    if (info && !info->isValid())
        info->name().setValue(QStringLiteral("internalSymbol"));
}

bool isNameLocked(const Panel_t &panel)
{
    const PKC_ClipInfo *info = panel.clipInfo();
    return info && info->name().isLocked();
}

/// The frames without a block around @p frame: [first, last], last 0xFFFFFFFF without a block after it.
std::pair<unsigned int, unsigned int> gapAround(const TUSeqTimedValue *timeline, unsigned int frame)
{
    const AT_FrameBlock &before = timeline->prevBlockBefore(frame);
    const AT_FrameBlock &after = timeline->nextBlockAfter(frame);
    return {before.isValid() ? before.fromFrame() + before.key.frameCount : 1,
        after.isValid() ? after.fromFrame() - 1 : Space_t::endless};
}

} // namespace

Shot_t PKC_PlotkaProject::getShotAt(unsigned int frame, ResolutionPriority priority, bool nearest, bool forward) const
{
    const TUSeqTimedValue *timeline = topMainTv(); // first: a timeline chosen anew drops what is remembered
    if (!timeline || timeline->blockCount() == 0)
        return Shot_t();
    ShotPrivate *const known = d->caches.shots.byFrame.findAt(frame, /*earliest*/ priority == ResolveBackward);

    // What is remembered is trusted on a plain frame only: on a transition the blocks decide.
    if (known && timeline->isAloneAt(frame, known->block()))
        return Shot_t(known);
    const auto covering = timeline->blocksAt(frame);
    const bool isPlain = covering.second - covering.first == 1;
    if (covering.first == covering.second) {
        if (!nearest)
            return Shot_t();
        const AT_FrameBlock &neighbour = forward ? timeline->nextBlockAfter(frame) : timeline->prevBlockBefore(frame);
        if (!neighbour.isValid())
            return Shot_t();
        frame = forward ? neighbour.fromFrame() : neighbour.toFrame();
    }
    if (isPlain && known)
        return Shot_t(known);

    const BlockIterator block = besideTransition(
        timeline, isPlain ? covering.first : timeline->blockIteratorAt(frame), frame, priority == ResolveForward);
    TUScene *const scene = block == timeline->endBlock() ? nullptr : d->sceneOf(*block);
    if (!scene)
        return Shot_t();
    if (ShotPrivate *const sameShot = d->caches.shots.find(objectId(*block)))
        return Shot_t(sameShot);
    nameNameless(scene);
    return d->makeShot(*block, timeline, scene);
}

Panel_t PKC_PlotkaProject::getPanelAt(unsigned int frame, ResolutionPriority priority, bool nearest, bool forward) const
{
    const Shot_t shot = getShotAt(frame, priority, nearest, forward);
    if (shot.isInvalid())
        return Panel_t();
    const AT_FrameBlock &block = shot.frameBlock();
    const unsigned int firstFrame = block.fromFrame();
    const unsigned int inShot = std::min(std::max(frame, firstFrame), std::max(block.toFrame(), firstFrame));
    return getPanelIn(shot, inShot - firstFrame + 1, nearest, forward);
}

Panel_t PKC_PlotkaProject::getPanelIn(const Shot_t &shot, unsigned int shotFrame, bool nearest, bool forward) const
{
    const AT_FrameBlock &shotBlock = shot.frameBlock();
    if (shot.isInvalid() || shotFrame > shotBlock.key.frameCount)
        return Panel_t();
    const unsigned int tvFrame = toTimedValueFrame(shotBlock, shotFrame);
    if (const FrameCache<PanelPrivate> *known = d->caches.panelsOfShot.find(shot.id())) {
        if (PanelPrivate *const panel = known->findAt(tvFrame, /*earliest*/ true))
            return Panel_t(panel);
    }

    const TUSeqTimedValue *panels = sceneMainTv(d->sceneOf(shotBlock));
    if (!panels || panels->blockCount() == 0)
        return Panel_t();
    const AT_FrameBlock &covering = panels->blockAt(tvFrame);
    const bool foundByNearest = !covering.isValid();
    if (foundByNearest && !nearest)
        return Panel_t();
    const AT_FrameBlock &block = !foundByNearest ? covering
        : forward                                ? panels->nextBlockAfter(tvFrame)
                                                 : panels->prevBlockBefore(tvFrame);
    const TUScene *scene = d->sceneOf(block);
    if (!scene)
        return Panel_t();

    const UT_SharedPtr<PanelPrivate> panel(new PanelPrivate(panels, scene, shot, nullptr));
    if (d->cacheOn && !foundByNearest) {
        d->caches.panels[panel->id] = panel.get();
        d->caches.panelsOfShot[shot.id()].insert(block.fromFrame(), block.key.frameCount, panel);
        d->forgotten.freeSome();
    }
    return Panel_t(panel.get());
}

Panel_t PKC_PlotkaProject::getPanelIn(const Shot_t &shot, const Panel_t &panel, bool lockedOnly) const
{
    if (panel.isInvalid())
        return Panel_t();
    const PanelWalk begin(this, *beginPanel(shot));
    const Panel_t end = *endPanel(shot);
    for (PanelWalk walk = begin; !walk.isAtEnd() && walk.current() != end; walk.step()) {
        if (walk.current() == panel)
            return walk.current();
    }
    if (lockedOnly && !isNameLocked(panel))
        return Panel_t();
    const QString name = panel.name();
    for (PanelWalk walk = begin; !walk.isAtEnd() && walk.current() != end; walk.step()) {
        if (walk.current().name() == name && (!lockedOnly || isNameLocked(walk.current())))
            return walk.current();
    }
    return Panel_t();
}

Trans_t PKC_PlotkaProject::getTransAt(unsigned int frame) const
{
    const TUSeqTimedValue *timeline = topMainTv(); // first, as in getShotAt
    if (!timeline)
        return Trans_t();
    if (TransPrivate *const known = d->caches.transitions.byFrame.findAt(frame, /*earliest*/ true))
        return Trans_t(known);
    if (timeline->blockCountAt(frame) <= 1)
        return Trans_t();
    const AT_FrameBlock &block = timeline->blockAt(frame);
    const AT_TransitionSeq *transition = AT_TransitionSeq::toTransition(block.seq());
    return transition ? d->transitionOf(block, timeline) : Trans_t();
}

Space_t PKC_PlotkaProject::getSpaceAt(unsigned int frame) const
{
    const TUSeqTimedValue *timeline = topMainTv();
    if (!timeline || timeline->blockCount() == 0)
        return Space_t();
    if (timeline->blockCountAt(frame) == 0) {
        const auto [firstFrame, lastFrame] = gapAround(timeline, frame);
        return Space_t(firstFrame, lastFrame);
    }

    const Shot_t shot = getShotAt(frame, ResolveForward, /*nearest*/ false, /*forward*/ true);
    if (shot.isInvalid())
        return Space_t();
    const unsigned int shotFrame = frame - shot.firstFrame() + 1;
    const unsigned int tvFrame = shot.prjFrameToTvFrame(shotFrame);
    const TUSeqTimedValue *panels = sceneMainTv(d->sceneOf(shot.frameBlock()));
    if (shot.objNumOfFrame() < shotFrame || !panels || panels->blockCountAt(tvFrame) != 0)
        return Space_t();
    // Without a panel after it the end wraps, so that only a shot that starts at frame 1 has such a gap.
    const auto [firstFrame, lastFrame] = gapAround(panels, tvFrame);
    return Space_t(shot, shot.shotFrameToProjectFrame(firstFrame), shot.shotFrameToProjectFrame(lastFrame));
}

bool PKC_PlotkaProject::hasSpaceAt(unsigned int frame) const
{
    return !getSpaceAt(frame).isInvalid();
}

objTransIterator<Panel_t> PKC_PlotkaProject::panelTransAt(unsigned int frame) const
{
    const Trans_t transition = getTransAt(frame);
    if (transition.isValid())
        return {this, transition};
    return {this, getPanelAt(frame, ResolveBackward, /*nearest*/ false, /*forward*/ true)};
}

objTransIterator<Panel_t> PKC_PlotkaProject::panelTransAfter(unsigned int frame) const
{
    const Trans_t transition = getTransAt(frame);
    if (transition.isValid())
        return {this, transition};
    return {this, getPanelAt(frame, ResolveBackward, /*nearest*/ true, /*forward*/ true)};
}

objTransIterator<Panel_t> PKC_PlotkaProject::panelTransBefore(unsigned int frame) const
{
    const Trans_t transition = getTransAt(frame);
    if (transition.isValid())
        return {this, transition};
    return {this, getPanelAt(frame, ResolveBackward, /*nearest*/ true, /*forward*/ false)};
}
