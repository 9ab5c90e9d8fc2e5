#include "project/Space_t.h"

namespace Plotka
{

Space_t::Space_t() = default;

Space_t::Space_t(unsigned int firstFrame, unsigned int lastFrame) : m_firstFrame(firstFrame), m_lastFrame(lastFrame) {}

Space_t::Space_t(const Shot_t &shot, unsigned int firstFrame, unsigned int lastFrame) :
    m_shot(shot), m_firstFrame(firstFrame), m_lastFrame(lastFrame)
{
}

Space_t::Space_t(const Space_t &) = default;
Space_t &Space_t::operator=(const Space_t &) = default;
Space_t::~Space_t() = default;

unsigned int Space_t::length() const
{
    if (m_lastFrame == endless)
        return endless;
    return isInvalid() ? 0 : m_lastFrame - m_firstFrame + 1;
}

bool Space_t::operator==(const Space_t &other) const
{
    return m_shot == other.m_shot && m_firstFrame == other.m_firstFrame && m_lastFrame == other.m_lastFrame;
}

} // namespace Plotka
