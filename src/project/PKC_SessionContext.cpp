#include "project/PKC_SessionContext.h"

#include "metadata/PKC_MetadataFactory.h"
#include "project/PKC_PlotkaProject.h"
#include "scene/network/MO_UnconnectedCompositeModule.h"
#include "scene/playback/PL_System.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/session/SC_ProjectManager.h"
#include "tracking/PKC_SceneChangeManager.h"

#include <QPointer>

#include <utility>

struct PKC_SessionContext::SessionPrivate {
    ~SessionPrivate()
    {
        delete project.data();
        delete playbackSystem;
    }

    QPointer<PKC_PlotkaProject> project;
    PL_System *playbackSystem = nullptr;
};

PKC_SessionContext *PKC_SessionContext::createSessionContext(PLUG_Manager *pluginManager, AC_Manager *actionManager)
{
    PKC_SessionContext *const session = new PKC_SessionContext(pluginManager, actionManager);
    session->init();
    return session;
}

PKC_SessionContext::PKC_SessionContext(PLUG_Manager *pluginManager, AC_Manager *actionManager) :
    SC_SessionContext(pluginManager, actionManager), d(std::make_shared<SessionPrivate>())
{
    PKC_MetadataFactory::createInstance(); // without it the records of a project that is opened stay unknown
}

PKC_SessionContext::PKC_SessionContext(const PKC_SessionContext &) = default;

PKC_SessionContext &PKC_SessionContext::operator=(const PKC_SessionContext &other)
{
    d = other.d; // first: a project goes before the managers it hears
    SC_SessionContext::operator=(other);
    return *this;
}

PKC_SessionContext::~PKC_SessionContext() = default;

void PKC_SessionContext::init()
{
    if (!d->playbackSystem)
        d->playbackSystem = PL_System::make();
    SC_SessionContext::init();
}

TUSceneChangeManager *PKC_SessionContext::createChangeManager()
{
    return new PKC_SceneChangeManager;
}

void PKC_SessionContext::createPlotkaProject(SC_Project *project)
{
    if (!project)
        return;
    d->project = new PKC_PlotkaProject(project);
    const TUScene *top = d->project->topScene();
    const MO_UnconnectedCompositeModule *composite = top ? top->unconnectedComposite() : nullptr;
    if (composite && composite->firstAttribute())
        composite->firstAttribute()->setBool(true);
}

void PKC_SessionContext::releaseProject()
{
    SC_SessionContext::releaseProject();
    delete d->project.data();
    projectManager()->clean();
}

void PKC_SessionContext::releasePlaybackSystem()
{
    delete std::exchange(d->playbackSystem, nullptr);
}

PKC_PlotkaProject *PKC_SessionContext::plotkaProject() const
{
    return d->project.data();
}

PL_System *PKC_SessionContext::playbackSystem() const
{
    return d->playbackSystem;
}

PKC_SceneChangeManager *PKC_SessionContext::changeManager() const
{
    return static_cast<PKC_SceneChangeManager *>(SC_SessionContext::changeManager());
}
