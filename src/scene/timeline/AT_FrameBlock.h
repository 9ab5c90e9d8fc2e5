#pragma once

#include "plotka_scene_export.h"
#include "scene/timeline/AT_FrameBlockKey.h"
#include "scene/timeline/TUSeq.h"

#include <utility>

/// One stretch of frames in a timed value and what it shows.
///
/// Both ends belong to the block. A default-constructed block is invalid and answers 0 to both. A
/// copy keeps its sequence alive.
class PLOTKA_SCENE_EXPORT AT_FrameBlock
{
public:
    AT_FrameBlock() = default;
    AT_FrameBlock(TUSeq *sequence, const AT_FrameBlockKey &place) : m_seq(sequence), key(place) { hold(); }
    AT_FrameBlock(const AT_FrameBlock &other) : m_seq(other.m_seq), key(other.key) { hold(); }
    AT_FrameBlock(AT_FrameBlock &&other) noexcept :
        m_seq(std::exchange(other.m_seq, nullptr)), key(std::exchange(other.key, AT_FrameBlockKey()))
    {
    }
    AT_FrameBlock &operator=(const AT_FrameBlock &other)
    {
        AT_FrameBlock copy(other);
        swap(copy);
        return *this;
    }
    AT_FrameBlock &operator=(AT_FrameBlock &&other) noexcept
    {
        AT_FrameBlock taken(std::move(other));
        swap(taken);
        return *this;
    }
    ~AT_FrameBlock()
    {
        if (m_seq)
            m_seq->letGo();
    }

    /// The one invalid block that queries without an answer refer to.
    static const AT_FrameBlock &none();

    /// A block without a sequence can be valid.
    bool isValid() const { return key.frameCount != 0; }
    /// May be null.
    TUSeq *seq() const { return m_seq; }

    unsigned int fromFrame() const { return isValid() ? key.fromFrame : 0; }
    unsigned int toFrame() const { return isValid() ? key.fromFrame + key.frameCount - 1 : 0; }
    /// fromFrame() <= frame && frame <= toFrame(), false on an invalid block.
    bool isInRange(unsigned int frame) const { return isValid() && fromFrame() <= frame && frame <= toFrame(); }
    bool isInRange(double frame) const { return isValid() && fromFrame() <= frame && frame <= toFrame(); }

private:
    void hold() const
    {
        if (m_seq)
            m_seq->hold();
    }
    void swap(AT_FrameBlock &other) noexcept
    {
        std::swap(m_seq, other.m_seq);
        std::swap(key, other.key);
    }

    TUSeq *m_seq = nullptr;

public:
    AT_FrameBlockKey key;
};
