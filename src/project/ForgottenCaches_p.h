#pragma once

#include <cstddef>
#include <utility>

namespace Plotka
{

/// What was remembered of an earlier state of the timeline, on its way out. Nobody asks it any more.
///
/// To free a hundred thousand objects takes longer than a frame of playback, so they go a few at a time while new ones
/// are remembered. At most one earlier state waits. Transitions do not wait: whoever else holds one must be its last holder.
template <typename Caches>
class ForgottenCaches
{
public:
    void take(Caches caches)
    {
        caches.transitions = {};
        // While another one waits there is less here than waits: more is freed than is remembered. It goes at once.
        if (!m_isWaiting)
            m_caches = std::move(caches);
        m_slot = m_isWaiting ? m_slot : 0;
        m_isWaiting = true;
    }

    /// For each object that is remembered.
    void freeSome()
    {
        if (!m_isWaiting)
            return;
        std::size_t steps = 8; // each lets go of an object or passes a slot, of which there are at most twice as many
        auto &panelsOfShot = m_caches.panelsOfShot;
        for (; steps > 0 && m_slot < panelsOfShot.slotCount(); --steps) {
            auto *const panels = panelsOfShot.valueIn(m_slot);
            if (!panels || !panels->letGoOfOne())
                ++m_slot;
        }
        while (steps > 0 && m_caches.shots.byFrame.letGoOfOne())
            --steps;
        if (steps == 0)
            return;
        m_caches = Caches();
        m_isWaiting = false;
    }

private:
    Caches m_caches;
    std::size_t m_slot = 0; // the first slot of panelsOfShot that may still hold panels
    bool m_isWaiting = false;
};

} // namespace Plotka
