#pragma once

#include "plotka_export.h"
#include "scene/session/SC_SessionContext.h"

#include <memory>

class PKC_PlotkaProject;
class PKC_SceneChangeManager;
class PL_System;

/// The session of a storyboard application: the scene layer's session, the playback system and the one project.
///
/// Made by createSessionContext(); then the application opens a project through the scene layer and hands it to
/// createPlotkaProject(). Copies share everything; the last of them ends the session.
class PLOTKA_EXPORT PKC_SessionContext : public SC_SessionContext
{
public:
    /// A new session, which the caller owns. Both managers may be null.
    static PKC_SessionContext *createSessionContext(PLUG_Manager *pluginManager, AC_Manager *actionManager);

    PKC_SessionContext(const PKC_SessionContext &);
    PKC_SessionContext &operator=(const PKC_SessionContext &);
    ~PKC_SessionContext() override;

    /// Builds the project object over @p project; null changes nothing. One that is there already is overwritten
    /// without being deleted: release it first.
    void createPlotkaProject(SC_Project *project);
    /// Gives up the scene layer's project first, then deletes the project object and empties the project manager.
    void releaseProject() override;
    void releasePlaybackSystem();

    /// Null without one.
    PKC_PlotkaProject *plotkaProject() const;
    PL_System *playbackSystem() const;
    PKC_SceneChangeManager *changeManager() const;

protected:
    /// As createSessionContext(), without init().
    PKC_SessionContext(PLUG_Manager *pluginManager, AC_Manager *actionManager);

    void init() override;
    TUSceneChangeManager *createChangeManager() override;

private:
    struct SessionPrivate;
    std::shared_ptr<SessionPrivate> d;
};
