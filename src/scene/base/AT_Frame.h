#pragma once

#include "plotka_scene_export.h"

/// Rounding of frame positions.
class PLOTKA_SCENE_EXPORT AT_Frame
{
public:
    /// Nearest whole frame, halves away from zero, made in 64 bits of which the low 32 are kept.
    /// What is not finite or does not fit 64 bits gives 0.
    static int roundToUnsigned(double position);
};
