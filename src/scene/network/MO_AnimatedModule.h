#pragma once

#include "scene/network/AT_Enums.h"
#include "scene/network/MO_Module.h"

/// A module that can move.
class PLOTKA_SCENE_EXPORT MO_AnimatedModule : public MO_Module
{
public:
    using MO_Module::MO_Module;

    AT_Enums::CameraAlignment cameraAlignment() const { return m_cameraAlignment; }
    void setCameraAlignment(AT_Enums::CameraAlignment alignment);

    void accept(MO_ModuleVisitor &visitor) override;

private:
    AT_Enums::CameraAlignment m_cameraAlignment = AT_Enums::NoAlignment;
};
