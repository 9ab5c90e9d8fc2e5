#include "project/PKC_PlotkaProject.h"

#include "project/PKC_PlotkaProject_p.h"
#include "scene/timeline/AT_TransitionSeq.h"

using namespace Plotka;

namespace
{

bool placesScene(const AT_FrameBlock &block)
{
    return block.seq() && !AT_TransitionSeq::isTransition(block.seq()) && block.seq()->sceneSeq();
}

} // namespace

Shot_t PKC_PlotkaProject::first(const Shot_t &) const
{
    return getShotAt(1, ResolveBackward, /*nearest*/ true, /*forward*/ true);
}

Shot_t PKC_PlotkaProject::last(const Shot_t &) const
{
    const TUSeqTimedValue *timeline = topMainTv();
    return timeline ? getShotAt(timeline->nFrames(), ResolveForward, /*nearest*/ true, /*forward*/ true) : Shot_t();
}

Shot_t PKC_PlotkaProject::next(const Shot_t &shot) const
{
    if (shot.isInvalid())
        return shot;
    const TUSeqTimedValue *timeline = topMainTv();
    if (!timeline)
        return Shot_t();
    auto block = timeline->nextBlockIterator(timeline->blockIteratorAt(shot.frameBlock().key));
    while (block != timeline->endBlock() && !placesScene(*block))
        block = timeline->nextBlockIterator(block);
    return block == timeline->endBlock() ? Shot_t() : d->shotOf(*block, timeline);
}

Shot_t PKC_PlotkaProject::prev(const Shot_t &shot) const
{
    if (shot.isInvalid())
        return shot;
    const TUSeqTimedValue *timeline = topMainTv();
    if (!timeline)
        return Shot_t();
    auto block = timeline->previousBlockIterator(timeline->blockIteratorAt(shot.frameBlock().key));
    while (block != timeline->endBlock() && !placesScene(*block))
        block = timeline->previousBlockIterator(block);
    return block == timeline->endBlock() ? Shot_t() : d->shotOf(*block, timeline);
}

Panel_t PKC_PlotkaProject::first(const Panel_t &) const
{
    return getPanelIn(first(Shot_t()), 1, /*nearest*/ true, /*forward*/ true);
}

Panel_t PKC_PlotkaProject::last(const Panel_t &) const
{
    const Shot_t shot = last(Shot_t());
    return getPanelIn(shot, shot.objNumOfFrame(), /*nearest*/ true, /*forward*/ false);
}

Panel_t PKC_PlotkaProject::next(const Panel_t &panel) const
{
    if (panel.isInvalid())
        return panel;
    const Shot_t &shot = panel.shot();
    const unsigned int lastFrame = panel.lastFrame();
    if (lastFrame < shot.lastFrame()) {
        const unsigned int frameAfter = lastFrame - shot.firstFrame() + 2;
        return getPanelIn(shot, frameAfter, /*nearest*/ true, /*forward*/ true);
    }
    const Shot_t shotAfter = next(shot);
    return shotAfter.isInvalid() ? Panel_t() : getPanelIn(shotAfter, 1, /*nearest*/ true, /*forward*/ true);
}

Panel_t PKC_PlotkaProject::prev(const Panel_t &panel) const
{
    if (panel.isInvalid())
        return panel;
    const Shot_t &shot = panel.shot();
    const unsigned int firstFrame = panel.firstFrame();
    if (firstFrame > shot.firstFrame()) {
        const unsigned int frameBefore = firstFrame - shot.firstFrame();
        return getPanelIn(shot, frameBefore, /*nearest*/ true, /*forward*/ false);
    }
    const Shot_t shotBefore = prev(shot);
    // Looks forward from the last frame, where lastInShot looks backward: a gap at the end of a shot ends the walk.
    return shotBefore.isInvalid()
        ? Panel_t()
        : getPanelIn(shotBefore, shotBefore.objNumOfFrame(), /*nearest*/ true, /*forward*/ true);
}

Panel_t PKC_PlotkaProject::firstInShot(const Panel_t &panel) const
{
    return panel.isInvalid() ? panel : getPanelIn(panel.shot(), 1, /*nearest*/ true, /*forward*/ true);
}

Panel_t PKC_PlotkaProject::lastInShot(const Panel_t &panel) const
{
    return panel.isInvalid()
        ? panel
        : getPanelIn(panel.shot(), panel.shot().objNumOfFrame(), /*nearest*/ true, /*forward*/ false);
}

Trans_t PKC_PlotkaProject::first(const Trans_t &) const
{
    const TUSeqTimedValue *timeline = topMainTv();
    return timeline ? following_transition(/*backward*/ false, timeline->firstBlock(), timeline) : Trans_t();
}

