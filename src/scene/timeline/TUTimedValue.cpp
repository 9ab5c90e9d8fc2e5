#include "scene/timeline/TUTimedValue.h"

#include "scene/changes/TUSceneChangeManager.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/project/SC_ProjectCommon.h"
#include "scene/project/SC_SceneCommon.h"

#include <algorithm>
#include <utility>

TUTimedValue::TUTimedValue(SC_SceneCommon *sceneCommon, QString name) :
    m_name(std::move(name)), m_sceneCommon(sceneCommon)
{
}

MO_Node *TUTimedValue::linkedNodes(unsigned int index) const
{
    for (const UT_SharedWeakPtr<MO_Node> &node : m_linkedNodes) {
        if (node && index-- == 0)
            return node.get();
    }
    return nullptr;
}

std::vector<MO_Node *> TUTimedValue::linkedNodes() const
{
    std::vector<MO_Node *> nodes;
    for (const UT_SharedWeakPtr<MO_Node> &node : m_linkedNodes) {
        if (node)
            nodes.push_back(node.get());
    }
    return nodes;
}

void TUTimedValue::setName(const QString &name)
{
    if (name == m_name)
        return;
    m_name = name;
    if (TUSceneChangeManager *changes = changeManager())
        changes->emitTimedValueNameChanged(this);
}

bool TUTimedValue::linkNode(MO_Node *node)
{
    MO_ElementModule *const element = dynamic_cast<MO_ElementModule *>(node);
    const SC_SceneCommon *scene = element ? element->sceneCommon() : nullptr;
    if (!scene || scene->projectCommon() != projectCommon() || element->drawingAttr()->linkedTimedValue() == this)
        return false;
    if (TUTimedValue *previous = element->drawingAttr()->linkedTimedValue())
        previous->unlinkNode(element);
    element->drawingAttr()->m_linkedTimedValue = this;
    if (m_linkedNodes.size() == m_linkedNodes.capacity())
        makeRoomForLinks();
    m_linkedNodes.emplace_back(node);
    if (TUSceneChangeManager *changes = changeManager())
        changes->emitNodeChanged(node);
    return true;
}

bool TUTimedValue::unlinkNode(MO_Node *node)
{
    const auto place = std::find_if(m_linkedNodes.begin(), m_linkedNodes.end(),
        [node](const UT_SharedWeakPtr<MO_Node> &linked) { return node && linked.get() == node; });
    if (place == m_linkedNodes.end())
        return false;
    m_linkedNodes.erase(place);
    static_cast<MO_ElementModule *>(node)->drawingAttr()->m_linkedTimedValue = nullptr;
    if (TUSceneChangeManager *changes = changeManager())
        changes->emitNodeChanged(node);
    return true;
}

/// Nodes that have died are forgotten now and then, not at every link: what then stands may double first.
void TUTimedValue::makeRoomForLinks()
{
    m_linkedNodes.erase(std::remove_if(m_linkedNodes.begin(), m_linkedNodes.end(),
                            [](const UT_SharedWeakPtr<MO_Node> &linked) { return !linked; }),
        m_linkedNodes.end());
    m_linkedNodes.reserve(2 * m_linkedNodes.size() + 1);
}

SC_ProjectCommon *TUTimedValue::projectCommon() const
{
    return m_sceneCommon ? m_sceneCommon->projectCommon() : nullptr;
}

TUSceneChangeManager *TUTimedValue::changeManager() const
{
    const SC_ProjectCommon *project = projectCommon();
    return project ? project->changeManager() : nullptr;
}
