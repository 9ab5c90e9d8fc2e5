#pragma once

#include "scene/base/SC_Id.h"
#include "scene/storage/LoadReport_p.h"

#include <memory>
#include <vector>

class AT_TimeWarpSeq;
class ElementAttributes;
class SC_ProjectCommon;
class TUSeq;
class TUSeqTimedValue;

/// Collects the blocks of one sequence as the file tells them and puts them in when all scenes are there.
///
/// A file tells blocks as they stand, the two beside a transition overlapping. They are put in up to the
/// cut, and the transition then makes the overlap, so that whatever the edits refuse is refused here too.
/// What is refused is left out alone: a transition that cannot be leaves a cut.
class SequenceLoader
{
public:
    SequenceLoader(TUSeqTimedValue &sequence, LoadReport &report);

    enum class Kind { Empty, Clip, Warp };
    void addBlock(Kind kind, const ElementAttributes &attributes);
    /// It leads into the block that is added next.
    void addTransition(const ElementAttributes &attributes);

    /// Once all scenes are there: only then is it known what each id belongs to.
    void finish();

private:
    struct Transition {
        SC_Id id;
        unsigned int from = 0;
        unsigned int frames = 0;
        unsigned int before = 0;
        int type = 0;
        int angle = 0;
        bool reverse = false;
        bool readable = false;
        FilePlace place;
    };
    struct Block {
        Kind kind = Kind::Empty;
        SC_Id object;
        SC_Id scene;
        unsigned int from = 0;
        unsigned int to = 0;
        double start = 0.0;
        double end = 0.0;
        std::unique_ptr<Transition> transition; // the one that leads into it, as few have
        FilePlace place;
        // While it is put in:
        unsigned int cutFrom = 0;
        unsigned int cutTo = 0;
        bool isJoined = false; // the transition fits the block before and this one
        AT_TimeWarpSeq *warp = nullptr;
        bool isWhole = true; // stands in the frames that the file gives it
    };

    SC_ProjectCommon &project() const;
    QString conflictOf(const Block &block) const;
    QString conflictOf(const Transition &transition) const;
    void sortOut();
    void cut();
    bool insert(Block &block);
    bool join(Block &before, Block &after);
    void refuse(const Block &block, const QString &reason);
    void refuse(const Transition &transition, const QString &reason);

    TUSeqTimedValue &m_sequence;
    LoadReport &m_report;
    std::vector<Block> m_blocks;
    std::vector<Block> m_doubled; // place what an earlier block places
    std::unique_ptr<Transition> m_pending;
};
