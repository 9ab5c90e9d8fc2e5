#pragma once

#include "plotka_scene_export.h"

/// Common base of scenes.
class PLOTKA_SCENE_EXPORT SC_SceneBase
{
public:
    SC_SceneBase() = default;
    SC_SceneBase(const SC_SceneBase &) = delete;
    SC_SceneBase &operator=(const SC_SceneBase &) = delete;
    virtual ~SC_SceneBase();
};
