#include "scene/network/MO_Node.h"

#include "scene/changes/TUSceneChangeManager.h"
#include "scene/network/MO_ModuleVisitor.h"
#include "scene/network/MO_Port.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_ProjectCommon.h"
#include "scene/project/SC_SceneCommon.h"
#include "scene/project/TUScene.h"

#include <utility>

MO_Node::MO_Node(SC_SceneCommon *sceneCommon, QString keyword, QString instanceName) :
    m_scene(sceneCommon ? sceneCommon->scene() : nullptr), m_keyword(std::move(keyword)),
    m_instanceName(std::move(instanceName)), m_outPort(std::make_unique<MO_Port>(this))
{
    m_inPorts.push_back(std::make_unique<MO_Port>(this));
}

MO_Node::~MO_Node() = default;

SC_SceneCommon *MO_Node::sceneCommon() const
{
    const TUScene *scene = m_scene.get();
    return scene ? scene->sceneCommon() : nullptr;
}

MO_Port *MO_Node::inPort(unsigned int index) const
{
    return index < m_inPorts.size() ? m_inPorts[index].get() : nullptr;
}

void MO_Node::accept(MO_ModuleVisitor &) {}

void MO_Node::setInstanceName(const QString &name)
{
    if (name == m_instanceName)
        return;
    m_instanceName = name;
    if (TUSceneChangeManager *changes = changeManager())
        changes->emitNodeInstanceNameChanged(this);
}

bool MO_Node::setParentNode(MO_Node *parent)
{
    if (parent == m_parent.get())
        return true;
    if (parent && (!m_ownerGroup || parent->m_ownerGroup != m_ownerGroup))
        return false;
    for (const MO_Node *above = parent; above; above = above->getParentNode()) {
        if (above == this)
            return false;
    }
    m_parent = parent;
    if (MO_Port *port = inPort(0))
        port->connect(parent ? parent->outPort() : nullptr);
    if (TUSceneChangeManager *changes = changeManager()) {
        changes->emitChildrenOrderingChanged(this);
        changes->emitNodeLinksChanged(this);
    }
    return true;
}

void MO_Node::leaveGroup()
{
    m_ownerGroup = nullptr;
    m_parent = nullptr;
    if (MO_Port *port = inPort(0))
        port->feedFrom(nullptr);
}

void MO_Node::setLocked(bool locked)
{
    if (std::exchange(m_locked, locked) != locked)
        queueChangeApplied();
}

void MO_Node::setCollapsed(bool collapsed)
{
    if (std::exchange(m_collapsed, collapsed) != collapsed)
        queueChangeApplied();
}

void MO_Node::setEnabled(bool enabled)
{
    if (std::exchange(m_enabled, enabled) != enabled)
        queueNodeChanged();
}

TUSceneChangeManager *MO_Node::changeManager() const
{
    const SC_SceneCommon *scene = sceneCommon();
    return scene ? scene->projectCommon()->changeManager() : nullptr;
}

void MO_Node::queueNodeChanged()
{
    if (TUSceneChangeManager *changes = changeManager())
        changes->emitNodeChanged(this);
    queueChangeApplied();
}

void MO_Node::queueChangeApplied()
{
    if (TUSceneChangeManager *changes = changeManager())
        changes->emitNodeChangeApplied(this);
}
