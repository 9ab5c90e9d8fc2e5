#pragma once

#include "scene/network/AT_Attr.h"

/// A yes or no of a module; false at first.
class PLOTKA_SCENE_EXPORT AT_BoolAttr : public AT_Attr
{
public:
    bool value() const { return m_value; }
    void setBool(bool on) override { m_value = on; }

private:
    bool m_value = false;
};
