#pragma once

#include "scene/network/MO_Node.h"

/// A node that does something to the picture.
class PLOTKA_SCENE_EXPORT MO_Module : public MO_Node
{
public:
    using MO_Node::MO_Node;

    void accept(MO_ModuleVisitor &visitor) override;
};
