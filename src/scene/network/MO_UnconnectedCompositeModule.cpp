#include "scene/network/MO_UnconnectedCompositeModule.h"

MO_UnconnectedCompositeModule::MO_UnconnectedCompositeModule(SC_SceneCommon *sceneCommon) :
    MO_Module(sceneCommon, Keyword(), QStringLiteral("Unconnected_Composite")),
    m_firstAttribute(std::make_unique<AT_BoolAttr>(*this))
{
}

const QString &MO_UnconnectedCompositeModule::Keyword()
{
    static const QString keyword = QStringLiteral("UNCONNECTED_COMPOSITE");
    return keyword;
}
