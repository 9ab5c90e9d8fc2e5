#pragma once

#include "project/PKC_PlotkaProject.h"

#include <ostream>
#include <string>

class SC_Id;
class QString;

/// @name State as text
/// Asked through the public queries of the project.
/// @{

/// Every shot and panel with its project frames, "A 1-36 (1-24 25-36) | B 47-82 (47-82)". A shot's panels are asked
/// frame by frame, so that none hides behind a gap.
std::string framesOf(const PKC_PlotkaProject &project);
/// "16-20 | 31-34"; empty without a transition.
std::string transitionsOf(const PKC_PlotkaProject &project);
/// Every gap between shots or within one, up to the endless one after the last shot: "37-46 | B 50-52 | 83-".
std::string gapsOf(const PKC_PlotkaProject &project);
/// Ids of the shots, panels and transitions that walks reach, in order: "shots 2 5 panels 3 4 6 transitions 7".
std::string walksOf(const PKC_PlotkaProject &project);
/// @}

/// @name What a failed expectation shows
/// @{
void PrintTo(const SC_Id &id, std::ostream *out);
void PrintTo(const QString &text, std::ostream *out);

namespace Plotka
{
void PrintTo(const Shot_t &shot, std::ostream *out);
void PrintTo(const Panel_t &panel, std::ostream *out);
void PrintTo(const Trans_t &transition, std::ostream *out);
void PrintTo(const Space_t &space, std::ostream *out);
void PrintTo(const Clip &clip, std::ostream *out);
void PrintTo(const PanelTrans_t &object, std::ostream *out);
} // namespace Plotka
/// @}
