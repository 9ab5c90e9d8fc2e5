#pragma once

#include "plotka_scene_export.h"
#include "scene/base/SC_Id.h"

class AT_FrameBlock;
class AT_TimeWarpSeq;
class AT_TransitionSeq;
class SC_SceneManager;
class TUScene;
class TUSeqTimedValue;

/// What a block shows: a placed scene, a transition, or something else.
///
/// Views tell which; each is null when the sequence is not of that nature. A sequence is
/// counted by the blocks that hold it, copies of blocks included, and dies with the last.
class PLOTKA_SCENE_EXPORT TUSeq
{
public:
    TUSeq() = default;
    explicit TUSeq(SC_Id sequenceId) : id(sequenceId) {}
    TUSeq(const TUSeq &) = delete;
    TUSeq &operator=(const TUSeq &) = delete;
    virtual ~TUSeq();

    /// Null for a sequence that is neither a scene nor a transition.
    const SC_Id id{};

    /// Carries the object id of the block that places a scene.
    virtual const TUSeq *identifiedSeq() const { return nullptr; }
    /// Carries the scene id, the key for SC_SceneManager::find.
    virtual const TUSeq *sceneSeq() const { return nullptr; }
    /// Carries the object id of a transition.
    virtual const AT_TransitionSeq *transitionView() const { return nullptr; }
    /// Shows an inner range of a scene.
    virtual const AT_TimeWarpSeq *timeWarpView() const { return nullptr; }

    /// The id of the object that a block with this sequence places: that of the identified view,
    /// else of the transition view, else null.
    const SC_Id &objectId() const;

    /// The timed value that holds the sequence; null when none does.
    TUSeqTimedValue *timedValue() const { return m_timedValue; }

    /// One more holder, one less; the last one out deletes. Nobody lets go who has not held: that is asserted, and else
    /// without effect.
    virtual void hold() const { ++m_holders; }
    virtual void letGo() const;

private:
    friend class TUSeqTimedValue;
    friend TUScene *sceneOfBlock(const SC_SceneManager *manager, const AT_FrameBlock &block);

    TUSeqTimedValue *m_timedValue = nullptr;
    mutable quint32 m_place = 0; // of its block in the timed value, when last looked for
    mutable unsigned int m_holders = 0;
    // The scene that was last found by the id of this view, good while no scene dies.
    mutable TUScene *m_scene = nullptr;
    mutable quint64 m_sceneFoundAt = 0;
};
