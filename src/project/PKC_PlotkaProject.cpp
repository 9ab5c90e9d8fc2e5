#include "project/PKC_PlotkaProject.h"

#include "project/ObjectIds.h"
#include "project/PKC_PlotkaProject_p.h"
#include "project/TimelineWalk_p.h"
#include "scene/changes/TUSceneChangeManager.h"
#include "scene/project/TUScene.h"
#include "scene/timeline/AT_TransitionSeq.h"
#include "scene/timeline/TimelineSearches.h"

using namespace Plotka;

PKC_PlotkaProject::PKC_PlotkaProject(SC_Project *project) : d(std::make_unique<Private>(project))
{
    if (const TUSceneChangeManager *changes = changeManager()) {
        [[maybe_unused]] const bool scenes =
            connect(changes, "2sceneChanged()", this, "1onSceneChanged()", Qt::AutoConnection);
        [[maybe_unused]] const bool timedValues = connect(changes, "2timedValuesChanged(const TUTvSet &)", this,
            "1onTimedValuesChanged( const TUTvSet & )", Qt::AutoConnection);
        Q_ASSERT(scenes && timedValues);
    }
    // Here the managers are made, each given this project, in this order: drawing observer, panel layers,
    // tracking, names, links between panels and clips.
    updateSavedPanelIds();
}

PKC_PlotkaProject::~PKC_PlotkaProject()
{
    disconnect(this, nullptr, nullptr, nullptr);
    d->caches = TimelineCaches();
    // Here the managers go: panel layers, tracking, drawing observer, names, links. The SC_Project goes last.
}

TUScene *PKC_PlotkaProject::Private::topScene() const
{
    return project ? static_cast<TUScene *>(project->sceneAt(0)) : nullptr; // scene 0 is always a TUScene
}

TUScene *PKC_PlotkaProject::Private::sceneOf(const AT_FrameBlock &block) const
{
    return project ? sceneOfBlock(project->projectCommon()->sceneManager(), block) : nullptr;
}

Shot_t PKC_PlotkaProject::Private::shotOf(const AT_FrameBlock &block, const TUSeqTimedValue *timeline)
{
    ShotPrivate *const known = caches.shots.find(objectId(block));
    return known ? Shot_t(known) : makeShot(block, timeline, sceneOf(block));
}

Shot_t PKC_PlotkaProject::Private::makeShot(
    const AT_FrameBlock &block, const TUSeqTimedValue *timeline, const TUScene *scene)
{
    const UT_SharedPtr<ShotPrivate> shot(new ShotPrivate(timeline, scene, nullptr));
    if (cacheOn && scene) {
        caches.shots.insert(block, shot);
        forgotten.freeSome();
    }
    return Shot_t(shot.get());
}

Trans_t PKC_PlotkaProject::Private::transitionOf(const AT_FrameBlock &block, const TUSeqTimedValue *timeline)
{
    if (TransPrivate *const known = caches.transitions.find(objectId(block)))
        return Trans_t(known);
    const UT_SharedPtr<TransPrivate> transition(
        new TransPrivate(timeline, AT_TransitionSeq::toTransition(block.seq())));
    if (cacheOn)
        caches.transitions.insert(block, transition);
    return Trans_t(transition.get());
}

SC_Project *PKC_PlotkaProject::project() const
{
    return d->project.get();
}

SC_ProjectCommon *PKC_PlotkaProject::projectCommon() const
{
    return d->project ? d->project->projectCommon() : nullptr;
}

TUSceneChangeManager *PKC_PlotkaProject::changeManager() const
{
    return d->project ? d->project->projectCommon()->changeManager() : nullptr;
}

TUScene *PKC_PlotkaProject::topScene() const
{
    return d->topScene();
}

