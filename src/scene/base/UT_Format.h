#pragma once

#include "plotka_scene_export.h"
#include "scene/base/UT_String.h"

namespace UT_Format
{

/// Non-drop timecode "HH:MM:SS:FF" of a count of frames from 0 at a whole rate; hours grow as long as needed.
/// A rate of 0 is taken as 1. The last two arguments have no effect on this form.
PLOTKA_SCENE_EXPORT UT_String formatFrame(unsigned int frame, unsigned int rate, bool withFrames, int style);

} // namespace UT_Format
