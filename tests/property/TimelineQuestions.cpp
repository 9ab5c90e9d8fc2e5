#include "property/TimelineQuestions.h"

#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"

#include <algorithm>
#include <sstream>

using namespace Plotka;

namespace
{

using Priority = TimelineOracle::Priority;

constexpr PKC_PlotkaProject::ResolutionPriority priorities[] = {
    PKC_PlotkaProject::ResolveBackward, PKC_PlotkaProject::ResolveForward};

Priority plainPriority(PKC_PlotkaProject::ResolutionPriority priority)
{
    return priority == PKC_PlotkaProject::ResolveBackward ? Priority::Backward : Priority::Forward;
}

/// "getShotAt(12, Forward, nearest, backward)"
std::string frameQuestion(
    const char *query, unsigned int frame, PKC_PlotkaProject::ResolutionPriority priority, bool nearest, bool forward)
{
    std::ostringstream text;
    text << query << '(' << frame << ", " << (priority == PKC_PlotkaProject::ResolveBackward ? "Backward" : "Forward")
         << ", " << (nearest ? "nearest" : "exact") << ", " << (forward ? "forward" : "backward") << ')';
    return text.str();
}

} // namespace

PKC_PlotkaProject &TimelineQuestions::asked()
{
    if (m_memory == Memory::Dropped)
        m_project.invalidate();
    return m_project;
}

bool TimelineQuestions::sameSpace(
    const Space_t &actual, const TimelineOracle::Space &expected, const std::string &question)
{
    const auto about = [&](const char *part) { return [&question, part] { return question + part; }; };
    if (!same(actual.isValid(), expected.isFound(), about(" is a gap")) || !expected.isFound())
        return false;
    return same(actual.firstFrame(), expected.first, about(" first frame"))
        && same(actual.lastFrame(), expected.last, about(" last frame"))
        && same(actual.shot().id().value(), m_oracle.idOf(expected.shot), about(" shot"));
}

void TimelineQuestions::gatherHandles()
{
    if (m_gathered)
        return;
    m_gathered = true;
    for (std::size_t block = 0; block < m_oracle.blocks().size(); ++block) {
        const PlainBlock &plain = m_oracle.blocks()[block];
        if (!plain.placesScene || !plain.sceneLives)
            continue;
        const KnownShot shot{
            asked().getShotAt(plain.from, PKC_PlotkaProject::ResolveForward, false, true), {true, block}};
        same(shot.handle.id().value(), plain.id, [] { return "shot at its first frame"; });
        m_shots.push_back(shot);
        // With a time warp even frame 0 can show a panel.
        for (unsigned int frame = 0; frame <= plain.frames(); ++frame) {
            const TimelineOracle::Panel panel = m_oracle.panelIn(shot.plain, frame, false, true);
            if (!panel.isFound || m_panelSeenByFrame[m_oracle.idOf(panel)])
                continue;
            m_panelSeenByFrame[m_oracle.idOf(panel)] = true;
            m_panels.push_back({asked().getPanelIn(shot.handle, frame, false, true), panel});
            same(m_panels.back().handle.id().value(), m_oracle.idOf(panel),
                [&] { return "getPanelIn(shot, " + std::to_string(frame) + ")"; });
        }
    }
    for (const TimelineOracle::Panel &panel : m_oracle.panels()) {
        if (m_panelSeenByFrame.count(m_oracle.idOf(panel)))
            continue;
        const Panel_t handle = asked().getPanelByID(SC_Id(m_oracle.idOf(panel)));
        same(handle.id().value(), m_oracle.idOf(panel), [] { return "getPanelByID of a panel that a walk reaches"; });
        m_panels.push_back({handle, panel});
    }
}