TUSeqTimedValue *PKC_PlotkaProject::topMainTv() const
{
    if (TUSeqTimedValue *known = d->topMainTv.get())
        return known;
    d->forget(); // of a timeline that has gone; those by scene are filled with the caches off as well
    const TUScene *top = topScene();
    if (!top)
        return nullptr;

    TUSeqTimedValue *best = nullptr;
    {
        // A trial counts along each candidate in turn, as if it were the timeline.
        const CacheDesactivator off(const_cast<PKC_PlotkaProject *>(this));
        unsigned int mostPanels = 0;
        for (TUTimedValue *timedValue : std::vector<TUTimedValue *>(top->timedValues())) {
            TUSeqTimedValue *const candidate = dynamic_cast<TUSeqTimedValue *>(timedValue);
            if (!candidate || candidate->timedValueKind() != TUTimedValue::SequenceKind)
                continue;
            d->topMainTv = candidate;
            const unsigned int panels = panelCount();
            d->topMainTv = nullptr;
            if (panels > mostPanels) {
                mostPanels = panels;
                best = candidate;
            }
        }
        d->topMainTv = best;
    }
    if (!best)
        d->topMainTv = sceneMainTv(top);
    return d->topMainTv.get();
}

QString PKC_PlotkaProject::name() const
{
    return projectCommon() ? projectCommon()->dbSceneData()->sceneName() : QString();
}

void PKC_PlotkaProject::invalidate()
{
    d->forget();
}

bool PKC_PlotkaProject::cacheEnabled() const
{
    return d->cacheOn;
}

void PKC_PlotkaProject::setCacheEnabled(bool on)
{
    if (on == d->cacheOn)
        return;
    invalidate();
    d->cacheOn = on;
}

void PKC_PlotkaProject::buildAll()
{
    for (PanelWalk walk(this); !walk.isAtEnd(); walk.step()) {
    }
    for (auto transition = beginTrans(); transition != endTrans(); ++transition) {
    }
}

void PKC_PlotkaProject::updateSavedPanelIds()
{
    d->savedPanelIds.clear();
    for (PanelWalk walk(this); !walk.isAtEnd(); walk.step())
        d->savedPanelIds.insert(walk.current().id());
}

bool PKC_PlotkaProject::isNewPanelIds(SC_Id id) const
{
    return d->savedPanelIds.count(id) == 0;
}

void PKC_PlotkaProject::onSceneChanged()
{
    invalidate();
}

void PKC_PlotkaProject::onTimedValuesChanged(const TUTvSet &changed)
{
    if (changed.count(UT_SharedWeakPtr<TUTimedValue>(topMainTv())) != 0)
        invalidate();
}

PKC_PlotkaProject::CacheActivator::CacheActivator(PKC_PlotkaProject *project) :
    m_project(project), m_previous(project && project->cacheEnabled())
{
    if (m_project)
        m_project->setCacheEnabled(true);
}

PKC_PlotkaProject::CacheActivator::~CacheActivator()
{
    if (m_project)
        m_project->setCacheEnabled(m_previous);
}

PKC_PlotkaProject::CacheDesactivator::CacheDesactivator(PKC_PlotkaProject *project) :
    m_project(project), m_previous(project && project->cacheEnabled())
{
    if (m_project)
        m_project->setCacheEnabled(false);
}

PKC_PlotkaProject::CacheDesactivator::~CacheDesactivator()
{
    if (m_project)
        m_project->setCacheEnabled(m_previous);
}

PKC_PlotkaProject::LockHelper::LockHelper(PKC_PlotkaProject *project) : m_project(project)
{
    if (!m_project)
        return;
    m_project->d->mutex.lock();
    m_project->d->locked = true;
}

PKC_PlotkaProject::LockHelper::~LockHelper()
{
    if (!m_project)
        return;
    m_project->d->locked = false;
    m_project->d->mutex.unlock();
}

bool PKC_PlotkaProject::LockHelper::isLocked(const PKC_PlotkaProject *project)
{
    return project && project->d->locked;
}
