#pragma once

#include "scene/network/AT_BoolAttr.h"
#include "scene/network/MO_Module.h"

/// Gathers the nodes of a scene that nothing else is connected to. Its first attribute is saved and has no
/// effect on the composition.
class PLOTKA_SCENE_EXPORT MO_UnconnectedCompositeModule : public MO_Module
{
public:
    explicit MO_UnconnectedCompositeModule(SC_SceneCommon *sceneCommon);

    static const QString &Keyword();

    AT_BoolAttr *firstAttribute() const { return m_firstAttribute.get(); }

private:
    std::unique_ptr<AT_BoolAttr> m_firstAttribute;
};
