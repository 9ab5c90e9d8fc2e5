#pragma once

#include "plotka_scene_export.h"

#include <QString>

#include <memory>

class AC_Manager;
class PLUG_Manager;
class SC_CameraManager;
class SC_FileReport;
class SC_Project;
class SC_ProjectManager;
class TUSceneChangeManager;

/// What an application creates first: the managers of a session and the project that it works on.
///
/// Copies share everything; the managers die with the last of them. Whoever derives calls init() once
/// the object stands, since it asks the derived class for its managers.
class PLOTKA_SCENE_EXPORT SC_SessionContext
{
public:
    SC_SessionContext(const SC_SessionContext &);
    SC_SessionContext &operator=(const SC_SessionContext &);
    virtual ~SC_SessionContext();

    /// Gives up the session's project. Others may still hold it.
    virtual void releaseProject();

protected:
    /// The two managers are kept and never called; both may be null.
    SC_SessionContext(PLUG_Manager *pluginManager, AC_Manager *actionManager);

    /// Builds the managers by calling the two factory operations below. Does nothing the second time.
    virtual void init();
    /// A new manager, which the session owns from then on.
    virtual TUSceneChangeManager *createChangeManager();
    virtual SC_CameraManager *createCameraManager();

public:
    SC_ProjectManager *projectManager() const;
    /// Null before init().
    TUSceneChangeManager *changeManager() const;
    SC_CameraManager *cameraManager() const;

    /// @name Project
    /// A session works on one project; making or opening another gives up the one before, as
    /// releaseProject() of this class does. Neither queues any change. Null or false is failure.
    /// @{
    /// The project that was made or opened last; null without one.
    SC_Project *project() const;
    /// A project in memory: a top scene with its root group, an unconnected composite, one sequence timed
    /// value and one element that it drives. Null when directory or name is empty or the name holds a "/".
    SC_Project *newProject(const QString &directory, const QString &name);
    /// @p path is a project file or a folder that holds exactly one. What was wrong is told in @p report.
    SC_Project *openProject(const QString &path, SC_FileReport *report = nullptr);
    /// Writes projectDir()/name.plotka, making the directory when missing. Refused when the file changed on disk since it was
    /// opened or saved.
    bool saveProject(SC_FileReport *report = nullptr);
    /// The same under another path, "<folder>/<name>.plotka", which the project keeps.
    bool saveProjectAs(const QString &path, SC_FileReport *report = nullptr);
    /// @}

private:
    void adopt(SC_Project *project);

    struct Shared;
    std::shared_ptr<Shared> m_shared;
};
