#pragma once

#include "listing/ProjectCheck.h"

/// What is wrong with the scenes of a project: a rate that nothing plays, blocks whose scene is not there, time warps
/// without numbers, and scenes that place each other or themselves.
std::vector<Finding> checkScenes(const PKC_PlotkaProject &project);
