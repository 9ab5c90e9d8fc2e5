#pragma once

#include "plotka_export.h"
#include "project/SharedPtr.h"
#include "scene/base/SC_Id.h"

#include <QString>

class AT_FrameBlock;
class PKC_SceneInfo;
class TUScene;
class TUSeqTimedValue;

namespace Plotka
{

class ObjectNameHelper;
class PLOTKA_EXPORT ShotPrivate;

/// One shot of the timeline.
///
/// A handle is cheap to copy and looks its place up each time it is asked, so that it follows edits. Once its
/// shot has gone it answers neutral values (frame 0, null, an empty text) and still is "valid": that says only
/// that it was made for a real shot. Frames count from 1 and the last frame belongs to the shot.
class PLOTKA_EXPORT Shot_t : public SharedPtr<ShotPrivate>
{
public:
    /// The shot that is none; a default-constructed handle equals it.
    static const Shot_t invalid;

    Shot_t();
    /// One more handle on the same object; null gives the invalid one.
    explicit Shot_t(ShotPrivate *object) : SharedPtr(object) {}
    /// Nothing is owned. A null scene gives invalidId.
    Shot_t(const TUSeqTimedValue *timedValue, const TUScene *scene, const ObjectNameHelper *nameHelper);
    Shot_t(const Shot_t &);
    Shot_t &operator=(const Shot_t &);
    virtual ~Shot_t();

    /// @name Identity
    /// Handles are compared by object id.
    /// @{
    const SC_Id &id() const;
    /// The key for SC_SceneManager::find; the null id once the shot has gone.
    SC_Id sceneId() const;
    /// Null once the scene has gone.
    TUScene *symbol() const;

    bool operator==(const Shot_t &other) const { return id() == other.id(); }
    bool operator!=(const Shot_t &other) const { return id() != other.id(); }
    bool operator<(const Shot_t &other) const { return id() < other.id(); }
    /// @}

    /// @name Place
    /// In project frames; 0 and the invalid block once the shot has gone.
    /// @{
    const AT_FrameBlock &frameBlock() const;
    unsigned int firstFrame() const;
    unsigned int lastFrame() const;
    unsigned int objNumOfFrame() const;
    /// @}

    /// @name Names
    /// @{
    /// The shot's own name when it is custom, else that of the name helper; a null text without one.
    QString name() const;
    /// The custom name, else "0".
    QString sequenceName() const;
    QString actName() const;
    /// The record of the three names, made when first asked for; null without a scene.
    PKC_SceneInfo *sceneInfo() const;
    /// @}

    /// @name Frame crossings
    /// A shot frame is 1 at the shot's first project frame. Differences are 32-bit unsigned and wrap.
    /// @{
    double projectFrameToShotFrame(unsigned int projectFrame) const;
    /// Cut toward zero; what is not finite gives 0.
    unsigned int shotFrameToProjectFrame(double shotFrame) const;
    /// A *shot* frame, despite the name, in frames of the scene's main timed value: the start of the time warp is
    /// added. Unchanged for an invalid shot and without a time warp.
    unsigned int prjFrameToTvFrame(unsigned int shotFrame) const;
    /// @}
};

} // namespace Plotka
