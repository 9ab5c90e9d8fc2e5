#pragma once

#include "project/PKC_PlotkaProject.h"

#include <string>

/// Every way in which answers of @p project contradict one another, one line each; empty when sane.
///
/// It repairs nothing. A shot whose scene has gone ends the inspection of shots, and panels of a shot that
/// is offset by its time warp are asked by id and place alone.
std::string problemsOf(const PKC_PlotkaProject &project);
