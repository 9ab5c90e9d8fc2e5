#pragma once

#include "project/Panel_t.h"
#include "project/VideoClip.h"

#include <memory>

class PKC_ExposurePoints;
class PKC_LayerInfos;

namespace Plotka
{

/// A panel or a video clip.
class PLOTKA_EXPORT Clip
{
public:
    static const Clip invalid;

    Clip();
    Clip(const Panel_t &panel);
    Clip(const VideoClip &videoClip);
    Clip(const Clip &other);
    Clip &operator=(const Clip &other);
    Clip &operator=(const Panel_t &panel);
    Clip &operator=(const VideoClip &videoClip);
    virtual ~Clip();

    bool isValid() const;
    bool isInvalid() const { return !isValid(); }
    bool isPanel() const;
    bool isVideoClip() const;

    /// The invalid handle when it is not of that kind.
    const Panel_t &panel() const;
    const VideoClip &videoClip() const;

    /// @name Identity
    /// Those of the panel or the video clip.
    /// @{
    const SC_Id &id() const;
    SC_Id sceneId() const;
    TUScene *symbol() const;
    QString name() const;

    bool operator==(const Clip &other) const;
    bool operator!=(const Clip &other) const { return !(*this == other); }
    bool operator==(const Panel_t &other) const;
    bool operator!=(const Panel_t &other) const { return !(*this == other); }
    bool operator==(const VideoClip &other) const;
    bool operator!=(const VideoClip &other) const { return !(*this == other); }
    /// @}

    /// @name Place
    /// In project frames.
    /// @{
    unsigned int firstFrame() const;
    unsigned int lastFrame() const;
    /// lastFrame() + 1 - firstFrame().
    unsigned int objNumOfFrame() const;
    bool isInRange(unsigned int projectFrame) const;
    /// @}

    /// @name Records
    /// Those of the panel's or the video clip's scene, which owns them; making a Clip adds them when they are
    /// missing. Null once the scene has gone.
    /// @{
    PKC_LayerInfos *layerInfos() const;
    PKC_ExposurePoints *exposurePoints() const;
    /// @}

    unsigned int clipFrameToProjectFrame(double clipFrame) const;
    /// Cut toward zero.
    unsigned int projectFrameToClipFrame(unsigned int projectFrame) const;

private:
    struct Body;
    std::unique_ptr<Body> m_body;
};

} // namespace Plotka
