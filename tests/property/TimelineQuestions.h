#pragma once

#include "support/TimelineOracle.h"

#include "project/PKC_PlotkaProject.h"

#include <map>
#include <string>
#include <vector>

/// Puts every question about a timeline to a project and to an oracle, and remembers the first answer that differs.
///
/// Handles are compared as the project compares them: by id.
class TimelineQuestions
{
public:
    enum class Memory {
        Kept,    ///< the project may remember what it was asked
        Dropped, ///< it forgets before each question
        SwitchedOff
    };

    TimelineQuestions(PKC_PlotkaProject &project, const TimelineOracle &oracle, Memory memory) :
        m_project(project), m_oracle(oracle), m_memory(memory)
    {
    }

    /// Every frame from 0 to three past the last one, or past @p furthest.
    void askFrames(unsigned int furthest = 0);
    /// Steps and walks, from everything that walks and frames reach.
    void askWalks();
    void askCountsAndPlaces();
    /// Asked after askFrames() by a project that remembers, panels behind a gap at the edge of a shot are known.
    void askIds(bool framesWereAsked);
    void askNeighbours();
    void askScenes();
    void askPanelLists();
    void askTransitionWalks();
    void askAll();

    /// Empty as long as everything agrees.
    const std::string &disagreement() const { return m_disagreement; }

private:
    struct KnownShot {
        Plotka::Shot_t handle;
        TimelineOracle::Shot plain;
    };
    struct KnownPanel {
        Plotka::Panel_t handle;
        TimelineOracle::Panel plain;
    };

    /// The project, about to be asked.
    PKC_PlotkaProject &asked();
    template <typename Describe>
    bool same(long long actual, long long expected, const Describe &describe)
    {
        if (actual == expected)
            return true;
        if (m_disagreement.empty())
            m_disagreement = describe() + (" is " + std::to_string(actual) + ", expected " + std::to_string(expected));
        return false;
    }
    bool sameSpace(const Plotka::Space_t &actual, const TimelineOracle::Space &expected, const std::string &question);
    void gatherHandles();

    /// Of the transition that the iterator stands on, else of the object.
    template <typename T>
    static long long idOf(const Plotka::objTransIterator<T> &at)
    {
        return at.isOnTransition() ? at.transition().id().value() : at.current().id().value();
    }

    void askFrame(unsigned int frame);
    void askShot(const KnownShot &shot);
    void askPanel(const KnownPanel &panel);
    template <typename Known>
    void askNeighboursOf(const Known &object, const std::string &name);

    PKC_PlotkaProject &m_project;
    const TimelineOracle &m_oracle;
    Memory m_memory;
    bool m_gathered = false;
    std::vector<KnownShot> m_shots;
    std::vector<KnownPanel> m_panels; ///< those that some frame or walk gives
    std::map<long long, bool> m_panelSeenByFrame;
    std::string m_disagreement;
};
