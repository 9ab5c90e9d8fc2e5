#include "scene/network/MO_Port.h"

#include "scene/changes/TUSceneChangeManager.h"
#include "scene/network/MO_Node.h"
#include "scene/project/SC_ProjectCommon.h"
#include "scene/project/SC_SceneCommon.h"

MO_Port *MO_Port::realSrcPort() const
{
    const MO_Node *source = m_source.get();
    return source ? source->outPort() : nullptr;
}

bool MO_Port::connect(MO_Port *source)
{
    MO_Node *const sourceNode = source ? source->node() : nullptr;
    if (sourceNode == m_source.get() || sourceNode == m_node || m_node->outPort() == this)
        return false;
    if (source && sourceNode->outPort() != source)
        return false;
    MO_Node *const previous = m_source.get();
    feedFrom(sourceNode);
    const SC_SceneCommon *scene = m_node->sceneCommon();
    if (TUSceneChangeManager *changes = scene ? scene->projectCommon()->changeManager() : nullptr) {
        changes->emitNodeLinksChanged(m_node);
        changes->emitNodeLinksChanged(sourceNode);
        changes->emitNodeLinksChanged(previous);
    }
    return true;
}

void MO_Port::feedFrom(MO_Node *sourceNode)
{
    m_source = sourceNode;
}
