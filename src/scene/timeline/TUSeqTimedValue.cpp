#include "scene/timeline/TUSeqTimedValue.h"

#include "scene/project/SC_ProjectCommon.h"

#include <algorithm>
#include <functional>

// Both ends of the blocks ascend with their index: a block before a transition ends before the one after
// it does. So whatever covers a frame stands together, and every search is a binary one.

namespace
{

bool beginsAfter(double frame, const AT_FrameBlock &block)
{
    return frame < block.key.fromFrame; // the blocks here are all valid
}

bool endsBefore(const AT_FrameBlock &block, double frame)
{
    return block.toFrame() < frame;
}

} // namespace

unsigned int TUSeqTimedValue::nFrames() const
{
    return m_blocks.empty() ? 0 : m_blocks.back().toFrame();
}

std::size_t TUSeqTimedValue::coveringEnd(double frame) const
{
    return std::size_t(std::upper_bound(m_blocks.begin(), m_blocks.end(), frame, beginsAfter) - m_blocks.begin());
}

unsigned int TUSeqTimedValue::blockCountAt(double frame) const
{
    const auto [begin, end] = blocksAt(frame);
    return static_cast<unsigned int>(end - begin);
}

std::pair<TUSeqTimedValue::const_iterator, TUSeqTimedValue::const_iterator> TUSeqTimedValue::blocksAt(
    double frame) const
{
    const const_iterator end = m_blocks.cbegin() + std::ptrdiff_t(coveringEnd(frame));
    const_iterator begin = end;
    while (begin != m_blocks.cbegin() && std::prev(begin)->isInRange(frame))
        --begin;
    return {begin, end};
}

bool TUSeqTimedValue::isAloneAt(double frame, const AT_FrameBlock &block) const
{
    const AT_FrameBlock *const begin = m_blocks.data();
    const AT_FrameBlock *const end = begin + m_blocks.size();
    if (std::less<>()(&block, begin) || !std::less<>()(&block, end) || !block.isInRange(frame))
        return false;
    return (&block == begin || !(&block - 1)->isInRange(frame))
        && (&block + 1 == end || !(&block + 1)->isInRange(frame));
}

TUSeqTimedValue::const_iterator TUSeqTimedValue::blockIteratorAt(unsigned int frame) const
{
    const std::size_t end = coveringEnd(frame);
    const_iterator covering = m_blocks.cend();
    for (std::size_t i = end; i > 0 && m_blocks[i - 1].isInRange(frame); --i) {
        covering = m_blocks.cbegin() + std::ptrdiff_t(i - 1);
        if (covering->key.isTransition)
            return covering;
    }
    return covering;
}

const AT_FrameBlock &TUSeqTimedValue::blockAt(unsigned int frame) const
{
    return blockOrNone(blockIteratorAt(frame));
}

const AT_FrameBlock &TUSeqTimedValue::firstBlock() const
{
    return blockOrNone(m_blocks.cbegin());
}

const AT_FrameBlock &TUSeqTimedValue::nextBlock(const AT_FrameBlockKey &key) const
{
    return blockOrNone(nextBlockIterator(blockIteratorAt(key)));
}

const AT_FrameBlock &TUSeqTimedValue::previousBlock(const AT_FrameBlockKey &key) const
{
    return blockOrNone(previousBlockIterator(blockIteratorAt(key)));
}

const AT_FrameBlock &TUSeqTimedValue::nextBlockAfter(unsigned int frame) const
{
    return blockOrNone(nextBlockIteratorAt(frame));
}

const AT_FrameBlock &TUSeqTimedValue::prevBlockBefore(unsigned int frame) const
{
    return blockOrNone(previousBlockIteratorAt(frame));
}

const AT_FrameBlock &TUSeqTimedValue::blockOf(const SC_Id &objectId) const
{
    return blockOrNone(blockIteratorOf(objectId));
}

TUSeqTimedValue::const_iterator TUSeqTimedValue::blockIteratorAt(const AT_FrameBlockKey &key) const
{
    return m_blocks.cbegin() + std::ptrdiff_t(indexOf(key));
}

TUSeqTimedValue::const_iterator TUSeqTimedValue::blockIteratorOf(const SC_Id &objectId) const
{
    if (objectId.isNull()) {
        return std::find_if(m_blocks.cbegin(), m_blocks.cend(),
            [](const AT_FrameBlock &block) { return !block.seq() || block.seq()->objectId().isNull(); });
    }
    const SC_ProjectCommon *const project = projectCommon();
    const TUSeq *const seq = project ? project->sequenceOf(objectId) : nullptr;
    const bool standsHere = seq && seq->timedValue() == this;
    return standsHere ? m_blocks.cbegin() + std::ptrdiff_t(placeOf(*seq)) : m_blocks.cend();
}

/// Where the block of a sequence that stands here is. Each sequence knows where it was last found: edits before it move it
/// by a few places, and once they have moved one too far, all are told anew.
std::size_t TUSeqTimedValue::placeOf(const TUSeq &seq) const
{
    constexpr std::size_t reach = 64;
    const std::size_t known = seq.m_place;
    const auto standsAt = [&](std::size_t place) { return place < m_blocks.size() && m_blocks[place].seq() == &seq; };
    if (standsAt(known))
        return known;
    for (std::size_t distance = 1; distance <= reach; ++distance) {
        for (const std::size_t place : {known + distance, known - distance}) {
            if (standsAt(place)) {
                seq.m_place = static_cast<quint32>(place);
                return place;
            }
        }
    }
    for (std::size_t place = 0; place < m_blocks.size(); ++place) {
        if (const TUSeq *const standing = m_blocks[place].seq())
            standing->m_place = static_cast<quint32>(place);
    }
    return seq.m_place;
}

TUSeqTimedValue::const_iterator TUSeqTimedValue::nextBlockIterator(const_iterator block) const
{
    return block == m_blocks.cend() ? block : std::next(block);
}

TUSeqTimedValue::const_iterator TUSeqTimedValue::previousBlockIterator(const_iterator block) const
{
    return block == m_blocks.cend() || block == m_blocks.cbegin() ? m_blocks.cend() : std::prev(block);
}

TUSeqTimedValue::const_iterator TUSeqTimedValue::nextBlockIteratorAt(unsigned int frame) const
{
    return m_blocks.cbegin() + std::ptrdiff_t(coveringEnd(frame));
}

TUSeqTimedValue::const_iterator TUSeqTimedValue::previousBlockIteratorAt(unsigned int frame) const
{
    const const_iterator end = std::lower_bound(m_blocks.cbegin(), m_blocks.cend(), double(frame), endsBefore);
    return end == m_blocks.cbegin() ? m_blocks.cend() : std::prev(end);
}

std::size_t TUSeqTimedValue::indexOf(const AT_FrameBlockKey &key) const
{
    // At most a transition and the block it leads into begin on one frame.
    for (std::size_t i = coveringEnd(key.fromFrame); i > 0 && m_blocks[i - 1].fromFrame() == key.fromFrame; --i) {
        if (m_blocks[i - 1].key == key)
            return i - 1;
    }
    return m_blocks.size();
}

const AT_FrameBlock &TUSeqTimedValue::blockOrNone(const_iterator block) const
{
    return block == m_blocks.cend() ? AT_FrameBlock::none() : *block;
}
