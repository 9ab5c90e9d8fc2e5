#include "support/TimelineOracle.h"

namespace
{

using Panel = TimelineOracle::Panel;
using Shot = TimelineOracle::Shot;
using Trans = TimelineOracle::Trans;

Panel firstObject(const TimelineOracle &oracle, const Panel &)
{
    return oracle.firstPanel();
}

Shot firstObject(const TimelineOracle &oracle, const Shot &)
{
    return oracle.firstShot();
}

Panel lastObject(const TimelineOracle &oracle, const Panel &)
{
    return oracle.lastPanel();
}

Shot lastObject(const TimelineOracle &oracle, const Shot &)
{
    return oracle.lastShot();
}

} // namespace

TimelineOracle::Shot TimelineOracle::firstShot() const
{
    return shotAt(1, Priority::Backward, true, true);
}

TimelineOracle::Shot TimelineOracle::lastShot() const
{
    return shotAt(lastCoveredFrame(), Priority::Forward, true, true);
}

TimelineOracle::Shot TimelineOracle::next(const Shot &shot) const
{
    if (shot.block == nowhere)
        return {};
    for (std::size_t i = shot.block + 1; i < m_blocks.size(); ++i) {
        if (m_blocks[i].placesScene)
            return {true, m_blocks[i].sceneLives ? i : nowhere};
    }
    return {};
}

TimelineOracle::Shot TimelineOracle::prev(const Shot &shot) const
{
    if (shot.block == nowhere)
        return {};
    for (std::size_t i = shot.block; i > 0; --i) {
        if (m_blocks[i - 1].placesScene)
            return {true, m_blocks[i - 1].sceneLives ? i - 1 : nowhere};
    }
    return {};
}

TimelineOracle::Panel TimelineOracle::firstPanel() const
{
    return panelIn(firstShot(), 1, true, true);
}

TimelineOracle::Panel TimelineOracle::lastPanel() const
{
    const Shot last = lastShot();
    return last.block == nowhere ? Panel{} : panelIn(last, at(last).frames(), true, false);
}

TimelineOracle::Panel TimelineOracle::firstInShot(const Panel &panel) const
{
    return panelIn(shotOf(panel), 1, true, true);
}

TimelineOracle::Panel TimelineOracle::lastInShot(const Panel &panel) const
{
    return panel.isFound ? panelIn(shotOf(panel), m_blocks[panel.shot].frames(), true, false) : Panel{};
}

TimelineOracle::Panel TimelineOracle::next(const Panel &panel) const
{
    if (!panel.isFound)
        return {};
    const Shot shot = shotOf(panel);
    if (lastFrame(panel) < lastFrame(shot))
        return panelIn(shot, lastFrame(panel) - firstFrame(shot) + 2, true, true);
    return panelIn(next(shot), 1, true, true);
}

TimelineOracle::Panel TimelineOracle::prev(const Panel &panel) const
{
    if (!panel.isFound)
        return {};
    const Shot shot = shotOf(panel);
    if (firstFrame(panel) > firstFrame(shot))
        return panelIn(shot, firstFrame(panel) - firstFrame(shot), true, false);
    const Shot earlier = prev(shot);
    return earlier.block == nowhere ? Panel{} : panelIn(earlier, at(earlier).frames(), true, true);
}

TimelineOracle::Trans TimelineOracle::transFrom(std::size_t block, bool backward) const
{
    while (block < m_blocks.size() && !m_blocks[block].isTransition)
        block = backward ? block - 1 : block + 1; // below 0 is past the end
    return block < m_blocks.size() ? Trans{true, block} : Trans{};
}

TimelineOracle::Trans TimelineOracle::firstTrans() const
{
    return transFrom(0, /*backward*/ false);
}

TimelineOracle::Trans TimelineOracle::lastTrans() const
{
    return transFrom(m_blocks.size() - 1, /*backward*/ true);
}

TimelineOracle::Trans TimelineOracle::next(const Trans &trans) const
{
    return trans.isFound ? transFrom(trans.block + 1, /*backward*/ false) : Trans{};
}

TimelineOracle::Trans TimelineOracle::prev(const Trans &trans) const
{
    return trans.isFound ? transFrom(trans.block - 1, /*backward*/ true) : Trans{};
}

