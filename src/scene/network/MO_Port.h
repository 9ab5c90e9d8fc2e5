#pragma once

#include "plotka_scene_export.h"
#include "scene/base/UT_SharedWeakPtr.h"

class MO_Node;

/// A port of a node. An in port is fed by at most one out port, the one of its source node.
class PLOTKA_SCENE_EXPORT MO_Port
{
public:
    explicit MO_Port(MO_Node *node) : m_node(node) {}
    MO_Port(const MO_Port &) = delete;
    MO_Port &operator=(const MO_Port &) = delete;

    /// The node that the port belongs to.
    MO_Node *node() const { return m_node; }
    /// The out port that feeds this one; null when unconnected and once its node has died.
    MO_Port *realSrcPort() const;

    /// Feeds this in port from the out port @p source; null disconnects. Queues the changed links of both nodes
    /// and of the one that fed it before. False when nothing changes, and for what is no way from an out port to
    /// an in port of another node.
    bool connect(MO_Port *source);
    bool disconnect() { return connect(nullptr); }

private:
    friend class MO_Node;

    /// The same without news.
    void feedFrom(MO_Node *sourceNode);

    MO_Node *m_node;
    UT_SharedWeakPtr<MO_Node> m_source;
};
