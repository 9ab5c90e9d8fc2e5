// The handles that are none, in one source and in the order of their dependence.

#include "project/Clip.h"
#include "project/PanelTrans_t.h"
#include "project/Space_t.h"

namespace Plotka
{

const Shot_t Shot_t::invalid;
const Panel_t Panel_t::invalid;
const Trans_t Trans_t::invalid;
const VideoTrack VideoTrack::invalid;
const VideoClip VideoClip::invalid;
const Space_t Space_t::invalid;
const Clip Clip::invalid;
const PanelTrans_t PanelTrans_t::invalid;

} // namespace Plotka
