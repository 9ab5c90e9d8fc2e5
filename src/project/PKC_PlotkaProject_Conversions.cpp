#include "project/PKC_PlotkaProject.h"

#include "project/PKC_PlotkaProject_p.h"
#include "project/TimelineWalk_p.h"
#include "scene/network/MO_Node.h"
#include "scene/project/TUScene.h"

using namespace Plotka;

namespace
{

/// The object's scene, null once it has gone.
template <typename T>
const SC_SceneCommon *sceneCommonOf(const T &object)
{
    const TUScene *scene = object.symbol();
    return scene ? scene->sceneCommon() : nullptr;
}

/// A remembered id may have come to stand for another scene; that reads as not found.
template <typename T>
T verified(const T &found, const SC_SceneCommon *scene)
{
    return sceneCommonOf(found) == scene ? found : T();
}

} // namespace

Panel_t PKC_PlotkaProject::sceneCommonToPanel(const SC_SceneCommon *scene) const
{
    if (!scene || !topMainTv()) // a timeline chosen anew drops what is remembered
        return Panel_t();
    if (d->cacheOn && !d->caches.panelOfScene.isEmpty()) {
        const auto id = d->caches.panelOfScene.constFind(scene);
        return id == d->caches.panelOfScene.cend() ? Panel_t() : verified(getPanelByID(SC_Id(*id)), scene);
    }
    Panel_t found;
    for (PanelWalk walk(this); !walk.isAtEnd(); walk.step()) {
        const SC_SceneCommon *walked = sceneCommonOf(walk.current());
        if (walked == scene)
            found = walk.current();
        if (!d->cacheOn && found.isValid())
            return found;
        if (d->cacheOn && !d->caches.panelOfScene.contains(walked))
            d->caches.panelOfScene.insert(walked, walk.current().id());
    }
    return found;
}

Shot_t PKC_PlotkaProject::sceneCommonToShot(const SC_SceneCommon *scene) const
{
    if (!scene || !topMainTv())
        return Shot_t();
    // Remembered with the caches off as well.
    if (!d->caches.shotOfScene.isEmpty()) {
        const auto id = d->caches.shotOfScene.constFind(scene);
        return id == d->caches.shotOfScene.cend() ? Shot_t() : verified(getShotByID(SC_Id(*id)), scene);
    }
    Shot_t found;
    for (ShotWalk walk(this); !walk.isAtEnd(); walk.step()) {
        const SC_SceneCommon *walked = sceneCommonOf(walk.current());
        if (walked == scene)
            found = walk.current();
        if (!d->caches.shotOfScene.contains(walked))
            d->caches.shotOfScene.insert(walked, walk.current().id());
    }
    return found;
}

Panel_t PKC_PlotkaProject::nodeToPanel(const MO_Node *node) const
{
    return node ? sceneCommonToPanel(node->sceneCommon()) : Panel_t();
}

Panel_t PKC_PlotkaProject::tvToPanel(const TUTimedValue *timedValue) const
{
    return timedValue ? sceneCommonToPanel(timedValue->sceneCommon()) : Panel_t();
}

Shot_t PKC_PlotkaProject::tvToShot(const TUTimedValue *timedValue) const
{
    return timedValue ? sceneCommonToShot(timedValue->sceneCommon()) : Shot_t();
}
