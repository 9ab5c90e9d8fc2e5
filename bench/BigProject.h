#pragma once

#include "project/PKC_PlotkaProject.h"
#include "project/PKC_SessionContext.h"
#include "scene/timeline/TUSeqTimedValue.h"

#include <memory>
#include <vector>

/// A project of many panels in shots of ten, without gaps, made through the scene layer.
class BigProject
{
public:
    static constexpr unsigned int panelsPerShot = 10;

    /// How one shot leads to the next: at a cut, or through a transition so long that the last panel of the one begins
    /// inside it.
    enum class Joints { Cuts, Transitions };

    /// Lengths in frames of a timeline's panels, in order: 6 to 30, the same in every run.
    static std::vector<unsigned int> panelLengths(unsigned int panels);

    explicit BigProject(unsigned int panels, Joints joints = Joints::Cuts);
    ~BigProject();
    /// The one of that size, made when first asked for. All sizes stay, so that runs may alternate between them.
    static BigProject &ofSize(unsigned int panels, Joints joints = Joints::Cuts);

    PKC_PlotkaProject &project() const { return *m_session->plotkaProject(); }
    SC_Project &scenes() const { return *m_session->project(); }
    PKC_SessionContext &session() const { return *m_session; }
    unsigned int panelCount() const { return static_cast<unsigned int>(m_panelIds.size()); }
    unsigned int frameCount() const { return m_frameCount; }
    const std::vector<SC_Id> &panelIds() const { return m_panelIds; }
    const std::vector<QString> &shotNames() const { return m_shotNames; }
    /// The timed value of the shot in the middle.
    TUSeqTimedValue &middleShot() const { return *m_shots[m_shots.size() / 2]; }
    unsigned int middleShotFirstFrame() const { return m_shotFirstFrames[m_shots.size() / 2]; }

    /// Moves the border between two panels of the middle shot by a frame, there and back in turn, and tells of it.
    /// Answers a project frame beside the border.
    unsigned int roll();

    /// Asks for every panel, so that all that can be remembered is.
    void warmUp() const;

private:
    void addShot(const std::vector<unsigned int> &lengths, std::size_t firstPanel);

    std::unique_ptr<PKC_SessionContext> m_session;
    Joints m_joints;
    std::vector<SC_Id> m_panelIds;
    std::vector<QString> m_shotNames;
    std::vector<TUSeqTimedValue *> m_shots;
    std::vector<unsigned int> m_shotFirstFrames;
    unsigned int m_frameCount = 0;
    bool m_rolled = false;
};
