#pragma once

#include "scene/network/AT_DrawingAttr.h"
#include "scene/network/MO_AnimatedModule.h"

/// A layer that shows what a timed value drives. Elements are exactly of this class, never of one derived from it.
class PLOTKA_SCENE_EXPORT MO_ElementModule final : public MO_AnimatedModule
{
public:
    MO_ElementModule(SC_SceneCommon *sceneCommon, const QString &instanceName);

    /// The type keyword of elements.
    static const QString &Keyword();

    AT_DrawingAttr *drawingAttr() const { return m_drawingAttr.get(); }

    int lineArtDrawingMode() const { return m_lineArtDrawingMode; }
    void setLineArtDrawingMode(int mode);

    void accept(MO_ModuleVisitor &visitor) override;

private:
    std::unique_ptr<AT_DrawingAttr> m_drawingAttr;
    int m_lineArtDrawingMode = 0;
};
