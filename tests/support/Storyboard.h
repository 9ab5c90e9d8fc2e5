#pragma once

#include "support/TimelineText.h"

#include "project/PKC_PlotkaProject.h"
#include "project/PKC_SessionContext.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/timeline/TUSeqTimedValue.h"

#include <memory>
#include <string>
#include <vector>

/// A session with a project made for a test, in the notation tests speak (TimelineText.h):
/// "A(24,12) -10- B(36)" is shot A with panels of 24 and 12 frames, a gap of 10 frames, then shot B with
/// one panel of 36.
///
/// Shots are numbered from 0 in timeline order, blocks that hold nothing included and transitions not; the
/// panels of a shot are numbered likewise.
class Storyboard
{
public:
    explicit Storyboard(const std::string &notation = std::string(), bool cacheOn = true);
    explicit Storyboard(const TimelineText &timeline, bool cacheOn = true);
    Storyboard(const Storyboard &) = delete;
    Storyboard &operator=(const Storyboard &) = delete;
    ~Storyboard();

    PKC_PlotkaProject &project() const { return *m_session->plotkaProject(); }
    PKC_PlotkaProject *operator->() const { return &project(); }
    /// A second project over the same scenes that remembers nothing. (Turning the caches of the first off for a
    /// comparison would drop them, and with them the stale answer sought.)
    PKC_PlotkaProject &forgetful();

    PKC_SessionContext &session() const { return *m_session; }
    SC_Project &sceneProject() const { return *m_session->project(); }
    TUScene &topScene() const;
    TUSeqTimedValue &timeline() const;

    /// Empty where there is no shot, no panel.
    std::string shotNameAt(unsigned int frame) const;
    std::string panelNameAt(unsigned int frame) const;

    /// @name What stands where
    /// Blocks, scenes and ids as the scenes have them. Null, the invalid block and the null id for what
    /// does not exist.
    /// @{
    unsigned int shotBlockCount() const;
    AT_FrameBlock shotBlock(unsigned int shot) const;
    TUScene *shotScene(unsigned int shot) const;
    SC_Id shotId(unsigned int shot) const;
    /// The timed value of its panels.
    TUSeqTimedValue *panelTrack(unsigned int shot) const;
    AT_FrameBlock panelBlock(unsigned int shot, unsigned int panel) const;
    TUScene *panelScene(unsigned int shot, unsigned int panel) const;
    SC_Id panelId(unsigned int shot, unsigned int panel) const;
    AT_FrameBlock transitionBlock(unsigned int transition) const;
    SC_Id transitionId(unsigned int transition) const;
    /// @}

    /// @name Edits of the scenes
    /// As a host application makes them; the project hears of them at notify(). One that cannot be done answers
    /// false and has changed nothing.
    /// @{
    void notify();

    /// A shot of one panel, at the end or over free frames.
    bool addShot(const std::string &name, unsigned int frames, unsigned int gapBefore = 0);
    bool placeShot(const std::string &name, unsigned int fromFrame, unsigned int frames);
    /// Takes the shot away and leaves a gap.
    bool liftShot(unsigned int shot);
    /// Moves the shot and all that follows it.
    bool moveShots(unsigned int shot, int delta);
    /// Gives the shot other frames and leaves its panels and its neighbours alone.
    bool trimShot(unsigned int shot, unsigned int fromFrame, unsigned int frames);

    /// After the last panel; the shot becomes that much longer and what follows moves.
    bool addPanel(unsigned int shot, unsigned int frames);
    /// Over free frames of the shot's timed value.
    bool placePanel(unsigned int shot, unsigned int tvFrame, unsigned int frames);
    /// The shot and what follows give way.
    bool setPanelLength(unsigned int shot, unsigned int panel, unsigned int frames);
    /// The rest of the shot and what follows close up; the last panel takes the shot with it.
    bool removePanel(unsigned int shot, unsigned int panel);
    /// Takes the panel away and leaves a gap.
    bool liftPanel(unsigned int shot, unsigned int panel);
    /// Moves the border between the panel and the next one.
    bool rollPanels(unsigned int shot, unsigned int panel, int delta);

    /// Between the shot and the next one, which it touches.
    bool addTransition(unsigned int shot, unsigned int framesBeforeCut, unsigned int framesAfterCut);
    bool removeTransition(unsigned int transition);

    bool setShotWarp(unsigned int shot, double start, double end);
    bool setPanelWarp(unsigned int shot, unsigned int panel, double start, double end);

    /// The block stays.
    bool deleteShotScene(unsigned int shot);
    bool deletePanelScene(unsigned int shot, unsigned int panel);
    bool deletePanelTrack(unsigned int shot);

    /// A custom name; @p locked so that it may not change.
    bool nameShot(unsigned int shot, const std::string &name);
    bool namePanel(unsigned int shot, unsigned int panel, const std::string &name, bool locked = false);
    /// @}

private:
    void build(const TimelineText &timeline);
    void buildShot(const ElementText &shot, unsigned int fromFrame, unsigned int frames);
    void buildPanels(TUScene *scene, const std::vector<PanelText> &panels);
    TUSeq *newSequence(Holds holds, const WarpText &warp, unsigned int frames, TUScene *scene);
    bool canResize(unsigned int shot, long long frames) const;
    void resizeShot(unsigned int shot, unsigned int frames);

    std::unique_ptr<PKC_SessionContext> m_session;
    std::vector<TUScene *> m_doomed; // scenes to delete once their blocks stand
    std::unique_ptr<PKC_PlotkaProject> m_forgetful;
};
