#include "support/Problems.h"

#include "scene/project/TUScene.h"

#include <sstream>

using namespace Plotka;

namespace
{

/// Collects the problems of one project.
class Inspection
{
public:
    explicit Inspection(const PKC_PlotkaProject &project) : m_project(project) {}

    std::string run()
    {
        inspectShots();
        inspectPanels();
        inspectTransitions();
        inspectGaps();
        return m_problems.str();
    }

private:
    template <typename Handle>
    std::ostream &about(const char *kind, const Handle &handle)
    {
        return m_problems << kind << " #" << handle.id().value() << ' ';
    }

    void inspectShots()
    {
        unsigned int place = 0;
        unsigned int lastFrame = 0;
        Shot_t before;
        for (Shot_t shot = m_project.first(Shot_t()); shot.isValid(); shot = m_project.next(shot), ++place) {
            if (!shot.symbol())
                return;
            inspectShot(shot, place);
            if (m_project.prev(shot) != before)
                about("shot", shot) << "is not followed back to the one before it\n";
            if (shot.firstFrame() <= lastFrame && !m_project.isFollowedByTrans(before) && !sharesFrames(before, shot))
                about("shot", shot) << "starts at " << shot.firstFrame() << ", not after " << lastFrame << '\n';
            lastFrame = shot.lastFrame();
            before = shot;
        }
        const Shot_t last = m_project.last(Shot_t());
        if (before.isValid() && last.isValid() && last != before)
            about("shot", last) << "is last and not reached\n";
        if (m_project.shotCount() != place)
            m_problems << "counts " << m_project.shotCount() << " shots, walked " << place << '\n';
        if (m_project.getNumOfFrames() != last.lastFrame())
            m_problems << "has " << m_project.getNumOfFrames() << " frames, ends at " << last.lastFrame() << '\n';
    }

    bool sharesFrames(const Shot_t &first, const Shot_t &second) const
    {
        const Trans_t between = m_project.getTransAt(second.firstFrame());
        return between.isValid() && between.firstFrame() == second.firstFrame()
            && between.lastFrame() == first.lastFrame();
    }

    void inspectShot(const Shot_t &shot, unsigned int place)
    {
        if (shot.objNumOfFrame() != shot.lastFrame() - shot.firstFrame() + 1)
            about("shot", shot) << "has " << shot.objNumOfFrame() << " frames\n";
        if (m_project.getShotNdx(shot) != place)
            about("shot", shot) << "has place " << m_project.getShotNdx(shot) << ", walked as " << place << '\n';
        if (m_project.getShotByNdx(place) != shot)
            about("shot", shot) << "is not found by its place\n";
        if (m_project.getShotByID(shot.id()) != shot || !m_project.isShotValid(shot.id()))
            about("shot", shot) << "is not found by its id\n";
        if (m_project.sceneCommonToShot(shot.symbol()->sceneCommon()) != shot)
            about("shot", shot) << "is not found by its scene\n";
        if (m_project.getShotAt(shot.firstFrame(), PKC_PlotkaProject::ResolveForward, false, false) != shot)
            about("shot", shot) << "is not found at its first frame\n";
        if (m_project.getShotAt(shot.lastFrame(), PKC_PlotkaProject::ResolveBackward, false, false) != shot)
            about("shot", shot) << "is not found at its last frame\n";
        Trans_t trans;
        if (m_project.isFollowedByTrans(shot, &trans) && trans.lastFrame() != shot.lastFrame())
            about("shot", shot) << "ends at " << shot.lastFrame() << ", its transition at " << trans.lastFrame()
                                << '\n';
        if (m_project.isPrecededByTrans(shot, &trans) && trans.firstFrame() != shot.firstFrame())
            about("shot", shot) << "starts at " << shot.firstFrame() << ", its transition at " << trans.firstFrame()
                                << '\n';
    }

    void inspectPanels()
    {
        unsigned int place = 0;
        const unsigned int count = m_project.panelCount();
        for (Panel_t panel = m_project.first(Panel_t()); panel.isValid(); panel = m_project.next(panel), ++place) {
            if (place == count) { // answers that are out of date can lead round in circles
                m_problems << "walks on after " << count << " panels\n";
                return;
            }
            inspectPanel(panel, place);
        }
        if (count != place)
            m_problems << "counts " << count << " panels, walked " << place << '\n';
    }

