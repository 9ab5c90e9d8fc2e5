#pragma once

#include "plotka_scene_export.h"
#include "scene/base/SC_Id.h"
#include "scene/base/UT_IdTable.h"

class SC_SceneBase;
class TUScene;

/// Finds the scenes of a project by id.
class PLOTKA_SCENE_EXPORT SC_SceneManager
{
public:
    /// The scene with that scene id, or null.
    SC_SceneBase *find(const SC_Id &sceneId) const;

private:
    friend class SC_Project;

    UT_IdTable<TUScene *> m_scenes;
};
