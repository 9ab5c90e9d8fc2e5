#pragma once

#include "plotka_scene_export.h"

/// Base of the attributes of a module.
class PLOTKA_SCENE_EXPORT AT_Attr
{
public:
    AT_Attr() = default;
    AT_Attr(const AT_Attr &) = delete;
    AT_Attr &operator=(const AT_Attr &) = delete;
    virtual ~AT_Attr();

    /// Sets an attribute that is a yes or no; others ignore it.
    virtual void setBool(bool on);
};
