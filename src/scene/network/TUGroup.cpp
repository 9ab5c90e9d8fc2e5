#include "scene/network/TUGroup.h"

#include "scene/changes/TUSceneChangeManager.h"
#include "scene/network/MO_Port.h"
#include "scene/project/SC_SceneCommon.h"
#include "scene/project/TUScene.h"

#include <QHash>

#include <algorithm>

namespace
{

bool isRootGroup(const MO_Node &node)
{
    const SC_SceneCommon *scene = node.sceneCommon();
    return scene && scene->scene()->getRootGroup() == &node;
}

} // namespace

TUGroup::TUGroup(SC_SceneCommon *sceneCommon, const QString &instanceName) :
    MO_Node(sceneCommon, Keyword(), instanceName)
{
    m_inPorts.clear();
}

TUGroup::~TUGroup()
{
    // A group that dies with this one hands its nodes over first: one that lies within it would die within its death, and
    // so on as deep as groups stand in one another.
    NodeList leaving;
    const auto release = [&leaving](NodeList &nodes) {
        for (const UT_SharedPtr<MO_Node> &node : nodes)
            node->leaveGroup();
        leaving.splice(leaving.end(), nodes);
    };
    release(m_nodes);
    while (!leaving.empty()) {
        const UT_SharedPtr<MO_Node> node = leaving.front();
        leaving.pop_front();
        if (auto *inner = dynamic_cast<TUGroup *>(node.get()); inner && inner->refCount == 1)
            release(inner->m_nodes);
    }
}

const QString &TUGroup::Keyword()
{
    static const QString keyword = QStringLiteral("GROUP");
    return keyword;
}

std::vector<MO_Node *> TUGroup::compositionOrder() const
{
    QHash<const MO_Node *, std::vector<MO_Node *>> childrenOf;
    for (const UT_SharedPtr<MO_Node> &node : m_nodes)
        childrenOf[node->getParentNode()].push_back(node.get());

    std::vector<MO_Node *> order;
    std::vector<MO_Node *> waiting = childrenOf.value(nullptr);
    std::reverse(waiting.begin(), waiting.end());
    while (!waiting.empty()) {
        MO_Node *const node = waiting.back();
        waiting.pop_back();
        order.push_back(node);
        const std::vector<MO_Node *> children = childrenOf.value(node);
        waiting.insert(waiting.end(), children.rbegin(), children.rend());
    }
    return order;
}

void TUGroup::accept(MO_ModuleVisitor &visitor)
{
    // Held until they are visited: a visitor may edit the group. The next to be visited is the last here.
    std::vector<UT_SharedPtr<MO_Node>> waiting;
    const auto enter = [&waiting](const TUGroup &group) {
        const std::vector<MO_Node *> order = group.compositionOrder();
        waiting.insert(waiting.end(), order.rbegin(), order.rend());
    };
    enter(*this);
    while (!waiting.empty()) {
        const UT_SharedPtr<MO_Node> node = waiting.back();
        waiting.pop_back();
        if (const auto *group = dynamic_cast<const TUGroup *>(node.get()))
            enter(*group);
        else
            node->accept(visitor);
    }
}

bool TUGroup::addNode(const UT_SharedPtr<MO_Node> &node, const MO_Node *before)
{
    if (!node || node->m_ownerGroup || node.get() == this || node->sceneCommon() != sceneCommon() || isRootGroup(*node))
        return false;
    const auto *const group = dynamic_cast<const TUGroup *>(node.get());
    const bool holdsNodes = group && !group->m_nodes.empty(); // else it stands around nothing
    for (const TUGroup *above = ownerGroup(); holdsNodes && above; above = above->ownerGroup()) {
        if (above == group)
            return false;
    }
    const NodeList::iterator place = find(before);
    if (before && place == m_nodes.end())
        return false;
    node->m_ownerGroup = this;
    m_nodes.insert(place, node);
    if (TUSceneChangeManager *changes = changeManager()) {
        changes->emitNetworkChanged(node.get());
        changes->emitSubNetworkChanged(this);
    }
    return true;
}

bool TUGroup::removeNode(MO_Node *node)
{
    const NodeList::iterator place = find(node);
    if (place == m_nodes.end())
        return false;
    const UT_SharedPtr<MO_Node> held = *place;
    for (const UT_SharedPtr<MO_Node> &other : m_nodes) {
        if (other->getParentNode() == node)
            other->setParentNode(nullptr);
    }
    held->leaveGroup();
    m_nodes.erase(place);
    // Only the group: a node that has gone can refresh nobody.
    if (TUSceneChangeManager *changes = changeManager())
        changes->emitSubNetworkChanged(this);
    return true;
}

bool TUGroup::moveNode(MO_Node *node, const MO_Node *before)
{
    const NodeList::iterator from = find(node);
    const NodeList::iterator to = find(before);
    if (from == m_nodes.end() || (before && to == m_nodes.end()) || from == to || std::next(from) == to)
        return false;
    m_nodes.splice(to, m_nodes, from);
    if (TUSceneChangeManager *changes = changeManager()) {
        changes->emitChildrenOrderingChanged(node);
        changes->emitNodeLinksChanged(node);
    }
    return true;
}

TUGroup::NodeList::iterator TUGroup::find(const MO_Node *node)
{
    if (!node)
        return m_nodes.end();
    return std::find_if(
        m_nodes.begin(), m_nodes.end(), [node](const UT_SharedPtr<MO_Node> &held) { return held.get() == node; });
}
