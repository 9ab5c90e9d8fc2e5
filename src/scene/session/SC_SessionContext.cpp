#include "scene/session/SC_SessionContext.h"

#include "scene/changes/TUSceneChangeManager.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_CameraManager.h"
#include "scene/project/TUScene.h"
#include "scene/session/SC_ProjectManager.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/storage/SC_ProjectFile.h"
#include "scene/timeline/TUSeqTimedValue.h"

#include <QFileInfo>

struct SC_SessionContext::Shared {
    PLUG_Manager *pluginManager;
    AC_Manager *actionManager;
    // In order of making; they die in the reverse order, the projects while the change manager is there.
    std::unique_ptr<TUSceneChangeManager> changeManager;
    std::unique_ptr<SC_CameraManager> cameraManager;
    SC_ProjectManager projectManager;
};

SC_SessionContext::SC_SessionContext(PLUG_Manager *pluginManager, AC_Manager *actionManager) :
    m_shared(std::make_shared<Shared>())
{
    m_shared->pluginManager = pluginManager;
    m_shared->actionManager = actionManager;
}

SC_SessionContext::SC_SessionContext(const SC_SessionContext &) = default;
SC_SessionContext &SC_SessionContext::operator=(const SC_SessionContext &) = default;
SC_SessionContext::~SC_SessionContext() = default;

void SC_SessionContext::releaseProject()
{
    m_shared->projectManager.remove(project());
}

void SC_SessionContext::init()
{
    if (!m_shared->changeManager)
        m_shared->changeManager.reset(createChangeManager());
    if (!m_shared->cameraManager)
        m_shared->cameraManager.reset(createCameraManager());
}

TUSceneChangeManager *SC_SessionContext::createChangeManager()
{
    return new TUSceneChangeManager;
}

SC_CameraManager *SC_SessionContext::createCameraManager()
{
    return new SC_CameraManager;
}

SC_ProjectManager *SC_SessionContext::projectManager() const
{
    return &m_shared->projectManager;
}

TUSceneChangeManager *SC_SessionContext::changeManager() const
{
    return m_shared->changeManager.get();
}

SC_CameraManager *SC_SessionContext::cameraManager() const
{
    return m_shared->cameraManager.get();
}

SC_Project *SC_SessionContext::project() const
{
    const auto &projects = m_shared->projectManager.projects();
    return projects.empty() ? nullptr : projects.back().get();
}

SC_Project *SC_SessionContext::newProject(const QString &directory, const QString &name)
{
    if (directory.isEmpty() || name.isEmpty() || name.contains(u'/'))
        return nullptr;
    SC_Project *const made = new SC_Project(directory, name);
    TUScene *const top = made->addScene();
    top->addUnconnectedComposite();
    TUSeqTimedValue *const timeline = top->addSeqTimedValue(QStringLiteral("Storyboard"));
    const UT_SharedPtr<MO_Node> panelTrack(new MO_ElementModule(top->sceneCommon(), timeline->getName()));
    top->getRootGroup()->addNode(panelTrack);
    timeline->linkNode(panelTrack.get());
    adopt(made);
    return made;
}

SC_Project *SC_SessionContext::openProject(const QString &path, SC_FileReport *report)
{
    SC_FileReport unheard;
    SC_FileReport &told = report ? *report : unheard;
    const QString filePath = SC_ProjectFile::resolve(path, told);
    SC_Project *const opened = filePath.isEmpty() ? nullptr : SC_ProjectFile::read(filePath, told);
    if (opened)
        adopt(opened);
    return opened;
}

bool SC_SessionContext::saveProject(SC_FileReport *report)
{
    return saveProjectAs(project() ? project()->projectCommon()->dbSceneData()->filePath() : QString(), report);
}

bool SC_SessionContext::saveProjectAs(const QString &path, SC_FileReport *report)
{
    SC_FileReport unheard;
    SC_FileReport &told = report ? *report : unheard;
    if (!project()) {
        told.add({SC_FileReport::Error, path, 0, 0, QString(), QStringLiteral("not saved: there is no project")});
        return false;
    }
    // What is written where the project lives is its own file from then on.
    TUDbSceneData &data = *project()->projectCommon()->dbSceneData();
    const TUDbSceneData before = data;
    const QFileInfo file(path);
    data.setLocation(file.path(), file.completeBaseName());
    if (SC_ProjectFile::write(*project(), path, told))
        return true;
    data = before;
    return false;
}

void SC_SessionContext::adopt(SC_Project *project)
{
    // Held before the one before is let go: it may be the same.
    const UT_SharedPtr<SC_Project> held(project);
    SC_SessionContext::releaseProject();
    project->projectCommon()->setChangeManager(changeManager());
    m_shared->projectManager.add(project);
}
