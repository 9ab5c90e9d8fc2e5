#pragma once

#include "plotka_scene_export.h"

#include <QtGlobal>

/// The two ways in which a double becomes a whole number. Neither fails for any input.
namespace UT_Numbers
{

/// Cut toward zero through 64 bits, low 32 bits kept: -1.0 gives 0xFFFFFFFF. What is not finite or
/// outside the 64-bit range gives 0.
PLOTKA_SCENE_EXPORT quint32 toFrame(double value);

/// Cut toward zero and held within the range of int. Not a number gives 0.
PLOTKA_SCENE_EXPORT int toInt(double value);

} // namespace UT_Numbers
