#pragma once

#include "plotka_scene_export.h"
#include "scene/base/UT_SharedWeakPtr.h"

#include <QString>

#include <vector>

class MO_Node;
class SC_ProjectCommon;
class SC_SceneCommon;
class TUSceneChangeManager;

/// Something of a scene that runs over frames: a sequence of blocks or sounds.
///
/// A scene owns its timed values. Edits queue their news on the project's change manager, if there is one.
class PLOTKA_SCENE_EXPORT TUTimedValue : public UT_SharedWeakBase
{
public:
    enum Kind { SequenceKind = 0, SoundKind = 1 };

    TUTimedValue(SC_SceneCommon *sceneCommon, QString name);
    TUTimedValue(const TUTimedValue &) = delete;
    TUTimedValue &operator=(const TUTimedValue &) = delete;

    virtual int timedValueKind() const = 0;

    const QString &getName() const { return m_name; }
    /// The scene that the timed value belongs to.
    SC_SceneCommon *sceneCommon() const { return m_sceneCommon; }

    /// The n-th node linked to this timed value, in the order of linking; null past the end.
    MO_Node *linkedNodes(unsigned int index) const;
    /// All of them in that order.
    std::vector<MO_Node *> linkedNodes() const;

    /// @name Edits
    /// @{
    void setName(const QString &name);
    /// Makes this timed value drive @p node, an element of the same project, in both directions; an element is driven
    /// by one timed value at a time. False for null, for what is no such element, and for a link that stands.
    bool linkNode(MO_Node *node);
    /// False when @p node is not linked to this timed value.
    bool unlinkNode(MO_Node *node);
    /// @}

protected:
    /// Null without a scene, and ids then have no home: such a timed value takes no sequence and no sound.
    SC_ProjectCommon *projectCommon() const;
    /// The project's change manager, or null.
    TUSceneChangeManager *changeManager() const;

private:
    void makeRoomForLinks();

    QString m_name;
    SC_SceneCommon *m_sceneCommon;
    std::vector<UT_SharedWeakPtr<MO_Node>> m_linkedNodes;
};
