#pragma once

#include "plotka_scene_export.h"

/// Base of objects that are held by counted pointers (UT_SharedPtr and others).
///
/// The count is a plain integer: everything here is used from one thread. It belongs to the object
/// and never travels with a copy: a copy starts at 0 and assignment leaves the target's count alone.
class PLOTKA_SCENE_EXPORT UT_ShareBase
{
public:
    UT_ShareBase() = default;
    UT_ShareBase(const UT_ShareBase &) noexcept {}
    UT_ShareBase &operator=(const UT_ShareBase &) noexcept { return *this; }
    virtual ~UT_ShareBase();

    /// Number of holders; whoever takes it to 0 deletes the object.
    int refCount = 0;
};
