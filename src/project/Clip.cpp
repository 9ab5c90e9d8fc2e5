#include "project/Clip.h"

#include "scene/base/UT_Numbers.h"

namespace Plotka
{

/// At most one of the two is valid.
struct Clip::Body {
    Panel_t panel;
    VideoClip videoClip;
};

Clip::Clip() : m_body(std::make_unique<Body>()) {}

Clip::Clip(const Panel_t &panel) : m_body(std::make_unique<Body>(Body{panel, VideoClip()})) {}

Clip::Clip(const VideoClip &videoClip) : m_body(std::make_unique<Body>(Body{Panel_t(), videoClip})) {}

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
