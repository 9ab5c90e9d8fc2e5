#pragma once

#include "scene/timeline/TUSeqTimedValue.h"

#include <QtGlobal>

#include <string>
#include <vector>

/// A list of blocks that does everything frame by frame and block by block: what TUSeqTimedValue is compared with.
///
/// It shares no code with it and is only good for short timelines.
class NaiveTimeline
{
public:
    struct Block {
        unsigned int from = 0;
        unsigned int count = 0;
        bool isTransition = false;
        bool placesScene = false;
        qint64 objectId = 0; ///< 0 for a block that places nothing
        bool hasWarp = false;
        double start = 0;
        double end = 0;
        unsigned int framesBeforeCut = 0;

        unsigned int to() const { return from + count - 1; }
        bool covers(double frame) const { return from <= frame && frame <= to(); }
        AT_FrameBlockKey key() const { return {from, count, isTransition}; }
        std::string text() const;
    };

    std::vector<Block> blocks;

    /// @name Edits
    /// The rules of TUSeqTimedValue in the plainest words; false leaves all as it was.
    /// @{
    bool insertBlock(const Block &block);
    bool removeBlock(const AT_FrameBlockKey &key);
    bool setBlockRange(const AT_FrameBlockKey &key, unsigned int from, unsigned int count);
    bool insertTransition(unsigned int cut, unsigned int before, unsigned int after, qint64 id);
    bool removeTransition(const AT_FrameBlockKey &key);
    bool moveBlocks(unsigned int fromFrame, int delta);
    /// @}

    /// @name Answers
    /// An index of blocks; -1 for none.
    /// @{
    int at(unsigned int frame) const;
    int after(unsigned int frame) const;
    int before(unsigned int frame) const;
    int of(qint64 objectId) const;
    int of(const AT_FrameBlockKey &key) const;
    unsigned int countAt(double frame) const;
    unsigned int lastFrame() const;
    /// @}

    std::string text() const;

private:
    void sort();
    bool isUnderTransition(unsigned int frame) const;
    bool touchesTransition(const Block &block) const;
    bool isFreeFor(const Block &block, int butFor) const;
};

/// The blocks of a timed value as NaiveTimeline::text() shows its own.
std::string textOf(const TUSeqTimedValue &timedValue);

/// What contradicts the rules of blocks, in words; empty when all is well.
std::string problemsOf(const TUSeqTimedValue &timedValue);
