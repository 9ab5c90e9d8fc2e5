#pragma once

#include "plotka_scene_export.h"
#include "scene/base/UT_ShareBase.h"
#include "scene/base/UT_SharedWeakPtr.h"

#include <QString>

#include <memory>
#include <vector>

class MO_ModuleVisitor;
class MO_Port;
class SC_SceneCommon;
class TUGroup;
class TUScene;
class TUSceneChangeManager;

/// A node of a scene's network.
///
/// Groups own their nodes by counted pointers (UT_ShareBase); UT_SharedWeakBase only lets them be watched. The
/// parent is the node above in the hierarchy, a peg for instance, and not the owning group.
class PLOTKA_SCENE_EXPORT MO_Node : public UT_ShareBase, public UT_SharedWeakBase
{
public:
    MO_Node(SC_SceneCommon *sceneCommon, QString keyword, QString instanceName);
    MO_Node(const MO_Node &) = delete;
    MO_Node &operator=(const MO_Node &) = delete;
    ~MO_Node() override;

    /// The scene that the node belongs to; may be null, and is once the scene has died.
    SC_SceneCommon *sceneCommon() const;
    /// The name of the layer; compared exactly.
    const QString &instanceName() const { return m_instanceName; }
    /// Kind of the node, such as "READ" for an element.
    const QString &keyword() const { return m_keyword; }

    /// Null for a node at the top of the hierarchy, and once the parent has died.
    MO_Node *getParentNode() const { return m_parent.get(); }
    /// The group whose direct node this is; null outside of any.
    TUGroup *ownerGroup() const { return m_ownerGroup; }

    /// Null when there is no such port. Port 0 exists on every node but a group.
    MO_Port *inPort(unsigned int index) const;
    MO_Port *outPort() const { return m_outPort.get(); }

    bool isCollapsed() const { return m_collapsed; }
    bool lock() const { return m_locked; }
    virtual bool isEnabled() const { return m_enabled; }

    /// Visits this node only.
    virtual void accept(MO_ModuleVisitor &visitor);

    /// @name Edits
    /// Setting what stands already changes nothing and queues nothing.
    /// @{
    void setInstanceName(const QString &name);
    /// Also connects port 0 to the parent's output; null puts it at the top. False for this node itself, one of its
    /// descendants or a node outside its group.
    bool setParentNode(MO_Node *parent);
    void setLocked(bool locked);
    void setEnabled(bool enabled);
    void setCollapsed(bool collapsed);
    /// @}

protected:
    /// The project's change manager, or null.
    TUSceneChangeManager *changeManager() const;
    /// Tells that the picture of this node changed.
    void queueNodeChanged();

private:
    friend class AT_BoolAttr;
    friend class TUGroup;

    void queueChangeApplied();
    /// Without parent and link from then on. Silent: the group tells of its own.
    void leaveGroup();

    UT_SharedWeakPtr<TUScene> m_scene;
    QString m_keyword;
    QString m_instanceName;
    UT_SharedWeakPtr<MO_Node> m_parent;
    TUGroup *m_ownerGroup = nullptr;
    std::vector<std::unique_ptr<MO_Port>> m_inPorts;
    std::unique_ptr<MO_Port> m_outPort;
    bool m_collapsed = false;
    bool m_locked = false;
    bool m_enabled = true;
};
