#include "scene/timeline/TUSeqTimedValue.h"

#include "scene/base/UT_Edition.h"
#include "scene/changes/TUSceneChangeManager.h"
#include "scene/project/SC_ProjectCommon.h"
#include "scene/project/SC_SceneCommon.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/AT_TransitionSeq.h"

#include <algorithm>
#include <utility>

namespace
{

bool isRange(unsigned int fromFrame, unsigned int frameCount)
{
    return fromFrame >= 1 && frameCount >= 1 && quint64(fromFrame) + frameCount - 1 <= TUSeqTimedValue::maxFrame;
}

bool placesScene(const AT_FrameBlock &block)
{
    return block.seq() && block.seq()->sceneSeq();
}

SC_Id sceneIdOf(const TUSeq *seq)
{
    const TUSeq *scene = seq->sceneSeq();
    return scene ? scene->id : SC_Id();
}

void setPlaced(SC_ProjectCommon *project, const TUSeq *seq, bool placed)
{
    project->setPlaced(seq->objectId(), sceneIdOf(seq), placed, seq);
}

/// Gives a block its new frames; a time warp of slope 1 stays one.
void place(AT_FrameBlock &block, unsigned int fromFrame, unsigned int frameCount)
{
    AT_TimeWarpSeq *const warp = AT_TimeWarpSeq::toTimeWarp(block.seq());
    if (warp && warp->hasSlopeOne(block.key.frameCount))
        warp->end = warp->start + (double(frameCount) - 1.0);
    block.key.fromFrame = fromFrame;
    block.key.frameCount = frameCount;
}

} // namespace

TUSeqTimedValue::~TUSeqTimedValue()
{
    // Whoever is reached from here, the destructor of a sequence for one, finds no timed value any more.
    forgetWatchers();
    for (const AT_FrameBlock &block : m_blocks) {
        if (!block.seq())
            continue;
        block.seq()->m_timedValue = nullptr;
        setPlaced(projectCommon(), block.seq(), false);
    }
    const std::vector<AT_FrameBlock> dying = std::exchange(m_blocks, {});
}

bool TUSeqTimedValue::insertBlock(unsigned int fromFrame, unsigned int frameCount, TUSeq *seq)
{
    if (!isRange(fromFrame, frameCount) || !isFree(fromFrame, frameCount) || !canHold(seq)
        || AT_TransitionSeq::isTransition(seq))
        return false;
    insertAt(coveringEnd(fromFrame), AT_FrameBlock(seq, {fromFrame, frameCount, false}));
    changed(seq && seq->sceneSeq());
    return true;
}

bool TUSeqTimedValue::removeBlock(const AT_FrameBlockKey &key)
{
    const std::size_t index = indexOf(key);
    if (index == m_blocks.size() || key.isTransition || isBesideTransition(index))
        return false;
    const AT_FrameBlock dying = takeOut(index);
    changed(placesScene(dying));
    return true;
}

bool TUSeqTimedValue::setBlockRange(const AT_FrameBlockKey &key, unsigned int fromFrame, unsigned int frameCount)
{
    const std::size_t index = indexOf(key);
    if (index == m_blocks.size() || key.isTransition || isBesideTransition(index) || !isRange(fromFrame, frameCount))
        return false;
    if (index > 0 && m_blocks[index - 1].toFrame() >= fromFrame)
        return false;
    if (index + 1 < m_blocks.size() && m_blocks[index + 1].fromFrame() <= fromFrame + frameCount - 1)
        return false;
    if (m_blocks[index].key == AT_FrameBlockKey{fromFrame, frameCount, false})
        return true;
    place(m_blocks[index], fromFrame, frameCount);
    changed(placesScene(m_blocks[index]));
    return true;
}

bool TUSeqTimedValue::insertTransition(
    unsigned int cut, unsigned int framesBefore, unsigned int framesAfter, AT_TransitionSeq *transition)
{
    const std::size_t after = coveringEnd(cut) - 1;
    if (!transition || !canHold(transition) || after == std::size_t(-1) || after == 0)
        return false;
    const AT_FrameBlock &first = m_blocks[after - 1];
    const AT_FrameBlock &second = m_blocks[after];
    if (second.fromFrame() != cut || first.toFrame() + 1 != cut || !placesScene(first) || !placesScene(second))
        return false;

    // What each of the two has for itself: its frames outside the transitions at its ends.
    const bool firstHasHead = after >= 2 && m_blocks[after - 2].key.isTransition;
    const bool secondHasTail = after + 1 < m_blocks.size() && m_blocks[after + 1].key.isTransition;
    const quint64 ownBegin = firstHasHead ? quint64(m_blocks[after - 2].toFrame()) + 1 : first.fromFrame();
    const quint64 ownEnd = secondHasTail ? m_blocks[after + 1].fromFrame() : quint64(second.toFrame()) + 1;
    if (quint64(framesBefore) + framesAfter == 0 || ownBegin + framesBefore >= cut
        || cut + quint64(framesAfter) >= ownEnd)
        return false;

    place(m_blocks[after - 1], first.fromFrame(), first.key.frameCount + framesAfter);
    place(m_blocks[after], cut - framesBefore, second.key.frameCount + framesBefore);
    transition->m_framesBeforeCut = framesBefore;
    insertAt(after, AT_FrameBlock(transition, {cut - framesBefore, framesBefore + framesAfter, true}));
    changed(/*placesScene*/ true);
    return true;
}

