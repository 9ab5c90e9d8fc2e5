#include "property/TimelineQuestions.h"

#include <functional>
#include <list>
#include <optional>
#include <stdexcept>

using namespace Plotka;

namespace
{

using PanelWalk = OracleTransWalk<TimelineOracle::Panel>;
using ShotWalk = OracleTransWalk<TimelineOracle::Shot>;

template <typename List>
std::string toText(const List &ids)
{
    std::string text;
    for (const auto &id : ids)
        text += ' ' + std::to_string(id);
    return text;
}

std::string idsOf(const std::function<std::list<SC_Id>()> &ask)
{
    std::vector<long long> ids;
    try {
        for (const SC_Id &id : ask())
            ids.push_back(id.value());
    } catch (const std::length_error &error) {
        return error.what();
    }
    return toText(ids);
}

std::string expectedIds(const std::optional<std::vector<long long>> &ids)
{
    return ids ? toText(*ids) : "list too long";
}

} // namespace

void TimelineQuestions::askShot(const KnownShot &shot)
{
    const auto about = [&](const char *query) {
        return [&, query] { return query + (" of shot " + std::to_string(m_oracle.idOf(shot.plain))); };
    };
    same(asked().next(shot.handle).id().value(), m_oracle.idOf(m_oracle.next(shot.plain)), about("next"));
    same(asked().prev(shot.handle).id().value(), m_oracle.idOf(m_oracle.prev(shot.plain)), about("prev"));
    same(shot.handle.firstFrame(), m_oracle.firstFrame(shot.plain), about("firstFrame"));
    same(shot.handle.lastFrame(), m_oracle.lastFrame(shot.plain), about("lastFrame"));
    same(asked().panelCount(shot.handle), m_oracle.panelCountOf(shot.plain), about("panelCount"));
    // Past the shot and far past it too.
    const unsigned int frames = m_oracle.blocks()[shot.plain.block].frames();
    for (const unsigned int frame : {0u, 1u, frames, frames + 1, 0xFFFFFFFFu}) {
        for (const bool nearest : {false, true}) {
            for (const bool forward : {false, true})
                same(asked().getPanelIn(shot.handle, frame, nearest, forward).id().value(),
                    m_oracle.idOf(m_oracle.panelIn(shot.plain, frame, nearest, forward)), about("getPanelIn edge"));
        }
    }
}

void TimelineQuestions::askPanel(const KnownPanel &panel)
{
    const auto about = [&](const char *query) {
        return [&, query] { return query + (" of panel " + std::to_string(m_oracle.idOf(panel.plain))); };
    };
    same(asked().next(panel.handle).id().value(), m_oracle.idOf(m_oracle.next(panel.plain)), about("next"));
    same(asked().prev(panel.handle).id().value(), m_oracle.idOf(m_oracle.prev(panel.plain)), about("prev"));
    same(asked().firstInShot(panel.handle).id().value(), m_oracle.idOf(m_oracle.firstInShot(panel.plain)),
        about("firstInShot"));
    same(asked().lastInShot(panel.handle).id().value(), m_oracle.idOf(m_oracle.lastInShot(panel.plain)),
        about("lastInShot"));
}

void TimelineQuestions::askWalks()
{
    gatherHandles();
    same(asked().first(Shot_t()).id().value(), m_oracle.idOf(m_oracle.firstShot()), [] { return "first shot"; });
    same(asked().last(Shot_t()).id().value(), m_oracle.idOf(m_oracle.lastShot()), [] { return "last shot"; });
    same(asked().first(Panel_t()).id().value(), m_oracle.idOf(m_oracle.firstPanel()), [] { return "first panel"; });
    same(asked().last(Panel_t()).id().value(), m_oracle.idOf(m_oracle.lastPanel()), [] { return "last panel"; });
    for (const KnownShot &shot : m_shots)
        askShot(shot);
    for (const KnownPanel &panel : m_panels)
        askPanel(panel);

    std::size_t place = 0;
    const std::vector<TimelineOracle::Panel> panels = m_oracle.panels();
    for (auto at = asked().beginPanel(); at != asked().endPanel() && place <= panels.size(); ++at, ++place)
        same((*at).id().value(), place < panels.size() ? m_oracle.idOf(panels[place]) : 0,
            [&] { return "panel " + std::to_string(place) + " of the walk"; });
    same(static_cast<long long>(place), static_cast<long long>(panels.size()),
        [] { return "length of the walk over panels"; });

    const std::vector<TimelineOracle::Trans> transitions = m_oracle.transitions();
    place = 0;
    for (auto at = asked().beginTrans(); at != asked().endTrans() && place < transitions.size(); ++at, ++place)
        same((*at).id().value(), m_oracle.idOf(transitions[place]), [] { return "walk over transitions"; });
    same(static_cast<long long>(place), static_cast<long long>(transitions.size()),
        [] { return "length of the walk over transitions"; });
    for (auto at = asked().rbeginTrans(); at != asked().rendTrans() && place > 0; ++at, --place)
        same((*at).id().value(), m_oracle.idOf(transitions[place - 1]), [] { return "walk back over transitions"; });
    same(static_cast<long long>(place), 0, [] { return "rest of the walk back over transitions"; });
}