void TimelineQuestions::askFrame(unsigned int frame)
{
    for (const auto priority : priorities) {
        for (const bool nearest : {false, true}) {
            for (const bool forward : {false, true}) {
                const auto describe = [=](const char *query) {
                    return [=] { return frameQuestion(query, frame, priority, nearest, forward); };
                };
                same(asked().getShotAt(frame, priority, nearest, forward).id().value(),
                    m_oracle.idOf(m_oracle.shotAt(frame, plainPriority(priority), nearest, forward)),
                    describe("getShotAt"));
                const Panel_t panel = asked().getPanelAt(frame, priority, nearest, forward);
                const TimelineOracle::Panel plain = m_oracle.panelAt(frame, plainPriority(priority), nearest, forward);
                same(panel.id().value(), m_oracle.idOf(plain), describe("getPanelAt"));
                same(panel.shot().id().value(), m_oracle.idOf(m_oracle.shotOf(plain)), describe("shot of getPanelAt"));
                same(panel.firstFrame(), m_oracle.firstFrame(plain), describe("first frame of getPanelAt"));
                same(panel.lastFrame(), m_oracle.lastFrame(plain), describe("last frame of getPanelAt"));
            }
        }
    }
    const auto at = [frame](const char *query) {
        return [query, frame] { return query + ('(' + std::to_string(frame) + ')'); };
    };
    same(asked().getTransAt(frame).id().value(), m_oracle.idOf(m_oracle.transAt(frame)), at("getTransAt"));
    sameSpace(asked().getSpaceAt(frame), m_oracle.spaceAt(frame), at("getSpaceAt")());
    same(asked().hasSpaceAt(frame), m_oracle.spaceAt(frame).isFound(), at("hasSpaceAt"));
}

void TimelineQuestions::askFrames(unsigned int furthest)
{
    for (unsigned int frame = 0; frame <= std::max(furthest, m_oracle.lastCoveredFrame()) + 3; ++frame)
        askFrame(frame);
    askFrame(0xFFFFFFFFu);
}

void TimelineQuestions::askIds(bool framesWereAsked)
{
    for (const PlainBlock &block : m_oracle.blocks()) {
        if (block.id == 0)
            continue;
        const auto about = [&](const char *query) {
            return [&, query] { return query + ('(' + std::to_string(block.id) + ')'); };
        };
        const long long trans = m_oracle.idOf(m_oracle.transById(block.id));
        same(asked().getTransByID(SC_Id(block.id)).id().value(), trans, about("getTransByID"));
        same(asked().isTransValid(SC_Id(block.id)), trans != 0, about("isTransValid"));
        // A shot is known by id when a walk comes to it, or once it was seen by frame.
        const bool shotWasSeen = framesWereAsked && block.placesScene && block.sceneLives;
        const long long shot = shotWasSeen ? block.id : m_oracle.idOf(m_oracle.shotById(block.id));
        same(asked().getShotByID(SC_Id(block.id)).id().value(), shot, about("getShotByID"));
        same(asked().isShotValid(SC_Id(block.id)), shot != 0, about("isShotValid"));
        for (const PlainBlock &inner : block.track) {
            if (inner.id == 0)
                continue;
            const bool panelWasSeen = framesWereAsked && m_panelSeenByFrame.count(inner.id);
            const long long panel = panelWasSeen ? inner.id : m_oracle.idOf(m_oracle.panelById(inner.id));
            const auto aboutPanel = [&] { return "getPanelByID(" + std::to_string(inner.id) + ")"; };
            same(asked().getPanelByID(SC_Id(inner.id)).id().value(), panel, aboutPanel);
            same(asked().isPanelValid(SC_Id(inner.id)), panel != 0, aboutPanel);
            same(asked().getPanelTransById(SC_Id(inner.id)).id().value(), panel, aboutPanel);
            same(idOf(asked().panelTransById(SC_Id(inner.id))), panel, aboutPanel);
        }
    }
    const SC_Id unknown(1000000);
    same(asked().getShotByID(unknown).isValid() || asked().getPanelByID(unknown).isValid()
            || asked().getTransByID(unknown).isValid(),
        false, [] { return "an id that nothing has"; });
}

