#pragma once

#include "support/Storyboard.h"

#include <functional>
#include <string>
#include <vector>

/// One random edit. Operands are raw numbers that each edit folds onto whatever
/// exists when it runs, so any subset of a script is again a valid script.
struct Edit {
    enum Kind {
        AddShot,
        PlaceShot,
        LiftShot,
        MoveShots,
        TrimShot,
        AddPanel,
        PlacePanel,
        SetPanelLength,
        RemovePanel,
        LiftPanel,
        RollPanels,
        AddTransition,
        RemoveTransition,
        WarpShot,
        WarpPanel,
        DeleteShotScene,
        DeletePanelScene,
        DeletePanelTrack,
        KindCount
    };

    Kind kind;
    unsigned int where;
    unsigned int value;
};

using Script = std::vector<Edit>;

Script randomScript(unsigned int seed, int length);

/// Makes the edit, or nothing when the scenes refuse it.
bool apply(const Edit &edit, Storyboard &board);

/// The smallest script found, by leaving out ever shorter runs, that still fails.
Script shrink(Script script, const std::function<bool(const Script &)> &fails);

/// As C++, to be pasted into a test.
std::string toString(const Script &script);