template <typename Known>
void TimelineQuestions::askNeighboursOf(const Known &object, const std::string &name)
{
    const auto about = [&name](const char *query) { return [&name, query] { return query + name; }; };
    const TimelineOracle::Space spaceAfter = m_oracle.spaceAfter(object.plain);
    const TimelineOracle::Space spaceBefore = m_oracle.spaceBefore(object.plain);
    Space_t space;
    same(asked().isFollowedBySpace(object.handle, &space), spaceAfter.isFound(), about("isFollowedBySpace"));
    sameSpace(space, spaceAfter, "space after" + name);
    same(asked().isPrecededBySpace(object.handle, &space), spaceBefore.isFound(), about("isPrecededBySpace"));
    sameSpace(space, spaceBefore, "space before" + name);

    Trans_t trans;
    TimelineOracle::Trans plain;
    const bool followed = m_oracle.isFollowedByTrans(object.plain, &plain);
    same(asked().isFollowedByTrans(object.handle, &trans), followed, about("isFollowedByTrans"));
    same(asked().isFollowedByTrans(object.handle), followed, about("isFollowedByTrans without out"));
    same(trans.id().value(), m_oracle.idOf(plain), about("transition after"));
    const bool preceded = m_oracle.isPrecededByTrans(object.plain, &plain);
    same(asked().isPrecededByTrans(object.handle, &trans), preceded, about("isPrecededByTrans"));
    same(asked().isPrecededByTrans(object.handle), preceded, about("isPrecededByTrans without out"));
    same(trans.id().value(), m_oracle.idOf(plain), about("transition before"));
}

void TimelineQuestions::askNeighbours()
{
    gatherHandles();
    for (const KnownShot &shot : m_shots)
        askNeighboursOf(shot, " of shot " + std::to_string(m_oracle.idOf(shot.plain)));
    for (const KnownPanel &panel : m_panels)
        askNeighboursOf(panel, " of panel " + std::to_string(m_oracle.idOf(panel.plain)));
}

void TimelineQuestions::askPanelLists()
{
    gatherHandles();
    const auto sameText = [this](const std::string &actual, const std::string &expected, const std::string &question) {
        if (actual != expected && m_disagreement.empty())
            m_disagreement = question + " is" + actual + ", expected" + expected;
    };
    for (const KnownShot &shot : m_shots)
        sameText(idsOf([&] { return asked().panelsIdIn(shot.handle); }), expectedIds(m_oracle.panelIdsIn(shot.plain)),
            "panelsIdIn(" + std::to_string(m_oracle.idOf(shot.plain)) + ")");
    for (std::size_t i = 0; i < m_panels.size(); ++i) {
        // The neighbours of each, both ways, and one far away.
        for (const std::size_t j : {i, i + 1, i + 2, i - 1, m_panels.size() - 1 - i}) {
            if (j >= m_panels.size())
                continue;
            const KnownPanel &a = m_panels[i];
            const KnownPanel &b = m_panels[j];
            for (const bool inclusive : {false, true})
                sameText(idsOf([&] { return asked().panelsIdBetween(a.handle, b.handle, inclusive); }),
                    expectedIds(m_oracle.panelIdsBetween(a.plain, b.plain, inclusive)),
                    "panelsIdBetween(" + std::to_string(m_oracle.idOf(a.plain)) + ", "
                        + std::to_string(m_oracle.idOf(b.plain)) + (inclusive ? ", inclusive)" : ", exclusive)"));
            // Asked by id, and so only of panels that a walk finds.
            if (!m_oracle.panelById(m_oracle.idOf(a.plain)).isFound
                || !m_oracle.panelById(m_oracle.idOf(b.plain)).isFound)
                continue;
            same(asked().neighborIsOfSameScene(a.handle.id(), b.handle.id()),
                m_oracle.neighborIsOfSameScene(a.plain, b.plain), [&] {
                    return "neighborIsOfSameScene(" + std::to_string(m_oracle.idOf(a.plain)) + ", "
                        + std::to_string(m_oracle.idOf(b.plain)) + ")";
                });
        }
        const KnownShot &shot = m_shots[i % m_shots.size()];
        for (const bool lockedOnly : {false, true})
            same(asked().getPanelIn(shot.handle, m_panels[i].handle, lockedOnly).id().value(),
                m_oracle.idOf(m_oracle.counterpartIn(shot.plain, m_panels[i].plain, lockedOnly)), [&] {
                    return "getPanelIn(shot " + std::to_string(m_oracle.idOf(shot.plain)) + ", panel "
                        + std::to_string(m_oracle.idOf(m_panels[i].plain)) + (lockedOnly ? ", locked)" : ", any)");
                });
    }
}

