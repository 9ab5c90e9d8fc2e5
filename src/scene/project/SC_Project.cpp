#include "scene/project/SC_Project.h"

#include "scene/changes/TUSceneChangeManager.h"
#include "scene/project/TUScene.h"

#include <algorithm>
#include <utility>

SC_Project::SC_Project(const QString &projectDir, const QString &sceneName) : m_projectCommon(projectDir, sceneName) {}

SC_Project::~SC_Project()
{
    // Nobody is told of a project that goes away as a whole.
    m_projectCommon.setChangeManager(nullptr);
    while (!m_scenes.empty())
        takeOut(m_scenes.end() - 1);
}

const PIO_Metadata *SC_Project::keepOriginal(std::unique_ptr<PIO_Metadata> record)
{
    m_originals.push_back(std::move(record));
    return m_originals.back().get();
}

SC_SceneBase *SC_Project::sceneAt(unsigned int index) const
{
    return index < m_scenes.size() ? m_scenes[index].get() : nullptr;
}

TUScene *SC_Project::addScene()
{
    const SC_Id objectId = m_projectCommon.createId();
    return addScene(objectId, m_projectCommon.createId());
}

TUScene *SC_Project::addScene(const SC_Id &objectId, const SC_Id &sceneId)
{
    if (!m_projectCommon.takeForScene(objectId, sceneId))
        return nullptr;
    TUScene *const scene = new TUScene(&m_projectCommon, objectId, sceneId);
    m_scenes.emplace_back(scene);
    m_projectCommon.sceneManager()->m_scenes[sceneId] = scene;
    if (TUSceneChangeManager *changes = m_projectCommon.changeManager())
        changes->emitSceneChanged();
    return scene;
}

bool SC_Project::removeScene(TUScene *scene)
{
    const auto place = placeOf(scene);
    if (place == m_scenes.end() || place == m_scenes.begin())
        return false;
    takeOut(place);
    if (TUSceneChangeManager *changes = m_projectCommon.changeManager())
        changes->emitSceneChanged();
    return true;
}

/// Looks from both ends: scenes are mostly removed in one order or the other.
SC_Project::SceneList::iterator SC_Project::placeOf(const TUScene *scene)
{
    auto first = m_scenes.begin();
    auto last = m_scenes.end();
    while (first != last) {
        if (first->get() == scene)
            return first;
        ++first;
        if (first != last && (--last)->get() == scene)
            return last;
    }
    return m_scenes.end();
}

void SC_Project::takeOut(SceneList::iterator place)
{
    // It dies when nobody can find it any more. Its ids stay taken: they are never given out again.
    const std::unique_ptr<TUScene> dying = std::move(*place);
    m_scenes.erase(place);
    m_projectCommon.sceneManager()->m_scenes.remove(dying->sceneId());
}