    void inspectPanel(const Panel_t &panel, unsigned int place)
    {
        if (panel.shot().isInvalid() || !panel.symbol()) {
            about("panel", panel) << "has no shot or no scene\n";
            return;
        }
        if (m_project.getPanelNdx(panel, /*inShot*/ false) != place)
            about("panel", panel) << "has place " << m_project.getPanelNdx(panel, false) << ", walked as " << place
                                  << '\n';
        if (m_project.getPanelByNdx(place) != panel)
            about("panel", panel) << "is not found by its place\n";
        if (m_project.getPanelByID(panel.id()) != panel || !m_project.isPanelValid(panel.id()))
            about("panel", panel) << "is not found by its id\n";
        if (m_project.sceneCommonToPanel(panel.symbol()->sceneCommon()) != panel)
            about("panel", panel) << "is not found by its scene\n";
        if (panel.shot().prjFrameToTvFrame(1) != 1)
            return;
        const unsigned int firstFrame = panel.relativeFirstFrame();
        const unsigned int lastFrame = std::min(panel.relativeLastFrame(), panel.shot().objNumOfFrame());
        for (const unsigned int frame : {firstFrame, lastFrame}) {
            if (firstFrame <= lastFrame && m_project.getPanelIn(panel.shot(), frame, false, false) != panel)
                about("panel", panel) << "is not found at frame " << frame << " of its shot\n";
        }
        // A panel that the shot is too short to show can be stepped to and not back from.
        const Panel_t next = m_project.next(panel);
        const bool isShown = next.isValid() && next.relativeFirstFrame() <= panel.shot().objNumOfFrame();
        if (isShown && next.shot() == panel.shot() && m_project.prev(next) != panel)
            about("panel", next) << "is not followed back to the one before it\n";
    }

    void inspectTransitions()
    {
        unsigned int place = 0;
        Trans_t before;
        for (Trans_t trans = m_project.first(Trans_t()); trans.isValid(); trans = m_project.next(trans), ++place) {
            if (m_project.getTransByNdx(place) != trans)
                about("transition", trans) << "is not found by its place\n";
            if (m_project.getTransByID(trans.id()) != trans || !m_project.isTransValid(trans.id()))
                about("transition", trans) << "is not found by its id\n";
            if (m_project.prev(trans) != before)
                about("transition", trans) << "is not followed back to the one before it\n";
            if (trans.firstFrame() <= before.lastFrame())
                about("transition", trans) << "overlaps the one before it\n";
            for (unsigned int frame = trans.firstFrame(); frame <= trans.lastFrame(); ++frame) {
                if (m_project.getTransAt(frame) != trans)
                    about("transition", trans) << "is not found at frame " << frame << '\n';
            }
            before = trans;
        }
        if (m_project.last(Trans_t()) != before)
            m_problems << "the last transition is not reached\n";
        if (m_project.transCount() != place)
            m_problems << "counts " << m_project.transCount() << " transitions, walked " << place << '\n';
    }

    void inspectGaps()
    {
        for (unsigned int frame = 1; frame <= m_project.getNumOfFrames() + 1; ++frame) {
            const Space_t gap = m_project.getSpaceAt(frame);
            if (m_project.hasSpaceAt(frame) != gap.isValid())
                m_problems << "frame " << frame << " has a gap and has none\n";
            if (gap.isInvalid())
                continue;
            const Shot_t shot = m_project.getShotAt(frame, PKC_PlotkaProject::ResolveForward, false, true);
            if (gap.isInShot() ? gap.shot() != shot : shot.isValid())
                m_problems << "frame " << frame << " lies in a gap and in shot #" << shot.id().value() << '\n';
            if (!gap.isInShot() && (frame < gap.firstFrame() || gap.lastFrame() < frame))
                m_problems << "frame " << frame << " lies outside its gap\n";
        }
    }

    const PKC_PlotkaProject &m_project;
    std::ostringstream m_problems;
};

} // namespace

std::string problemsOf(const PKC_PlotkaProject &project)
{
    return Inspection(project).run();
}
