#include "scene/network/MO_AnimatedModule.h"

#include "scene/network/MO_ModuleVisitor.h"

#include <utility>

void MO_AnimatedModule::setCameraAlignment(AT_Enums::CameraAlignment alignment)
{
    if (std::exchange(m_cameraAlignment, alignment) != alignment)
        queueNodeChanged();
}

void MO_AnimatedModule::accept(MO_ModuleVisitor &visitor)
{
    visitor.visit(*this);
}
