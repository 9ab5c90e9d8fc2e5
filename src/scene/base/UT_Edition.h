#pragma once

#include "plotka_scene_export.h"

#include <QtGlobal>

#include <atomic>

/// Numbers for the present state of what is looked things up in, whichever project it belongs to. Whoever found
/// something while such a number was n may rely on it as long as it is n.
class PLOTKA_SCENE_EXPORT UT_Edition
{
public:
    /// Advances with each edit of a timed value, and with each death.
    static quint64 current() noexcept { return s_current.load(std::memory_order_relaxed); }
    /// Advances with the death of each object that weak pointers watch. Never 0.
    static quint64 deaths() noexcept { return s_deaths.load(std::memory_order_relaxed); }

    static void advance() noexcept { s_current.fetch_add(1, std::memory_order_relaxed); }
    static void advanceByDeath() noexcept
    {
        s_deaths.fetch_add(1, std::memory_order_relaxed);
        advance();
    }

private:
    static std::atomic<quint64> s_current;
    static std::atomic<quint64> s_deaths;
};
