#pragma once

#include "SavedProject.h"

#include <benchmark/benchmark.h>

/// What is measured of a saved project, whatever it holds.
/// @{
void runOpen(benchmark::State &state, const SavedProject &saved);
void runSave(benchmark::State &state, const SavedProject &saved);
/// The floor: a reader of XML that looks at nothing.
void runXmlPass(benchmark::State &state, const SavedProject &saved);
/// @}
