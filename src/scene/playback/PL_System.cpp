#include "scene/playback/PL_System.h"

PL_System::PL_System() = default;

PL_System::~PL_System() = default;

PL_System *PL_System::make()
{
    struct System : PL_System {
    };
    return new System;
}