void TimelineQuestions::askTransitionWalks()
{
    const auto walk = [this](auto at, auto plain, bool forward, const char *what) {
        // Past the end too: a step there stays.
        const std::size_t steps = 2 * (m_oracle.panels().size() + m_oracle.blocks().size()) + 3;
        for (std::size_t step = 0; step < steps && m_disagreement.empty(); ++step) {
            same(idOf(at), plain.id(), [&] { return what + (" after " + std::to_string(step) + " steps"); });
            same(at.isTransitionAfter(), plain.transIsAfter,
                [&] { return what + (" side after " + std::to_string(step) + " steps"); });
            if (forward) {
                ++at;
                plain.stepForward();
            } else {
                --at;
                plain.stepBackward();
            }
        }
    };
    walk(
        asked().beginPanelTrans(), PanelWalk{&m_oracle, m_oracle.firstPanel()}, true, "walk by panels and transitions");
    walk(asked().beginShotTrans(), ShotWalk{&m_oracle, m_oracle.firstShot()}, true, "walk by shots and transitions");

    auto panel = asked().beginPanelTrans();
    auto shot = asked().beginShotTrans();
    PanelWalk plainPanel{&m_oracle, m_oracle.firstPanel()};
    ShotWalk plainShot{&m_oracle, m_oracle.firstShot()};
    panel.first();
    shot.first();
    plainPanel.toFirst();
    plainShot.toFirst();
    walk(panel, plainPanel, true, "walk from the first panel or transition");
    walk(shot, plainShot, true, "walk from the first shot or transition");
    panel.last();
    shot.last();
    plainPanel.toLast();
    plainShot.toLast();
    walk(panel, plainPanel, false, "walk back from the last panel or transition");
    walk(shot, plainShot, false, "walk back from the last shot or transition");

    for (unsigned int frame = 0; frame <= m_oracle.lastCoveredFrame() + 2; ++frame) {
        const TimelineOracle::Trans trans = m_oracle.transAt(frame);
        const auto plainAt = [&](bool nearest, bool forward) {
            return trans.isFound
                ? walkAtTransition(m_oracle, trans)
                : PanelWalk{&m_oracle, m_oracle.panelAt(frame, TimelineOracle::Priority::Backward, nearest, forward)};
        };
        const auto sameWalk = [&](const objTransIterator<Panel_t> &at, const PanelWalk &plain, const char *query) {
            const auto about = [&] { return query + ('(' + std::to_string(frame) + ')'); };
            same(idOf(at), plain.id(), about);
            same(at.current().id().value(), m_oracle.idOf(plain.current), about);
            same(at.isTransitionAfter(), plain.transIsAfter, about);
        };
        sameWalk(asked().panelTransAt(frame), plainAt(false, true), "panelTransAt");
        sameWalk(asked().panelTransAfter(frame), plainAt(true, true), "panelTransAfter");
        sameWalk(asked().panelTransBefore(frame), plainAt(true, false), "panelTransBefore");
    }
}
