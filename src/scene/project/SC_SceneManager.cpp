#include "scene/project/SC_SceneManager.h"

#include "scene/project/TUScene.h"

SC_SceneBase *SC_SceneManager::find(const SC_Id &sceneId) const
{
    TUScene *const *known = m_scenes.find(sceneId);
    return known ? *known : nullptr;
}
