#pragma once

#include "scene/base/UT_SharedPtr.h"
#include "scene/network/MO_Node.h"

#include <list>

/// A group of nodes, itself a node. It owns its direct nodes by counted pointers.
class PLOTKA_SCENE_EXPORT TUGroup : public MO_Node
{
public:
    using NodeList = std::list<UT_SharedPtr<MO_Node>>;

    TUGroup(SC_SceneCommon *sceneCommon, const QString &instanceName);
    ~TUGroup() override;

    static const QString &Keyword();

    NodeList::const_iterator subNodesBegin() const { return m_nodes.begin(); }
    NodeList::const_iterator subNodesEnd() const { return m_nodes.end(); }

    /// The direct nodes depth-first: those without a parent in group order, each followed by its children.
    std::vector<MO_Node *> compositionOrder() const;

    /// Visits every module of the network in composition order, nested groups included.
    void accept(MO_ModuleVisitor &visitor) override;

    /// @name Edits
    /// @p before is a direct node of this group, null means the end. False when it is not, or when nothing would change.
    /// @{
    /// The node is of the same scene, in no group yet, and not a group around this one.
    bool addNode(const UT_SharedPtr<MO_Node> &node, const MO_Node *before = nullptr);
    /// The children of the node move to the top of the hierarchy.
    bool removeNode(MO_Node *node);
    bool moveNode(MO_Node *node, const MO_Node *before);
    /// @}

private:
    NodeList::iterator find(const MO_Node *node);

    NodeList m_nodes;
};
