#include "scene/network/MO_ElementModule.h"

#include "scene/network/MO_ModuleVisitor.h"

#include <utility>

MO_ElementModule::MO_ElementModule(SC_SceneCommon *sceneCommon, const QString &instanceName) :
    MO_AnimatedModule(sceneCommon, Keyword(), instanceName), m_drawingAttr(std::make_unique<AT_DrawingAttr>())
{
}

const QString &MO_ElementModule::Keyword()
{
    static const QString keyword = QStringLiteral("READ");
    return keyword;
}

void MO_ElementModule::setLineArtDrawingMode(int mode)
{
    if (std::exchange(m_lineArtDrawingMode, mode) != mode)
        queueNodeChanged();
}

void MO_ElementModule::accept(MO_ModuleVisitor &visitor)
{
    visitor.visit(*this);
}
