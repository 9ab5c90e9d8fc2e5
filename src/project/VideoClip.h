#pragma once

#include "project/SharedPtr.h"
#include "project/VideoTrack.h"
#include "scene/base/SC_Id.h"
#include "scene/timeline/AT_FrameBlock.h"

#include <QString>

class PKC_ClipInfo;
class PKC_Tracking;
class TUScene;

namespace Plotka
{

class PLOTKA_EXPORT VideoClipPrivate;

/// One clip of a video track. Follows edits and answers neutrally once its clip has gone, as a Shot_t does.
class PLOTKA_EXPORT VideoClip : public SharedPtr<VideoClipPrivate>
{
public:
    static const VideoClip invalid;

    VideoClip();
    /// Gives the scene the records of a clip that it lacks. Nothing is owned.
    VideoClip(const TUSeqTimedValue *timedValue, const TUScene *scene, const VideoTrack &track);
    /// A copy starts without a remembered block.
    VideoClip(const VideoClip &other);
    VideoClip &operator=(const VideoClip &other);
    virtual ~VideoClip();

    /// @name Identity
    /// @{
    const SC_Id &id() const;
    SC_Id sceneId() const;
    TUScene *symbol() const;
    const VideoTrack &track() const { return m_track; }
    /// Null once the timed value has gone.
    const TUSeqTimedValue *tv() const;

    bool operator==(const VideoClip &other) const { return id() == other.id(); }
    bool operator!=(const VideoClip &other) const { return id() != other.id(); }
    bool operator<(const VideoClip &other) const { return id() < other.id(); }
    /// @}

    /// @name Place
    /// In project frames; 0 once the clip has gone.
    /// @{
    const AT_FrameBlock &frameBlock() const;
    unsigned int firstFrame() const;
    unsigned int lastFrame() const;
    unsigned int objNumOfFrame() const;
    /// @}

    /// The name of its record; when that is empty, the name of the scene's first element, which the record keeps from
    /// then on; else a null text.
    QString name() const;

    /// @name Records
    /// Those of the scene, which owns them. Null once the scene has gone.
    /// @{
    PKC_ClipInfo *clipInfo() const;
    PKC_Tracking *tracking() const;
    /// @}

    /// @name Frame crossings
    /// A clip frame is a position in the inner range of the clip's time warp.
    /// @{
    unsigned int videoClipFrameToProjectFrame(double clipFrame) const;
    double projectFrameToVideoClipFrame(unsigned int projectFrame) const;
    /// @}

private:
    friend class VideoClipProbe;

    void useFrameBlockCache(bool on) const;
    bool isUsingFrameBlockCache() const { return m_useCachedBlock; }

    VideoTrack m_track;
    mutable AT_FrameBlock m_cachedBlock;
    mutable bool m_useCachedBlock = false;
};

} // namespace Plotka
