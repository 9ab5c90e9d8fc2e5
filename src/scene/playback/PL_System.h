#pragma once

#include "plotka_scene_export.h"

/// The playback system of a session.
class PLOTKA_SCENE_EXPORT PL_System
{
public:
    /// A new one, which the caller owns.
    static PL_System *make();
    virtual ~PL_System();

protected:
    PL_System();
};
