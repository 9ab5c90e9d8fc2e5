#pragma once

#include "plotka_scene_export.h"
#include "scene/base/SC_Id.h"
#include "scene/base/UT_FrameRate.h"
#include "scene/base/UT_IdTable.h"
#include "scene/changes/TUSceneChangeManager.h"
#include "scene/project/SC_SceneManager.h"
#include "scene/project/TUDbSceneData.h"

#include <QPointer>

class TUSeq;

/// What all scenes of a project share.
class PLOTKA_SCENE_EXPORT SC_ProjectCommon
{
public:
    SC_ProjectCommon(const QString &projectDir, const QString &sceneName);
    SC_ProjectCommon(const SC_ProjectCommon &) = delete;
    SC_ProjectCommon &operator=(const SC_ProjectCommon &) = delete;
    ~SC_ProjectCommon();

    SC_SceneManager *sceneManager() const { return &m_sceneManager; }
    /// The session's change manager; null in a project of no session, whose edits then queue nothing.
    TUSceneChangeManager *changeManager() const { return m_changeManager; }
    void setChangeManager(TUSceneChangeManager *manager);
    TUDbSceneData *dbSceneData() const { return &m_dbSceneData; }

    /// Frames per second of the whole project; 24/1 unless set.
    const UT_FrameRate &frameRate() const { return m_frameRate; }
    void setFrameRate(const UT_FrameRate &rate) { m_frameRate = rate; }
    /// Timecode of frame 1, in frames; 0 unless set.
    qint64 startTimecode() const { return m_startTimecode; }
    void setStartTimecode(qint64 frames) { m_startTimecode = frames; }

    /// @name Ids
    /// A number is given out once in the life of a project, also not after its object was deleted.
    /// @{
    /// Ids of a project are greater than 0 and less than this.
    static constexpr qint64 idLimit = qint64(1) << 62;
    /// Null when a file has used the numbers up.
    SC_Id createId();
    qint64 nextId() const { return m_nextId; }
    /// Later ids are greater than @p id.
    void reserveId(const SC_Id &id);
    /// @}

    /// @name Owners of ids
    /// An id belongs to one thing. A scene has two, which it keeps for ever. A transition or a sound has one while it stands
    /// in a timed value, and a block that places a scene has the two of that scene, also when there is none. Null ids
    /// belong to nothing.
    /// @{
    /// True when it belongs to nothing and is one that a project gives out.
    bool isFree(const SC_Id &id) const;
    enum Claim { Free, Placed, Foreign };
    /// Free when a block may place the scene with these ids, Placed when one does already, and Foreign when one of them
    /// belongs to something else or is none that a project gives out. The scene id is null when none is told.
    Claim claimOf(const SC_Id &objectId, const SC_Id &sceneId) const;
    bool isPlaced(const SC_Id &id) const
    {
        const Owner *owner = m_owners.find(id);
        return owner && owner->isPlaced;
    }
    /// @p by is the sequence that places it in a block; null for what stands in none.
    void setPlaced(const SC_Id &objectId, const SC_Id &sceneId, bool placed, const TUSeq *by = nullptr);
    /// The sequence that places the object; null when none does.
    const TUSeq *sequenceOf(const SC_Id &objectId) const;
    /// False, and nothing has changed, when a new scene cannot have these ids.
    bool takeForScene(const SC_Id &objectId, const SC_Id &sceneId);
    /// @}

private:
    struct Owner {
        SC_Id objectId;
        SC_Id sceneId;        // null for what has one id
        bool isScene = false; // also of a scene that has gone
        bool isPlaced = false;
        const TUSeq *placedBy = nullptr; // not owned: it tells before it goes
    };

    mutable SC_SceneManager m_sceneManager;
    mutable TUDbSceneData m_dbSceneData;
    QPointer<TUSceneChangeManager> m_changeManager;
    UT_FrameRate m_frameRate;
    qint64 m_startTimecode = 0;
    qint64 m_nextId = 1;
    UT_IdTable<Owner> m_owners;
};
