#include "NaiveTimeline.h"

#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/AT_TransitionSeq.h"

#include <algorithm>
#include <set>
#include <sstream>

namespace
{

constexpr long long lastOfAll = 2147483647;

void resize(NaiveTimeline::Block &block, unsigned int from, unsigned int count)
{
    if (block.hasWarp && block.end - block.start == block.count - 1.0)
        block.end = block.start + count - 1.0;
    block.from = from;
    block.count = count;
}

} // namespace

std::string NaiveTimeline::Block::text() const
{
    std::ostringstream out;
    out << (isTransition ? "T" : placesScene ? "S" : "-") << objectId << "[" << from << ".." << to() << "]";
    if (hasWarp)
        out << "(" << start << ".." << end << ")";
    if (isTransition)
        out << "(" << framesBeforeCut << ")";
    return out.str();
}

bool NaiveTimeline::insertBlock(const Block &block)
{
    if (block.from == 0 || block.count == 0 || (long long)(block.from) + block.count - 1 > lastOfAll)
        return false;
    if (!isFreeFor(block, -1))
        return false;
    blocks.push_back(block);
    sort();
    return true;
}

bool NaiveTimeline::removeBlock(const AT_FrameBlockKey &key)
{
    const int place = of(key);
    if (place < 0 || key.isTransition || touchesTransition(blocks[std::size_t(place)]))
        return false;
    blocks.erase(blocks.begin() + place);
    return true;
}

bool NaiveTimeline::setBlockRange(const AT_FrameBlockKey &key, unsigned int from, unsigned int count)
{
    const int place = of(key);
    if (place < 0 || key.isTransition || touchesTransition(blocks[std::size_t(place)]))
        return false;
    Block moved = blocks[std::size_t(place)];
    resize(moved, from, count);
    if (from == 0 || count == 0 || (long long)(from) + count - 1 > lastOfAll || !isFreeFor(moved, place))
        return false;
    for (const Block &other : blocks) { // nobody is passed
        if ((other.from < key.fromFrame) != (other.from < from) && other.from != key.fromFrame)
            return false;
    }
    blocks[std::size_t(place)] = moved;
    sort();
    return true;
}

bool NaiveTimeline::insertTransition(unsigned int cut, unsigned int before, unsigned int after, qint64 id)
{
    Block *first = nullptr;
    Block *second = nullptr;
    for (Block &block : blocks) {
        if (block.placesScene && block.to() + 1 == cut)
            first = &block;
        if (block.placesScene && block.from == cut)
            second = &block;
    }
    if (!first || !second || before + after == 0)
        return false;
    unsigned int ownOfFirst = 0;
    unsigned int ownOfSecond = 0;
    for (unsigned int frame = first->from; frame < cut; ++frame)
        ownOfFirst += !isUnderTransition(frame);
    for (unsigned int frame = cut; frame <= second->to(); ++frame)
        ownOfSecond += !isUnderTransition(frame);
    if (before >= ownOfFirst || after >= ownOfSecond)
        return false;
    resize(*first, first->from, first->count + after);
    resize(*second, second->from - before, second->count + before);
    Block transition;
    transition.from = cut - before;
    transition.count = before + after;
    transition.isTransition = true;
    transition.objectId = id;
    transition.framesBeforeCut = before;
    blocks.push_back(transition);
    sort();
    return true;
}

bool NaiveTimeline::removeTransition(const AT_FrameBlockKey &key)
{
    const int place = of(key);
    if (place < 0 || !key.isTransition)
        return false;
    const Block transition = blocks[std::size_t(place)];
    for (Block &block : blocks) {
        if (!block.isTransition && block.to() == transition.to() && block.from < transition.from)
            resize(block, block.from, block.count - (transition.count - transition.framesBeforeCut));
        else if (!block.isTransition && block.from == transition.from)
            resize(block, block.from + transition.framesBeforeCut, block.count - transition.framesBeforeCut);
    }
    blocks.erase(blocks.begin() + place);
    return true;
}

bool NaiveTimeline::moveBlocks(unsigned int fromFrame, int delta)
{
    NaiveTimeline result = *this;
    bool any = false;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (blocks[i].from < fromFrame)
            continue;
        any = true;
        const long long from = (long long)(blocks[i].from) + delta;
        if (from < 1 || from + blocks[i].count - 1 > lastOfAll)
            return false;
        result.blocks[i].from = static_cast<unsigned int>(from);
        for (const Block &stays : blocks) {
            if (stays.from < fromFrame && (stays.to() >= blocks[i].from || stays.to() >= from))
                return false;
        }
    }
    if (!any)
        return false;
    *this = result;
    return true;
}

int NaiveTimeline::at(unsigned int frame) const
{
    int found = -1;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (blocks[i].covers(frame) && (found < 0 || blocks[i].isTransition))
            found = int(i);
    }
    return found;
}

int NaiveTimeline::after(unsigned int frame) const
{
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (blocks[i].from > frame)
            return int(i);
    }
    return -1;
}

int NaiveTimeline::before(unsigned int frame) const
{
    int found = -1;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (blocks[i].to() < frame)
            found = int(i);
    }
    return found;
}

