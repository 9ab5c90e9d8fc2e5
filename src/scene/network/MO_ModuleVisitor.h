#pragma once

#include "plotka_scene_export.h"

class MO_AnimatedModule;
class MO_ElementModule;
class MO_Module;
class MO_Node;

/// Every kind of module falls back to the one it is derived from: an element to the animated module, that
/// one to the module, and a module does nothing.
class PLOTKA_SCENE_EXPORT MO_AbstractModuleVisitorWithModuleFallback
{
public:
    virtual ~MO_AbstractModuleVisitorWithModuleFallback();

    virtual void visit(MO_Module &module);
    virtual void visit(MO_AnimatedModule &module);
    virtual void visit(MO_ElementModule &module);
};

/// What walks over the modules of a network; TUGroup::accept takes it through all of them.
class PLOTKA_SCENE_EXPORT MO_ModuleVisitor : public MO_AbstractModuleVisitorWithModuleFallback
{
};
