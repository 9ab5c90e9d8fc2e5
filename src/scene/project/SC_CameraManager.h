#pragma once

#include "plotka_scene_export.h"

/// Base of what answers for the cameras of a session's scenes.
class PLOTKA_SCENE_EXPORT SC_CameraManager
{
public:
    virtual ~SC_CameraManager();
};