bool TUSeqTimedValue::removeTransition(const AT_FrameBlockKey &key)
{
    const std::size_t index = indexOf(key);
    if (index == m_blocks.size() || !key.isTransition)
        return false;
    const AT_TransitionSeq *transition = AT_TransitionSeq::toTransition(m_blocks[index].seq());
    const unsigned int framesBefore = std::min(transition->framesBeforeCut(), key.frameCount);
    AT_FrameBlock &first = m_blocks[index - 1];
    AT_FrameBlock &second = m_blocks[index + 1];
    place(first, first.fromFrame(), first.key.frameCount - (key.frameCount - framesBefore));
    place(second, second.fromFrame() + framesBefore, second.key.frameCount - framesBefore);
    const AT_FrameBlock dying = takeOut(index);
    changed(/*placesScene*/ true);
    return true;
}

bool TUSeqTimedValue::moveBlocks(unsigned int fromFrame, int delta)
{
    const auto first = std::lower_bound(m_blocks.begin(), m_blocks.end(), fromFrame,
        [](const AT_FrameBlock &block, unsigned int frame) { return block.fromFrame() < frame; });
    if (first == m_blocks.end())
        return false;
    const qint64 newBegin = qint64(first->fromFrame()) + delta;
    const qint64 newEnd = qint64(m_blocks.back().toFrame()) + delta;
    const qint64 previousEnd = first == m_blocks.begin() ? 0 : std::prev(first)->toFrame();
    // A block that a transition ties to one that stays cannot leave it.
    if (previousEnd >= first->fromFrame() || newBegin <= previousEnd || newEnd > maxFrame)
        return false;
    if (delta == 0)
        return true;
    for (auto block = first; block != m_blocks.end(); ++block)
        block->key.fromFrame = static_cast<unsigned int>(qint64(block->key.fromFrame) + delta);
    changed(std::any_of(first, m_blocks.end(), placesScene));
    return true;
}

bool TUSeqTimedValue::isFree(unsigned int fromFrame, unsigned int frameCount) const
{
    const std::size_t end = coveringEnd(double(fromFrame) + frameCount - 1.0);
    return end == 0 || m_blocks[end - 1].toFrame() < fromFrame;
}

bool TUSeqTimedValue::canHold(const TUSeq *seq) const
{
    if (!seq)
        return true;
    const SC_ProjectCommon *project = projectCommon();
    if (!project || seq->m_timedValue)
        return false;
    // Whoever looks an object up by its id must not find another one.
    return AT_TransitionSeq::isTransition(seq)
        ? project->isFree(seq->objectId())
        : project->claimOf(seq->objectId(), sceneIdOf(seq)) == SC_ProjectCommon::Free;
}

bool TUSeqTimedValue::isBesideTransition(std::size_t index) const
{
    return (index > 0 && m_blocks[index - 1].key.isTransition)
        || (index + 1 < m_blocks.size() && m_blocks[index + 1].key.isTransition);
}

void TUSeqTimedValue::insertAt(std::size_t index, AT_FrameBlock block)
{
    if (TUSeq *const seq = block.seq()) {
        seq->m_timedValue = this;
        seq->m_place = static_cast<quint32>(index);
        setPlaced(projectCommon(), seq, true);
    }
    m_blocks.insert(m_blocks.begin() + std::ptrdiff_t(index), std::move(block));
}

/// The block is whole until the caller lets it go, after changed(): the destructor of a sequence may ask anything.
AT_FrameBlock TUSeqTimedValue::takeOut(std::size_t index)
{
    AT_FrameBlock taken = std::move(m_blocks[index]);
    if (TUSeq *const seq = taken.seq()) {
        seq->m_timedValue = nullptr;
        setPlaced(projectCommon(), seq, false);
    }
    m_blocks.erase(m_blocks.begin() + std::ptrdiff_t(index));
    return taken;
}

void TUSeqTimedValue::changed(bool placedScene)
{
    UT_Edition::advance();
    queueChange(placedScene);
}

void TUSeqTimedValue::queueChange(bool placedScene)
{
    TUSceneChangeManager *const changes = changeManager();
    if (!changes)
        return;
    changes->emitTimedValueChanged(this);
    if (placedScene)
        changes->emitSceneChanged();
}
