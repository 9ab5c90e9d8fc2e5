#include "project/Clip.h"

#include "layers/PKC_LayerInfos.h"
#include "metadata/PKC_ExposurePoints.h"
#include "project/RecordAccesses_p.h"
#include "scene/base/UT_Numbers.h"
#include "scene/project/TUScene.h"

namespace Plotka
{

/// At most one of the two handles is valid.
struct Clip::Body {
    Body() = default;
    Body(const Panel_t &onePanel, const VideoClip &oneVideoClip) : panel(onePanel), videoClip(oneVideoClip)
    {
        records.complete(container(), ClipRecordsKind);
    }
    Body(const Body &other) : Body(other.panel, other.videoClip) {}
    /// Adds no records.
    Body &operator=(const Body &other)
    {
        panel = other.panel;
        videoClip = other.videoClip;
        records = RecordAccesses<PKC_LayerInfos, PKC_ExposurePoints>();
        return *this;
    }

    /// Null once the scene has gone.
    PIO_Metadatas *container() const
    {
        const TUScene *const shown = panel.symbol() ? panel.symbol() : videoClip.symbol();
        return shown ? shown->metadatas() : nullptr;
    }

    template <typename Record>
    Record *record()
    {
        PIO_Metadatas *const known = container();
        return known ? records.get<Record>(known) : nullptr;
    }

    Panel_t panel;
    VideoClip videoClip;
    // In the order in which they are made.
    RecordAccesses<PKC_LayerInfos, PKC_ExposurePoints> records;
};

Clip::Clip() : m_body(std::make_unique<Body>()) {}

Clip::Clip(const Panel_t &panel) : m_body(std::make_unique<Body>(panel, VideoClip())) {}

Clip::Clip(const VideoClip &videoClip) : m_body(std::make_unique<Body>(Panel_t(), videoClip)) {}

Clip::Clip(const Clip &other) : m_body(std::make_unique<Body>(*other.m_body)) {}

Clip &Clip::operator=(const Clip &other)
{
    *m_body = *other.m_body;
    return *this;
}

Clip &Clip::operator=(const Panel_t &panel)
{
    return *this = Clip(panel);
}

Clip &Clip::operator=(const VideoClip &videoClip)
{
    return *this = Clip(videoClip);
}

Clip::~Clip() = default;

bool Clip::isValid() const
{
    return isPanel() ? panel().isValid() : videoClip().isValid();
}

bool Clip::isPanel() const
{
    return panel().id() != Panel_t::invalid.id();
}

bool Clip::isVideoClip() const
{
    return videoClip().id() != VideoClip::invalid.id();
}

const Panel_t &Clip::panel() const
{
    return m_body->panel;
}

const VideoClip &Clip::videoClip() const
{
    return m_body->videoClip;
}

const SC_Id &Clip::id() const
{
    return isPanel() ? panel().id() : videoClip().id();
}

SC_Id Clip::sceneId() const
{
    return isPanel() ? panel().sceneId() : videoClip().sceneId();
}

TUScene *Clip::symbol() const
{
    return isPanel() ? panel().symbol() : videoClip().symbol();
}

QString Clip::name() const
{
    return isPanel() ? panel().name() : videoClip().name();
}

bool Clip::operator==(const Clip &other) const
{
    if (isValid() != other.isValid() || isPanel() != other.isPanel())
        return false;
    if (isPanel() && panel() != other.panel())
        return false;
    return videoClip().isInvalid() || videoClip() == other.videoClip();
}

bool Clip::operator==(const Panel_t &other) const
{
    return panel() == other;
}

bool Clip::operator==(const VideoClip &other) const
{
    return videoClip() == other;
}

unsigned int Clip::firstFrame() const
{
    return isPanel() ? panel().firstFrame() : videoClip().firstFrame();
}

unsigned int Clip::lastFrame() const
{
    return isPanel() ? panel().lastFrame() : videoClip().lastFrame();
}

unsigned int Clip::objNumOfFrame() const
{
    return lastFrame() + 1 - firstFrame();
}

bool Clip::isInRange(unsigned int projectFrame) const
{
    if (!isPanel())
        return videoClip().frameBlock().isInRange(projectFrame);
    return panel().frameBlock().isInRange(panel().shot().projectFrameToShotFrame(projectFrame));
}

PKC_LayerInfos *Clip::layerInfos() const
{
    return m_body->record<PKC_LayerInfos>();
}

PKC_ExposurePoints *Clip::exposurePoints() const
{
    return m_body->record<PKC_ExposurePoints>();
}

unsigned int Clip::clipFrameToProjectFrame(double clipFrame) const
{
    return isPanel() ? panel().panelFrameToProjectFrame(clipFrame)
                     : videoClip().videoClipFrameToProjectFrame(clipFrame);
}

unsigned int Clip::projectFrameToClipFrame(unsigned int projectFrame) const
{
    return UT_Numbers::toFrame(isPanel() ? panel().projectFrameToPanelFrame(projectFrame)
                                         : videoClip().projectFrameToVideoClipFrame(projectFrame));
}

} // namespace Plotka
