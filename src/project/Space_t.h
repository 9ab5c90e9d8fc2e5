#pragma once

#include "project/Shot_t.h"

namespace Plotka
{

/// A gap: a range of project frames without a block, between shots or within one. Nothing stores gaps.
class PLOTKA_EXPORT Space_t
{
public:
    /// From 1 to 0.
    static const Space_t invalid;
    /// The last frame of a gap without end.
    static constexpr unsigned int endless = 0xFFFFFFFF;

    Space_t();
    /// A gap between shots; the last frame belongs to it.
    Space_t(unsigned int firstFrame, unsigned int lastFrame);
    Space_t(const Shot_t &shot, unsigned int firstFrame, unsigned int lastFrame);
    Space_t(const Space_t &);
    Space_t &operator=(const Space_t &);
    virtual ~Space_t();

    bool isValid() const { return m_lastFrame >= m_firstFrame; }
    bool isInvalid() const { return m_lastFrame < m_firstFrame; }
    bool isInShot() const { return m_shot.isValid(); }
    bool isSpaceAtEnd() const { return m_lastFrame == endless; }

    unsigned int firstFrame() const { return m_firstFrame; }
    unsigned int lastFrame() const { return m_lastFrame; }
    /// In frames; 0 when invalid, 0xFFFFFFFF when endless.
    unsigned int length() const;
    /// The shot that the gap lies in; invalid between shots.
    Shot_t shot() const { return m_shot; }

    bool operator==(const Space_t &other) const;
    bool operator!=(const Space_t &other) const { return !(*this == other); }
    /// By first frame only.
    bool operator<(const Space_t &other) const { return m_firstFrame < other.m_firstFrame; }

private:
    Shot_t m_shot;
    unsigned int m_firstFrame = 1;
    unsigned int m_lastFrame = 0;
};

} // namespace Plotka
