#include "scene/network/MO_ModuleVisitor.h"

#include "scene/network/MO_ElementModule.h"

MO_AbstractModuleVisitorWithModuleFallback::~MO_AbstractModuleVisitorWithModuleFallback() = default;

void MO_AbstractModuleVisitorWithModuleFallback::visit(MO_Module &) {}

void MO_AbstractModuleVisitorWithModuleFallback::visit(MO_AnimatedModule &module)
{
    visit(static_cast<MO_Module &>(module));
}

void MO_AbstractModuleVisitorWithModuleFallback::visit(MO_ElementModule &module)
{
    visit(static_cast<MO_AnimatedModule &>(module));
}
