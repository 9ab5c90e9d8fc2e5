#pragma once

#include "plotka_scene_export.h"

class PLOTKA_SCENE_EXPORT TUMaths
{
public:
    /// Nearest whole number, halves away from zero, held within the range of int. Not a number gives 0.
    static int round(double value);
    static double abs(double value);
};
