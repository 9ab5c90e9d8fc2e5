#include "scene/network/MO_Module.h"

#include "scene/network/MO_ModuleVisitor.h"

void MO_Module::accept(MO_ModuleVisitor &visitor)
{
    visitor.visit(*this);
}
