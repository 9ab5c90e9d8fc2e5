#pragma once

#include "listing/ProjectCheck.h"

/// What older programs cannot read in the project: what is found in it now, its @p gaps among that, and what its record
/// says beside.
std::vector<CompatibilityIssue> checkCompatibility(PKC_PlotkaProject &project, const std::vector<TimelineItem> &gaps);