Trans_t PKC_PlotkaProject::last(const Trans_t &) const
{
    const TUSeqTimedValue *timeline = topMainTv();
    return timeline ? following_transition(/*backward*/ true, timeline->blockAt(timeline->nFrames()), timeline)
                    : Trans_t();
}

Trans_t PKC_PlotkaProject::next(const Trans_t &transition) const
{
    if (transition.isInvalid())
        return transition;
    const TUSeqTimedValue *timeline = topMainTv();
    return timeline
        ? following_transition(/*backward*/ false, timeline->nextBlock(transition.frameBlock().key), timeline)
        : Trans_t();
}

Trans_t PKC_PlotkaProject::prev(const Trans_t &transition) const
{
    if (transition.isInvalid())
        return transition;
    const TUSeqTimedValue *timeline = topMainTv();
    return timeline
        ? following_transition(/*backward*/ true, timeline->previousBlock(transition.frameBlock().key), timeline)
        : Trans_t();
}

Trans_t PKC_PlotkaProject::following_transition(
    bool backward, const AT_FrameBlock &block, const TUSeqTimedValue *timeline) const
{
    if (!block.isValid())
        return Trans_t();
    auto found = timeline->blockIteratorAt(block.key);
    while (found != timeline->endBlock() && !AT_TransitionSeq::isTransition(found->seq()))
        found = backward ? timeline->previousBlockIterator(found) : timeline->nextBlockIterator(found);
    return found == timeline->endBlock() ? Trans_t() : d->transitionOf(*found, timeline);
}

objiterator<Panel_t> PKC_PlotkaProject::beginPanel() const
{
    return {this, first(Panel_t())};
}

objiterator<Panel_t> PKC_PlotkaProject::endPanel() const
{
    return {this, Panel_t()};
}

objiterator<Panel_t> PKC_PlotkaProject::beginPanel(const Shot_t &shot) const
{
    return {this, getPanelIn(shot, 1, /*nearest*/ true, /*forward*/ true)};
}

objiterator<Panel_t> PKC_PlotkaProject::endPanel(const Shot_t &shot) const
{
    return {this, next(getPanelIn(shot, shot.objNumOfFrame(), /*nearest*/ true, /*forward*/ true))};
}

reverse_objiterator<Panel_t> PKC_PlotkaProject::rbeginPanel() const
{
    return {this, last(Panel_t())};
}

reverse_objiterator<Panel_t> PKC_PlotkaProject::rendPanel() const
{
    return {this, Panel_t()};
}

reverse_objiterator<Panel_t> PKC_PlotkaProject::rbeginPanel(const Shot_t &shot) const
{
    return {this, getPanelIn(shot, shot.objNumOfFrame(), /*nearest*/ true, /*forward*/ true)};
}

reverse_objiterator<Panel_t> PKC_PlotkaProject::rendPanel(const Shot_t &shot) const
{
    return {this, prev(getPanelIn(shot, 1, /*nearest*/ true, /*forward*/ true))};
}

objiterator<Shot_t> PKC_PlotkaProject::beginShot() const
{
    return {this, first(Shot_t())};
}

objiterator<Shot_t> PKC_PlotkaProject::endShot() const
{
    return {this, Shot_t()};
}

reverse_objiterator<Shot_t> PKC_PlotkaProject::rbeginShot() const
{
    return {this, last(Shot_t())};
}

reverse_objiterator<Shot_t> PKC_PlotkaProject::rendShot() const
{
    return {this, Shot_t()};
}

objiterator<Trans_t> PKC_PlotkaProject::beginTrans() const
{
    return {this, first(Trans_t())};
}

objiterator<Trans_t> PKC_PlotkaProject::endTrans() const
{
    return {this, Trans_t()};
}

reverse_objiterator<Trans_t> PKC_PlotkaProject::rbeginTrans() const
{
    return {this, last(Trans_t())};
}

reverse_objiterator<Trans_t> PKC_PlotkaProject::rendTrans() const
{
    return {this, Trans_t()};
}

objTransIterator<Panel_t> PKC_PlotkaProject::beginPanelTrans() const
{
    return {this, first(Panel_t())};
}

objTransIterator<Panel_t> PKC_PlotkaProject::endPanelTrans() const
{
    return {this, Panel_t()};
}

reverse_objTransIterator<Panel_t> PKC_PlotkaProject::rbeginPanelTrans() const
{
    return {this, last(Panel_t())};
}

reverse_objTransIterator<Panel_t> PKC_PlotkaProject::rendPanelTrans() const
{
    return {this, Panel_t()};
}

objTransIterator<Shot_t> PKC_PlotkaProject::beginShotTrans() const
{
    return {this, first(Shot_t())};
}

objTransIterator<Shot_t> PKC_PlotkaProject::endShotTrans() const
{
    return {this, Shot_t()};
}
