#include "support/RandomTimeline.h"

namespace
{

using Random = std::mt19937;

unsigned int from(unsigned int least, unsigned int most, Random &random)
{
    return least + static_cast<unsigned int>(random() % (most - least + 1));
}

bool oneIn(unsigned int chances, Random &random)
{
    return random() % chances == 0;
}

PanelText randomPanel(Random &random)
{
    PanelText panel;
    panel.frames = from(1, 5, random);
    panel.isGap = oneIn(5, random);
    if (panel.isGap)
        return panel;
    if (oneIn(25, random))
        panel.holds = oneIn(2, random) ? Holds::Nothing : Holds::GoneScene;
    if (oneIn(8, random))
        panel.warp.kind = WarpText::None;
    else if (oneIn(8, random))
        panel.warp = {WarpText::Given, double(from(1, 4, random)), double(from(4, 9, random))};
    if (oneIn(3, random)) {
        panel.name = std::string(1, char('p' + random() % 3));
        panel.locked = oneIn(2, random);
    }
    return panel;
}

ElementText randomShot(Random &random)
{
    ElementText shot;
    shot.name = std::string(1, char('A' + random() % 6));
    for (unsigned int i = from(1, 4, random); i > 0; --i)
        shot.panels.push_back(randomPanel(random));
    const unsigned int length = shot.length();
    if (oneIn(6, random)) {
        const double start = from(1, 4, random) + (oneIn(4, random) ? 0.5 : 0.0);
        shot.warp = {WarpText::Given, start, start + length - from(1, length, random)};
        if (oneIn(3, random))
            shot.frames = from(1, length + 3, random);
    } else if (oneIn(10, random)) {
        shot.warp.kind = WarpText::None;
    } else if (oneIn(6, random)) {
        shot.frames = from(1, length + 3, random);
    }
    if (oneIn(20, random)) {
        shot.frames = length;
        shot.panels.clear();
        shot.holds = oneIn(2, random) ? Holds::GoneScene : oneIn(2, random) ? Holds::BareScene : Holds::Scene;
    }
    return shot;
}

bool isShot(const ElementText &element)
{
    return element.kind == ElementText::Shot && element.holds != Holds::Nothing
        && element.holds != Holds::OtherSequence;
}

unsigned int transitionFrames(const TimelineText &timeline, std::size_t at)
{
    if (at >= timeline.size() || timeline[at].kind != ElementText::Transition)
        return 0;
    return timeline[at].framesBeforeCut + timeline[at].framesAfterCut;
}

bool canStand(const TimelineText &timeline, std::size_t at)
{
    if (at == 0 || at + 1 >= timeline.size() || !isShot(timeline[at - 1]) || !isShot(timeline[at + 1]))
        return false;
    const unsigned int shared = transitionFrames(timeline, at);
    const unsigned int sharedBefore = at >= 2 ? transitionFrames(timeline, at - 2) : 0;
    const unsigned int sharedAfter = transitionFrames(timeline, at + 2);
    return shared > 0 && timeline[at - 1].length() > shared + sharedBefore
        && timeline[at + 1].length() > shared + sharedAfter;
}

/// Every timeline that is one step simpler.
std::vector<TimelineText> simpler(const TimelineText &timeline)
{
    std::vector<TimelineText> found;
    const auto add = [&found, &timeline](std::size_t at, ElementText element) {
        found.push_back(timeline);
        found.back()[at] = std::move(element);
    };
    for (std::size_t at = 0; at < timeline.size(); ++at) {
        found.push_back(timeline);
        found.back().erase(found.back().begin() + std::ptrdiff_t(at));
        const ElementText &element = timeline[at];
        if (element.kind == ElementText::Gap && element.frames > 1) {
            add(at, element);
            --found.back()[at].frames;
        }
        if (!isShot(element))
            continue;
        if (element.warp.kind != WarpText::ToLength || element.frames) {
            ElementText plain = element;
            plain.warp = {};
            plain.frames = 0;
            if (plain.length() > 0)
                add(at, std::move(plain));
        }
        for (std::size_t i = 0; i < element.panels.size() && element.panels.size() > 1; ++i) {
            add(at, element);
            found.back()[at].panels.erase(found.back()[at].panels.begin() + std::ptrdiff_t(i));
        }
        for (std::size_t i = 0; i < element.panels.size(); ++i) {
            const PanelText &panel = element.panels[i];
            PanelText plain;
            plain.frames = panel.frames;
            plain.isGap = panel.isGap;
            if (!panel.name.empty() || panel.holds != Holds::Scene || panel.warp.kind != WarpText::ToLength) {
                add(at, element);
                found.back()[at].panels[i] = plain;
            }
            if (panel.frames > 1) {
                add(at, element);
                --found.back()[at].panels[i].frames;
            }
        }
    }
    return found;
}

} // namespace

TimelineText randomTimeline(Random &random)
{
    TimelineText timeline;
    for (unsigned int i = from(0, 5, random); i > 0; --i) {
        if (oneIn(4, random)) {
            timeline.emplace_back();
            timeline.back().kind = ElementText::Gap;
            timeline.back().frames = from(1, 4, random);
        } else if (!timeline.empty() && oneIn(2, random)) {
            timeline.emplace_back();
            timeline.back().kind = ElementText::Transition;
            timeline.back().framesBeforeCut = from(0, 2, random);
            timeline.back().framesAfterCut = from(0, 2, random);
        }
        if (oneIn(25, random)) {
            timeline.emplace_back();
            timeline.back().holds = oneIn(2, random) ? Holds::Nothing : Holds::OtherSequence;
            timeline.back().frames = from(1, 3, random);
        } else {
            timeline.push_back(randomShot(random));
        }
    }
    return buildable(timeline);
}

TimelineText buildable(TimelineText timeline)
{
    for (std::size_t at = 0; at < timeline.size();) {
        if (timeline[at].kind == ElementText::Transition && !canStand(timeline, at))
            timeline.erase(timeline.begin() + std::ptrdiff_t(at));
        else
            ++at;
    }
    return timeline;
}

TimelineText shrink(TimelineText timeline, const std::function<bool(const TimelineText &)> &fails)
{
    for (bool smaller = true; smaller;) {
        smaller = false;
        for (TimelineText &candidate : simpler(timeline)) {
            candidate = buildable(std::move(candidate));
            if (!fails(candidate))
                continue;
            timeline = std::move(candidate);
            smaller = true;
            break;
        }
    }
    return timeline;
}
