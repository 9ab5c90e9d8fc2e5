#include "project/PanelTrans_t.h"

namespace Plotka
{

/// At most one of the two is valid.
struct PanelTrans_t::Body {
    Trans_t transition;
    Panel_t panel;
};

PanelTrans_t::PanelTrans_t() : m_body(std::make_unique<Body>()) {}

PanelTrans_t::PanelTrans_t(const Panel_t &panel) : m_body(std::make_unique<Body>(Body{Trans_t(), panel})) {}

PanelTrans_t::PanelTrans_t(const Trans_t &transition) : m_body(std::make_unique<Body>(Body{transition, Panel_t()})) {}

PanelTrans_t::PanelTrans_t(const PanelTrans_t &other) : m_body(std::make_unique<Body>(*other.m_body)) {}

PanelTrans_t &PanelTrans_t::operator=(const PanelTrans_t &other)
{
    m_body = std::make_unique<Body>(other.isTrans() ? Body{other.trans(), Panel_t()} : Body{Trans_t(), other.panel()});
    return *this;
}

PanelTrans_t::~PanelTrans_t() = default;

const Panel_t &PanelTrans_t::panel() const
{
    return m_body->panel;
}

const Trans_t &PanelTrans_t::trans() const
{
    return m_body->transition;
}

const SC_Id &PanelTrans_t::id() const
{
    return isTrans() ? trans().id() : panel().id();
}

QString PanelTrans_t::name() const
{
    return isTrans() ? trans().name() : panel().name();
}

bool PanelTrans_t::operator==(const PanelTrans_t &other) const
{
    if (isValid() != other.isValid() || isTrans() != other.isTrans())
        return false;
    if (isTrans() && trans() != other.trans())
        return false;
    return panel().isInvalid() || panel() == other.panel();
}

const AT_FrameBlock &PanelTrans_t::frameBlock() const
{
    return isTrans() ? trans().frameBlock() : panel().frameBlock();
}

unsigned int PanelTrans_t::firstFrame() const
{
    return isTrans() ? trans().firstFrame() : panel().firstFrame();
}

unsigned int PanelTrans_t::lastFrame() const
{
    return isTrans() ? trans().lastFrame() : panel().lastFrame();
}

unsigned int PanelTrans_t::objNumOfFrame() const
{
    return lastFrame() + 1 - firstFrame();
}

} // namespace Plotka
