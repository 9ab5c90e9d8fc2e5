#include "project/ForgottenCaches_p.h"
#include "project/FrameCache_p.h"
#include "scene/base/UT_IdTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using namespace Plotka;

namespace
{

/// Stands for a timeline object.
struct Mark : UT_ShareBase {
};

struct MarksByFrame {
    FrameCache<Mark> byFrame;
};

/// As a project remembers them.
struct Marks {
    MarksByFrame shots;
    MarksByFrame transitions;
    UT_IdTable<FrameCache<Mark>> panelsOfShot;
};

/// Caches of so many shots of so many panels each, and who else holds what is in them.
class Remembered
{
public:
    Remembered(int shots, int panelsOfShot)
    {
        for (int shot = 1; shot <= shots; ++shot) {
            m_shots.emplace_back(new Mark);
            caches.shots.byFrame.insert(static_cast<unsigned int>(shot), 1, m_shots.back());
            for (int panel = 1; panel <= panelsOfShot; ++panel) {
                m_panels.emplace_back(new Mark);
                caches.panelsOfShot[SC_Id(shot)].insert(static_cast<unsigned int>(panel), 1, m_panels.back());
            }
        }
        m_transition = new Mark;
        caches.transitions.byFrame.insert(1, 1, m_transition);
    }

    /// How many objects the caches hold still.
    std::ptrdiff_t held() const
    {
        const auto isShared = [](const auto &object) { return object->refCount > 1; };
        return std::count_if(m_shots.begin(), m_shots.end(), isShared)
            + std::count_if(m_panels.begin(), m_panels.end(), isShared);
    }
    bool holdsTransition() const { return m_transition->refCount > 1; }

    Marks caches;

private:
    std::vector<UT_SharedPtr<Mark>> m_shots;
    std::vector<UT_SharedPtr<Mark>> m_panels;
    UT_SharedPtr<Mark> m_transition;
};

} // namespace

TEST(ForgottenCaches, GoWhileLessIsRememberedThanTheyHeld)
{
    for (const auto &[shots, panels] : {std::pair(1, 1), std::pair(1, 2000), std::pair(700, 3), std::pair(50, 0)}) {
        Remembered earlier(shots, panels);
        ForgottenCaches<Marks> forgotten;
        forgotten.take(std::move(earlier.caches));
        EXPECT_FALSE(earlier.holdsTransition()) << "a transition does not wait";
        std::ptrdiff_t held = earlier.held();
        EXPECT_EQ(held, shots * (panels + 1));
        int remembered = 0;
        for (; earlier.held() > 0; ++remembered) {
            forgotten.freeSome();
            EXPECT_LE(held - earlier.held(), 8) << "a few at a time";
            held = earlier.held();
            ASSERT_LE(remembered, shots * (panels + 1));
        }
        EXPECT_LE(remembered, 1 + shots * (panels + 4) / 8);
        forgotten.freeSome();
        forgotten.freeSome();
    }
}

TEST(ForgottenCaches, KeepOneEarlierStateWaitingAtMost)
{
    Remembered first(100, 10);
    Remembered second(5, 10);
    Remembered third(5, 10);
    {
        ForgottenCaches<Marks> forgotten;
        forgotten.freeSome();
        forgotten.take(std::move(first.caches));
        forgotten.freeSome();
        forgotten.take(std::move(second.caches));
        EXPECT_EQ(second.held(), 0) << "where one waits already, the next goes at once";
        EXPECT_GT(first.held(), 0);
        while (first.held() > 0)
            forgotten.freeSome();
        forgotten.freeSome();
        forgotten.take(std::move(third.caches));
        EXPECT_EQ(third.held(), 55);
    }
    EXPECT_EQ(third.held(), 0) << "it goes with its project at the latest";
}
