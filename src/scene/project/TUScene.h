#pragma once

#include "scene/base/SC_Id.h"
#include "scene/base/UT_SharedPtr.h"
#include "scene/base/UT_SharedWeakBase.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "scene/project/SC_SceneBase.h"
#include "scene/project/SC_SceneCommon.h"

#include <QString>

#include <memory>
#include <vector>

class MO_UnconnectedCompositeModule;
class SC_Project;
class TUGroup;
class TUSeqTimedValue;
class TUSoundTimedValue;
class TUTimedValue;

/// A scene: what a shot, a panel or a video clip is made of. It has two ids, the object id of the block that
/// places it and the scene id by which SC_SceneManager finds it. Its project makes, owns and deletes it.
class PLOTKA_SCENE_EXPORT TUScene : public SC_SceneBase, public UT_SharedWeakBase
{
public:
    ~TUScene() override;

    const SC_Id &objectId() const { return m_objectId; }
    const SC_Id &sceneId() const { return m_sceneId; }

    /// In an order that only moveTimedValue changes. The first sequence timed value is the scene's main one.
    const std::vector<TUTimedValue *> &timedValues() const { return m_timedValues; }
    PIO_Metadatas *metadatas() const { return &m_metadatas; }
    SC_SceneCommon *sceneCommon() const { return &m_sceneCommon; }
    SC_ProjectCommon *projectCommon() const { return m_sceneCommon.projectCommon(); }
    /// The name of the root group of a new scene.
    static QString rootName();
    /// Never null here; callers stand null all the same.
    TUGroup *getRootGroup() const;
    /// Null but for the top scene.
    MO_UnconnectedCompositeModule *unconnectedComposite() const;

    /// @name Edits
    /// @{
    TUSeqTimedValue *addSeqTimedValue(const QString &name);
    TUSoundTimedValue *addSoundTimedValue(const QString &name);
    /// Deletes the timed value at once; the scenes that it placed stay. False when it is not of this scene.
    bool removeTimedValue(TUTimedValue *timedValue);
    /// Puts the timed value before @p before, null meaning last.
    bool moveTimedValue(TUTimedValue *timedValue, TUTimedValue *before);
    /// Makes the composite when there is none.
    MO_UnconnectedCompositeModule *addUnconnectedComposite();
    /// @}

private:
    friend class SC_Project;

    TUScene(SC_ProjectCommon *projectCommon, SC_Id objectId, SC_Id sceneId);

    template <typename T>
    T *addTimedValue(const QString &name);

    SC_Id m_objectId;
    SC_Id m_sceneId;
    mutable SC_SceneCommon m_sceneCommon;
    mutable PIO_Metadatas m_metadatas;
    std::vector<TUTimedValue *> m_timedValues;
    UT_SharedPtr<TUGroup> m_rootGroup;
    UT_SharedPtr<MO_UnconnectedCompositeModule> m_unconnectedComposite;
};