int NaiveTimeline::of(qint64 objectId) const
{
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (blocks[i].objectId == objectId)
            return int(i);
    }
    return -1;
}

int NaiveTimeline::of(const AT_FrameBlockKey &key) const
{
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (blocks[i].key() == key)
            return int(i);
    }
    return -1;
}

unsigned int NaiveTimeline::countAt(double frame) const
{
    return static_cast<unsigned int>(
        std::count_if(blocks.begin(), blocks.end(), [frame](const Block &block) { return block.covers(frame); }));
}

unsigned int NaiveTimeline::lastFrame() const
{
    unsigned int last = 0;
    for (const Block &block : blocks)
        last = std::max(last, block.to());
    return last;
}

std::string NaiveTimeline::text() const
{
    std::string text;
    for (const Block &block : blocks)
        text += (text.empty() ? "" : " ") + block.text();
    return text;
}

void NaiveTimeline::sort()
{
    std::sort(blocks.begin(), blocks.end(), [](const Block &a, const Block &b) {
        return a.from != b.from ? a.from < b.from : a.isTransition && !b.isTransition;
    });
}

bool NaiveTimeline::isUnderTransition(unsigned int frame) const
{
    return std::any_of(blocks.begin(), blocks.end(),
        [frame](const Block &block) { return block.isTransition && block.covers(frame); });
}

bool NaiveTimeline::touchesTransition(const Block &block) const
{
    return std::any_of(blocks.begin(), blocks.end(), [&block](const Block &other) {
        return other.isTransition && other.from <= block.to() && block.from <= other.to();
    });
}

bool NaiveTimeline::isFreeFor(const Block &block, int butFor) const
{
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (int(i) != butFor && blocks[i].from <= block.to() && block.from <= blocks[i].to())
            return false;
    }
    return true;
}

std::string textOf(const TUSeqTimedValue &timedValue)
{
    NaiveTimeline naive;
    for (auto it = timedValue.beginBlock(); it != timedValue.endBlock(); ++it) {
        NaiveTimeline::Block block;
        block.from = it->fromFrame();
        block.count = it->key.frameCount;
        block.isTransition = it->key.isTransition;
        block.placesScene = it->seq() && it->seq()->sceneSeq();
        block.objectId = it->seq() ? it->seq()->objectId().value() : 0;
        if (const AT_TimeWarpSeq *warp = AT_TimeWarpSeq::toTimeWarp(it->seq())) {
            block.hasWarp = true;
            block.start = warp->start;
            block.end = warp->end;
        }
        if (const AT_TransitionSeq *transition = AT_TransitionSeq::toTransition(it->seq()))
            block.framesBeforeCut = transition->framesBeforeCut();
        naive.blocks.push_back(block);
    }
    return naive.text();
}

std::string problemsOf(const TUSeqTimedValue &timedValue)
{
    std::ostringstream problems;
    const std::vector<AT_FrameBlock> blocks(timedValue.beginBlock(), timedValue.endBlock());
    std::set<qint64> ids;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const AT_FrameBlock &block = blocks[i];
        const auto tell = [&](const char *what) { problems << "block " << i << ": " << what << "; "; };
        if (!block.isValid() || block.fromFrame() < 1 || block.toFrame() > TUSeqTimedValue::maxFrame)
            tell("out of range");
        if (block.key.isTransition != AT_TransitionSeq::isTransition(block.seq()))
            tell("key and sequence disagree about the transition");
        if (block.seq() && block.seq()->timedValue() != &timedValue)
            tell("its sequence does not know its timed value");
        if (block.seq() && !ids.insert(block.seq()->objectId().value()).second)
            tell("its object stands twice");
        if (i > 0 && blocks[i - 1].fromFrame() > block.fromFrame())
            tell("not in order");
        if (block.key.isTransition) {
            if (i == 0 || i + 1 == blocks.size()) {
                tell("transition without two neighbours");
                continue;
            }
            const AT_FrameBlock &first = blocks[i - 1];
            const AT_FrameBlock &second = blocks[i + 1];
            if (first.toFrame() != block.toFrame() || second.fromFrame() != block.fromFrame())
                tell("transition does not lie over what its neighbours share");
            if (!first.seq() || !first.seq()->sceneSeq() || !second.seq() || !second.seq()->sceneSeq())
                tell("transition beside what places no scene");
        } else if (i > 0 && !blocks[i - 1].key.isTransition && blocks[i - 1].toFrame() >= block.fromFrame()) {
            tell("overlaps the one before");
        }
        for (std::size_t j = i + 1; j < blocks.size(); ++j) {
            const bool overlap = block.toFrame() >= blocks[j].fromFrame();
            if (overlap && block.key.isTransition && blocks[j].key.isTransition)
                tell("transitions overlap");
            if (!block.key.isTransition && !blocks[j].key.isTransition && block.key == blocks[j].key)
                tell("same range as another");
        }
        if (!block.key.isTransition) {
            bool ownFrame = block.key.frameCount > 1000; // far more than any transition of these tests
            for (unsigned int frame = block.fromFrame(); !ownFrame && frame <= block.toFrame(); ++frame)
                ownFrame = timedValue.blockCountAt(frame) == 1;
            if (!ownFrame)
                tell("no frame of its own");
        }
    }
    return problems.str();
}
