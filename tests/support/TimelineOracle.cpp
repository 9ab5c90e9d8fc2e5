#include "support/TimelineOracle.h"

#include <cmath>
#include <cstdint>

namespace
{

constexpr std::size_t nowhere = TimelineOracle::nowhere;

/// Cut toward zero, low 32 bits; 0 for what no 64-bit number holds.
unsigned int cutToFrame(double position)
{
    if (!(std::fabs(position) < 9.2e18))
        return 0;
    return static_cast<unsigned int>(static_cast<std::uint64_t>(static_cast<std::int64_t>(position)));
}

unsigned int countAt(const PlainTimeline &blocks, unsigned int frame)
{
    unsigned int count = 0;
    for (const PlainBlock &block : blocks)
        count += block.covers(frame) ? 1 : 0;
    return count;
}

/// The block over a frame, a transition before the shots that it joins.
std::size_t blockAt(const PlainTimeline &blocks, unsigned int frame)
{
    std::size_t found = nowhere;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (blocks[i].covers(frame) && (found == nowhere || blocks[i].isTransition))
            found = i;
    }
    return found;
}

std::size_t firstBlockAfter(const PlainTimeline &blocks, unsigned int frame)
{
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (blocks[i].from > frame)
            return i;
    }
    return nowhere;
}

std::size_t lastBlockBefore(const PlainTimeline &blocks, unsigned int frame)
{
    for (std::size_t i = blocks.size(); i > 0; --i) {
        if (blocks[i - 1].to < frame)
            return i - 1;
    }
    return nowhere;
}

std::size_t after(const PlainTimeline &blocks, std::size_t block)
{
    return block == nowhere || block + 1 >= blocks.size() ? nowhere : block + 1;
}

std::size_t before(std::size_t block)
{
    return block == nowhere || block == 0 ? nowhere : block - 1;
}

} // namespace

long long TimelineOracle::idOf(const Shot &shot) const
{
    return shot.block == nowhere ? 0 : at(shot).id;
}

long long TimelineOracle::idOf(const Panel &panel) const
{
    return panel.isFound ? at(panel).id : 0;
}

long long TimelineOracle::idOf(const Trans &trans) const
{
    return trans.isFound ? m_blocks[trans.block].id : 0;
}

std::string TimelineOracle::nameOf(const Shot &shot) const
{
    return shot.block == nowhere ? std::string() : at(shot).shotName;
}

std::string TimelineOracle::nameOf(const Panel &panel) const
{
    return panel.isFound ? at(panel).panelName : std::string();
}

unsigned int TimelineOracle::firstFrame(const Shot &shot) const
{
    return shot.block == nowhere ? 0 : at(shot).from;
}

unsigned int TimelineOracle::lastFrame(const Shot &shot) const
{
    return shot.block == nowhere ? 0 : at(shot).to;
}

unsigned int TimelineOracle::firstFrame(const Panel &panel) const
{
    return panel.isFound ? m_blocks[panel.shot].from + at(panel).from - 1 : 0;
}

unsigned int TimelineOracle::lastFrame(const Panel &panel) const
{
    return panel.isFound ? m_blocks[panel.shot].from + at(panel).to - 1 : 0;
}

unsigned int TimelineOracle::firstFrame(const Trans &trans) const
{
    return trans.isFound ? m_blocks[trans.block].from : 0;
}

unsigned int TimelineOracle::lastFrame(const Trans &trans) const
{
    return trans.isFound ? m_blocks[trans.block].to : 0;
}

TimelineOracle::Shot TimelineOracle::shotOf(const Panel &panel) const
{
    return panel.isFound ? Shot{true, panel.shot} : Shot{};
}

unsigned int TimelineOracle::tvFrameOf(const Shot &shot, unsigned int shotFrame) const
{
    return shot.block == nowhere || !at(shot).hasWarp ? shotFrame : cutToFrame(shotFrame + at(shot).warpStart - 1.0);
}

TimelineOracle::Shot TimelineOracle::shotAt(unsigned int frame, Priority priority, bool nearest, bool forward) const
{
    std::size_t block = blockAt(m_blocks, frame);
    if (block == nowhere && nearest)
        block = forward ? firstBlockAfter(m_blocks, frame) : lastBlockBefore(m_blocks, frame);
    if (block == nowhere)
        return {};
    if (m_blocks[block].isTransition) {
        // A transition stands between its two shots.
        const std::size_t later = after(m_blocks, block);
        const std::size_t earlier = before(block);
        const bool wantsLater = priority == Priority::Forward;
        block = wantsLater ? later : earlier;
        if (block == nowhere)
            block = wantsLater ? earlier : later;
    }
    if (!m_blocks[block].placesScene || !m_blocks[block].sceneLives)
        return {};
    return {true, block};
}

TimelineOracle::Panel TimelineOracle::panelAt(unsigned int frame, Priority priority, bool nearest, bool forward) const
{
    const Shot shot = shotAt(frame, priority, nearest, forward);
    if (!shot.isFound)
        return {};
    const unsigned int inside = std::min(std::max(frame, firstFrame(shot)), lastFrame(shot));
    return panelIn(shot, inside - firstFrame(shot) + 1, nearest, forward);
}

TimelineOracle::Panel TimelineOracle::panelIn(
    const Shot &shot, unsigned int shotFrame, bool nearest, bool forward) const
{
    if (shot.block == nowhere || shotFrame > at(shot).frames() || !at(shot).sceneLives)
        return {};
    const PlainTimeline &track = at(shot).track;
    const unsigned int tvFrame = tvFrameOf(shot, shotFrame);
    std::size_t block = blockAt(track, tvFrame);
    if (block == nowhere && nearest)
        block = forward ? firstBlockAfter(track, tvFrame) : lastBlockBefore(track, tvFrame);
    if (block == nowhere || !track[block].placesScene || !track[block].sceneLives)
        return {};
    return {true, shot.block, block};
}