std::vector<TimelineOracle::Shot> TimelineOracle::shots() const
{
    std::vector<Shot> walked;
    for (Shot shot = firstShot(); shot.isFound; shot = next(shot))
        walked.push_back(shot);
    return walked;
}

std::vector<TimelineOracle::Panel> TimelineOracle::panels() const
{
    std::vector<Panel> walked;
    for (Panel panel = firstPanel(); panel.isFound; panel = next(panel))
        walked.push_back(panel);
    return walked;
}

std::vector<TimelineOracle::Trans> TimelineOracle::transitions() const
{
    std::vector<Trans> walked;
    for (Trans trans = firstTrans(); trans.isFound; trans = next(trans))
        walked.push_back(trans);
    return walked;
}

std::vector<TimelineOracle::Panel> TimelineOracle::panelsIn(const Shot &shot) const
{
    std::vector<Panel> walked;
    if (shot.block == nowhere)
        return walked;
    const Panel end = next(panelIn(shot, at(shot).frames(), true, true));
    for (Panel panel = panelIn(shot, 1, true, true); panel.isFound && !(panel == end); panel = next(panel))
        walked.push_back(panel);
    return walked;
}

std::optional<std::vector<long long>> TimelineOracle::panelIdsBetween(
    const Panel &a, const Panel &b, bool inclusive) const
{
    std::vector<long long> ids;
    if (!a.isFound || !b.isFound || (a == b && !inclusive))
        return ids;
    const Panel end = inclusive ? next(b) : b;
    Panel panel = inclusive ? a : next(a);
    for (; !(panel == end); panel = next(panel)) {
        if (!panel.isFound)
            return std::nullopt;
        ids.push_back(idOf(panel));
    }
    return ids;
}

std::optional<std::vector<long long>> TimelineOracle::panelIdsIn(const Shot &shot) const
{
    if (shot.block == nowhere)
        return std::vector<long long>();
    return panelIdsBetween(panelIn(shot, 1, true, true), panelIn(shot, at(shot).frames(), true, true), true);
}

template <typename Object>
void OracleTransWalk<Object>::stepForward()
{
    if (trans.isFound) {
        if (transIsAfter)
            current = oracle->next(current);
        trans = {};
        return;
    }
    transIsAfter = true;
    if (!oracle->isFollowedByTrans(current, &trans))
        current = oracle->next(current);
}

template <typename Object>
void OracleTransWalk<Object>::stepBackward()
{
    if (trans.isFound) {
        if (!transIsAfter)
            current = oracle->prev(current);
        trans = {};
        return;
    }
    transIsAfter = false;
    const Object earlier = oracle->prev(current);
    if (!oracle->isFollowedByTrans(earlier, &trans))
        current = earlier;
}

template <typename Object>
void OracleTransWalk<Object>::toFirst()
{
    const Trans first = oracle->firstTrans();
    current = firstObject(*oracle, current);
    trans = {};
    if (oracle->firstFrame(first) <= oracle->firstFrame(current)) {
        trans = first;
        transIsAfter = false;
    }
}

template <typename Object>
void OracleTransWalk<Object>::toLast()
{
    const Trans last = oracle->lastTrans();
    current = lastObject(*oracle, current);
    trans = {};
    if (oracle->lastFrame(last) >= oracle->lastFrame(current)) {
        trans = last;
        transIsAfter = true;
    }
}

template <typename Object>
long long OracleTransWalk<Object>::id() const
{
    return trans.isFound ? oracle->idOf(trans) : oracle->idOf(current);
}

template struct OracleTransWalk<TimelineOracle::Panel>;
template struct OracleTransWalk<TimelineOracle::Shot>;

OracleTransWalk<TimelineOracle::Panel> walkAtTransition(
    const TimelineOracle &oracle, const TimelineOracle::Trans &trans)
{
    OracleTransWalk<Panel> walk{&oracle, oracle.firstPanel(), trans, true};
    for (; walk.current.isFound; walk.current = oracle.next(walk.current)) {
        if (oracle.lastFrame(walk.current) == oracle.lastFrame(trans))
            return walk;
        if (oracle.firstFrame(walk.current) == oracle.firstFrame(trans)) {
            walk.transIsAfter = false;
            return walk;
        }
    }
    return walk;
}