void TimelineQuestions::askCountsAndPlaces()
{
    const std::vector<TimelineOracle::Shot> shots = m_oracle.shots();
    const std::vector<TimelineOracle::Panel> panels = m_oracle.panels();
    const std::vector<TimelineOracle::Trans> transitions = m_oracle.transitions();
    const bool someGone =
        std::any_of(shots.begin(), shots.end(), [](const auto &s) { return s.block == TimelineOracle::nowhere; });
    gatherHandles();
    if (!someGone)
        same(asked().shotCount(), (long long)(shots.size()), [] { return "shotCount"; });
    same(asked().panelCount(), (long long)(panels.size()), [] { return "panelCount"; });
    same(asked().transCount(), (long long)(transitions.size()), [] { return "transCount"; });
    same(asked().getNumOfFrames(), m_oracle.lastFrame(m_oracle.lastShot()), [] { return "getNumOfFrames"; });
    for (std::size_t i = 0; i <= shots.size(); ++i)
        same(asked().getShotByNdx(unsigned(i)).id().value(), i < shots.size() ? m_oracle.idOf(shots[i]) : 0,
            [i] { return "getShotByNdx(" + std::to_string(i) + ")"; });
    for (std::size_t i = 0; i <= panels.size(); ++i)
        same(asked().getPanelByNdx(unsigned(i)).id().value(), i < panels.size() ? m_oracle.idOf(panels[i]) : 0,
            [i] { return "getPanelByNdx(" + std::to_string(i) + ")"; });
    for (std::size_t i = 0; i <= transitions.size(); ++i)
        same(asked().getTransByNdx(unsigned(i)).id().value(),
            i < transitions.size() ? m_oracle.idOf(transitions[i]) : 0,
            [i] { return "getTransByNdx(" + std::to_string(i) + ")"; });

    const auto placeOf = [](const auto &list, const auto &object) {
        const auto found = std::find(list.begin(), list.end(), object);
        return found == list.end() ? PKC_PlotkaProject::invalidNdx : unsigned(found - list.begin());
    };
    for (const KnownShot &shot : m_shots) {
        same(asked().getShotNdx(shot.handle), placeOf(shots, shot.plain), [] { return "getShotNdx"; });
        const auto first = std::find_if(shots.begin(), shots.end(),
            [&](const auto &other) { return m_oracle.nameOf(other) == m_oracle.nameOf(shot.plain); });
        same(asked().getShotNdx(shot.handle.name()),
            first == shots.end() ? PKC_PlotkaProject::invalidNdx : unsigned(first - shots.begin()),
            [] { return "getShotNdx of a name"; });
        same(asked().getShotByName(shot.handle.name(), QString(), false).id().value(),
            m_oracle.idOf(m_oracle.shotByName(m_oracle.nameOf(shot.plain))), [] { return "getShotByName"; });
    }
    for (const KnownPanel &panel : m_panels) {
        same(asked().getPanelNdx(panel.handle, false), placeOf(panels, panel.plain), [] { return "getPanelNdx"; });
        same(asked().getPanelNdx(panel.handle, true),
            placeOf(m_oracle.panelsIn(m_oracle.shotOf(panel.plain)), panel.plain),
            [] { return "getPanelNdx in shot"; });
    }
}

void TimelineQuestions::askScenes()
{
    gatherHandles();
    for (const KnownShot &shot : m_shots) {
        const TUScene *const scene = shot.handle.symbol();
        const bool reached = m_oracle.shotById(m_oracle.idOf(shot.plain)).isFound;
        same(asked().sceneCommonToShot(scene->sceneCommon()).id().value(), reached ? m_oracle.idOf(shot.plain) : 0,
            [] { return "sceneCommonToShot"; });
        same(asked().sceneCommonToPanel(scene->sceneCommon()).id().value(), 0,
            [] { return "sceneCommonToPanel of a shot"; });
        for (const TUTimedValue *tv : scene->timedValues())
            same(asked().tvToShot(tv).id().value(), reached ? m_oracle.idOf(shot.plain) : 0, [] { return "tvToShot"; });
    }
    for (const KnownPanel &panel : m_panels) {
        const bool reached = m_oracle.panelById(m_oracle.idOf(panel.plain)).isFound;
        same(asked().sceneCommonToPanel(panel.handle.symbol()->sceneCommon()).id().value(),
            reached ? m_oracle.idOf(panel.plain) : 0, [] { return "sceneCommonToPanel"; });
    }
    const auto *const top = static_cast<const TUScene *>(m_project.project()->sceneAt(0));
    same(asked().tvToShot(top->timedValues().front()).isValid(), false, [] { return "tvToShot of the timeline"; });
}

void TimelineQuestions::askAll()
{
    askIds(/*framesWereAsked*/ false);
    askFrames();
    askWalks();
    askIds(m_memory == Memory::Kept);
    askCountsAndPlaces();
    askNeighbours();
    askScenes();
    askPanelLists();
    askTransitionWalks();
    askFrames();
}
