#pragma once

#include "interchange/otio/OtioNode_p.h"
#include "interchange/otio/OtioPlan.h"

#include <vector>

class ImportNotes;

/// What the timeline has from left to right; Nothing is an item or gap that lasts no frame and is left out.
struct OtioStretch {
    enum Kind { Shot, Gap, Transition, Nothing };

    Kind kind = Gap;
    unsigned int shot = 0;          ///< index in the plan, of a shot
    const OtioNode *node = nullptr; ///< of a transition
    OtioTime cut;                   ///< where a transition stands
};

/// Adds the transitions of @p stretches to @p plan, whose shots stand between their cuts so far, and
/// lets the shots grow under them.
///
/// A transition covers the frames from `cut - in_offset` up to, not including, `cut + out_offset`,
/// each rounded. It reaches into the earlier shot no further than the transition before it, or where
/// there is none, than the shot's second frame; into the later shot no further than its last but
/// one. What reaches further is shortened on that side; what joins no two shots is left out. Where an item beside a
/// transition is left out, the cut stands between the shots that now touch there, and the transition joins those.
void addTransitions(const std::vector<OtioStretch> &stretches, OtioPlan &plan, ImportNotes &notes);
