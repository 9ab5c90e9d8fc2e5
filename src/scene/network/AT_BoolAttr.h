#pragma once

#include "scene/network/AT_Attr.h"

class MO_Node;

/// A yes or no of a module; false at first.
class PLOTKA_SCENE_EXPORT AT_BoolAttr : public AT_Attr
{
public:
    /// @p node has the attribute and outlives it.
    explicit AT_BoolAttr(MO_Node &node);

    bool value() const { return m_value; }
    /// Tells that the node changed, unless the value stands already.
    void setBool(bool on) override;

private:
    MO_Node &m_node;
    bool m_value = false;
};