TimelineOracle::Panel TimelineOracle::counterpartIn(const Shot &shot, const Panel &panel, bool lockedOnly) const
{
    if (!panel.isFound)
        return {};
    const std::vector<Panel> panels = panelsIn(shot);
    for (const Panel &candidate : panels) {
        if (candidate == panel)
            return candidate;
    }
    if (lockedOnly && !at(panel).panelNameLocked)
        return {};
    for (const Panel &candidate : panels) {
        if (nameOf(candidate) == nameOf(panel) && (!lockedOnly || at(candidate).panelNameLocked))
            return candidate;
    }
    return {};
}

TimelineOracle::Trans TimelineOracle::transAt(unsigned int frame) const
{
    const std::size_t block = blockAt(m_blocks, frame);
    if (block == nowhere || !m_blocks[block].isTransition)
        return {};
    return {true, block};
}

TimelineOracle::Space TimelineOracle::spaceAt(unsigned int frame) const
{
    const auto gapIn = [](const PlainTimeline &blocks, unsigned int position) {
        const std::size_t earlier = lastBlockBefore(blocks, position);
        const std::size_t later = firstBlockAfter(blocks, position);
        return Space{earlier == nowhere ? 1 : blocks[earlier].to + 1,
            later == nowhere ? 0xFFFFFFFFu : blocks[later].from - 1, Shot{}};
    };
    if (m_blocks.empty())
        return {};
    if (countAt(m_blocks, frame) == 0)
        return gapIn(m_blocks, frame);

    const Shot shot = shotAt(frame, Priority::Forward, false, true);
    if (!shot.isFound || !at(shot).hasTrack)
        return {};
    const unsigned int relative = frame - at(shot).from + 1;
    const unsigned int tvFrame = tvFrameOf(shot, relative);
    if (relative > at(shot).frames() || countAt(at(shot).track, tvFrame) != 0)
        return {};
    // The ends go through the shot's own place; an end without a block wraps around on the way.
    const Space inShot = gapIn(at(shot).track, tvFrame);
    return {cutToFrame(double(at(shot).from) + inShot.first - 1.0),
        cutToFrame(double(at(shot).from) + inShot.last - 1.0), shot};
}

TimelineOracle::Shot TimelineOracle::shotById(long long id) const
{
    for (const Shot &shot : shots()) {
        if (idOf(shot) == id)
            return shot;
    }
    return {};
}

TimelineOracle::Panel TimelineOracle::panelById(long long id) const
{
    for (const Panel &panel : panels()) {
        if (idOf(panel) == id)
            return panel;
    }
    return {};
}

TimelineOracle::Trans TimelineOracle::transById(long long id) const
{
    for (const Trans &trans : transitions()) {
        if (idOf(trans) == id)
            return trans;
    }
    return {};
}

TimelineOracle::Shot TimelineOracle::shotByName(const std::string &name) const
{
    for (const Shot &shot : shots()) {
        if (nameOf(shot) == name)
            return shot;
    }
    return {};
}

bool TimelineOracle::isFollowedByTrans(const Panel &panel, Trans *trans) const
{
    if (trans)
        *trans = {};
    if (!panel.isFound || lastFrame(panel) != lastFrame(shotOf(panel)))
        return false;
    const std::size_t next = after(m_blocks, panel.shot);
    if (next == nowhere || !m_blocks[next].isTransition)
        return false;
    if (trans)
        *trans = {true, next};
    return true;
}

bool TimelineOracle::isPrecededByTrans(const Panel &panel, Trans *trans) const
{
    if (trans)
        *trans = {};
    if (!panel.isFound || firstFrame(panel) != firstFrame(shotOf(panel)))
        return false;
    const std::size_t previous = before(panel.shot);
    if (previous == nowhere || !m_blocks[previous].isTransition)
        return false;
    if (trans)
        *trans = transAt(firstFrame(panel));
    return true;
}

bool TimelineOracle::isFollowedByTrans(const Shot &shot, Trans *trans) const
{
    return isFollowedByTrans(panelIn(shot, shot.block == nowhere ? 0 : at(shot).frames(), true, true), trans);
}

bool TimelineOracle::isPrecededByTrans(const Shot &shot, Trans *trans) const
{
    return isPrecededByTrans(panelIn(shot, 1, true, true), trans);
}

bool TimelineOracle::neighborIsOfSameScene(const Panel &first, const Panel &second) const
{
    const Panel earlier = first.isFound ? prev(first) : Panel{};
    if (!earlier.isFound)
        return false;
    if (earlier.shot == first.shot)
        return true;
    const Panel later = second.isFound ? next(second) : Panel{};
    return later.isFound && later.shot == second.shot;
}

unsigned int TimelineOracle::panelCountOf(const Shot &shot) const
{
    if (shot.block == nowhere || !at(shot).hasWarp || !at(shot).hasTrack)
        return 0;
    const long long start = static_cast<long long>(at(shot).warpStart);
    const long long end = static_cast<long long>(at(shot).warpEnd);
    const PlainTimeline &track = at(shot).track;
    if (start < 0)
        return 0;
    unsigned int count = 0;
    for (std::size_t i = blockAt(track, static_cast<unsigned int>(start)); i != nowhere && track[i].to <= end;
         i = after(track, i))
        ++count;
    return count;
}
