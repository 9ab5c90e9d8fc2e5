#pragma once

#include "plotka_scene_export.h"
#include "scene/base/SC_Id.h"
#include "scene/base/UT_FrameRate.h"
#include "scene/changes/TUSceneChangeManager.h"
#include "scene/session/SC_SceneManager.h"
#include "scene/session/TUDbSceneData.h"

#include <QPointer>
#include <QSet>

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
    /// Null when a file has used the numbers up.
    SC_Id createId();
    qint64 nextId() const { return m_nextId; }
    /// Later ids are greater than @p id.
    void reserveId(const SC_Id &id);
    /// @}

    /// @name Places
    /// Ids of the scenes, transitions and sounds that stand in a timed value; each stands in one.
    /// @{
    bool isPlaced(const SC_Id &id) const { return m_placed.contains(id.value()); }
    void setPlaced(const SC_Id &id, bool placed);
    /// @}

private:
    mutable SC_SceneManager m_sceneManager;
    mutable TUDbSceneData m_dbSceneData;
    QPointer<TUSceneChangeManager> m_changeManager;
    UT_FrameRate m_frameRate;
    qint64 m_startTimecode = 0;
    qint64 m_nextId = 1;
    QSet<qint64> m_placed;
};
