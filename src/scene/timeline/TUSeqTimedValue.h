#pragma once

#include "scene/timeline/AT_FrameBlock.h"
#include "scene/timeline/TUTimedValue.h"

#include <cstddef>
#include <utility>
#include <vector>

class AT_TransitionSeq;

/// An ordered list of blocks: a timeline of shots, the panels of a shot, the clips of a track.
///
/// Frames count from 1. Blocks are sorted by first frame and may leave gaps. Two blocks overlap only
/// around a transition, which lies over the frames that the shots before and after it share:
///
///     frame:  1        9    13       21
///     A       |--------------|
///     T                |-----|            sorted before the shot that it leads into
///     B                |-------------|
///
/// A query without an answer gives an invalid block, an end iterator or 0. Look-ups by frame and by key
/// are binary searches, by object id a hash look-up.
class PLOTKA_SCENE_EXPORT TUSeqTimedValue : public TUTimedValue
{
public:
    using const_iterator = std::vector<AT_FrameBlock>::const_iterator;
    using const_reverse_iterator = std::vector<AT_FrameBlock>::const_reverse_iterator;

    /// The last frame that a block may cover.
    static constexpr unsigned int maxFrame = 2147483647u;

    using TUTimedValue::TUTimedValue;
    ~TUSeqTimedValue() override;

    int timedValueKind() const override { return SequenceKind; }

    /// @name Counts
    /// @{
    /// The last frame covered; 0 when empty.
    unsigned int nFrames() const;
    /// Blocks of all kinds.
    unsigned int blockCount() const { return static_cast<unsigned int>(m_blocks.size()); }
    /// Blocks covering the position: 0 in a gap, past the end and at 0; 3 on a transition.
    unsigned int blockCountAt(double frame) const;
    /// True when @p block is one of these, covers the position and no other does.
    bool isAloneAt(double frame, const AT_FrameBlock &block) const;
    /// @}

    /// @name Blocks
    /// The references stay good until the next edit.
    /// @{
    /// The block covering the frame; the transition's where one covers it.
    const AT_FrameBlock &blockAt(unsigned int frame) const;
    const AT_FrameBlock &firstBlock() const;
    /// The neighbour of the block with exactly that key, transitions included.
    const AT_FrameBlock &nextBlock(const AT_FrameBlockKey &key) const;
    const AT_FrameBlock &previousBlock(const AT_FrameBlockKey &key) const;
    /// The nearest block that begins after the frame, or that ends before it.
    const AT_FrameBlock &nextBlockAfter(unsigned int frame) const;
    const AT_FrameBlock &prevBlockBefore(unsigned int frame) const;
    /// The first block that places the object with that id; a null id finds the first block that places none.
    const AT_FrameBlock &blockOf(const SC_Id &objectId) const;
    /// @}

    /// @name Iterators
    /// @{
    const_iterator beginBlock() const { return m_blocks.cbegin(); }
    const_iterator endBlock() const { return m_blocks.cend(); }
    const_reverse_iterator rbeginBlock() const { return m_blocks.crbegin(); }
    const_reverse_iterator rendBlock() const { return m_blocks.crend(); }

    /// The blocks covering the frame, from the first to past the last.
    std::pair<const_iterator, const_iterator> blocksAt(double frame) const;
    const_iterator blockIteratorAt(unsigned int frame) const;
    const_iterator blockIteratorAt(const AT_FrameBlockKey &key) const;
    const_iterator blockIteratorOf(const SC_Id &objectId) const;
    /// End past either end, also past the first block; end for end.
    const_iterator nextBlockIterator(const_iterator block) const;
    const_iterator previousBlockIterator(const_iterator block) const;
    const_iterator nextBlockIteratorAt(unsigned int frame) const;
    const_iterator previousBlockIteratorAt(unsigned int frame) const;
    /// @}

    /// @name Edits
    /// Each keeps the blocks sorted and free of overlap, or answers false and has changed nothing. A sequence
    /// stands in one block of one timed value, a scene in one block of the project, under its own object id. What is refused
    /// always: a block that begins at frame 0, has no frame or ends after maxFrame.
    /// @{
    /// Places @p seq, which may be null and is no transition, over free frames. Takes @p seq over when it
    /// succeeds; otherwise the caller keeps it.
    bool insertBlock(unsigned int fromFrame, unsigned int frameCount, TUSeq *seq);
    /// The scene that it placed stays in the project. Refused beside a transition, and for transitions.
    bool removeBlock(const AT_FrameBlockKey &key);
    /// Moves or resizes a block over free frames, without passing a neighbour. A time warp of slope 1 keeps its
    /// start and its end follows the length. Refused beside a transition, and for transitions. The range that
    /// stands already is no change and makes no news.
    bool setBlockRange(const AT_FrameBlockKey &key, unsigned int fromFrame, unsigned int frameCount);
    /// Lays @p transition over [cut - framesBefore, cut + framesAfter). @p cut is the first frame of the
    /// second of two touching scene blocks; the first grows past it and the second begins before it.
    /// Each keeps at least a frame of its own and transitions never overlap. Ownership as in insertBlock.
    bool insertTransition(
        unsigned int cut, unsigned int framesBefore, unsigned int framesAfter, AT_TransitionSeq *transition);
    /// Takes the transition away and puts the cut back between its neighbours.
    bool removeTransition(const AT_FrameBlockKey &key);
    /// Moves every block that begins at @p fromFrame or later by @p delta frames; 0 is no change and makes no news.
    /// Refused when no block begins there.
    bool moveBlocks(unsigned int fromFrame, int delta);
    /// @}

    /// Tells the change manager that this timed value changed, and the scene too when a block that
    /// places a scene is concerned. For the sequences of its blocks.
    void queueChange(bool placesScene);

private:
    using iterator = std::vector<AT_FrameBlock>::iterator;

    std::size_t coveringEnd(double frame) const;
    std::size_t indexOf(const AT_FrameBlockKey &key) const;
    const AT_FrameBlock &blockOrNone(const_iterator block) const;
    bool isFree(unsigned int fromFrame, unsigned int frameCount) const;
    bool canHold(const TUSeq *seq) const;
    bool isBesideTransition(std::size_t index) const;
    void insertAt(std::size_t index, AT_FrameBlock block);
    [[nodiscard]] AT_FrameBlock takeOut(std::size_t index);
    std::size_t placeOf(const TUSeq &seq) const;
    void changed(bool placesScene);

    std::vector<AT_FrameBlock> m_blocks;
};
