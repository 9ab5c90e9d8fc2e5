#include "scene/base/UT_SharedWeakPtr.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <utility>
#include <vector>

namespace
{

struct Watched : UT_SharedWeakBase {
    int number = 0;
};

// The weak base stands second, as it does in nodes.
struct Other {
    virtual ~Other() = default;
    int before = 0;
};
struct WatchedSecond : Other, Watched {
};

struct AsksWhileDying : UT_SharedWeakBase {
    explicit AsksWhileDying(std::vector<bool> &answers) : m_watch(this), m_answers(answers) {}
    ~AsksWhileDying() override
    {
        m_answers.push_back(bool(m_watch));
        forgetWatchers();
        m_answers.push_back(bool(m_watch));
        m_answers.push_back(bool(UT_SharedWeakPtr<AsksWhileDying>(this)));
    }

private:
    UT_SharedWeakPtr<AsksWhileDying> m_watch;
    std::vector<bool> &m_answers;
};

} // namespace

TEST(WeakPtr, ReadsNullOnceItsTargetHasDied)
{
    auto target = std::make_unique<Watched>();
    const UT_SharedWeakPtr<Watched> pointer(target.get());
    const UT_SharedWeakPtr<Watched> copy = pointer;
    EXPECT_EQ(pointer.get(), target.get());
    EXPECT_EQ(copy.operator->(), target.get());
    target.reset();
    EXPECT_EQ(pointer.get(), nullptr);
    EXPECT_EQ(copy.get(), nullptr);
    EXPECT_FALSE(pointer);
    EXPECT_EQ(UT_SharedWeakPtr<Watched>(copy).get(), nullptr);
}

TEST(WeakPtr, KnowsWhetherItEverHadATarget)
{
    UT_SharedWeakPtr<Watched> pointer;
    EXPECT_FALSE(pointer.hasRecord());
    EXPECT_FALSE(UT_SharedWeakPtr<Watched>(nullptr).hasRecord());
    {
        const Watched target;
        pointer = &target;
        EXPECT_TRUE(pointer.hasRecord());
    }
    EXPECT_TRUE(pointer.hasRecord());
    EXPECT_FALSE(pointer);
    pointer = nullptr;
    EXPECT_FALSE(pointer.hasRecord());
}

TEST(WeakPtr, IsEqualToOthersMadeAtDifferentTimes)
{
    const Watched target;
    const Watched stranger;
    const UT_SharedWeakPtr<Watched> first(&target);
    const UT_SharedWeakPtr<Watched> second(&target);
    EXPECT_TRUE(first == second);
    EXPECT_FALSE(first < second);
    EXPECT_FALSE(second < first);
    EXPECT_TRUE(first != UT_SharedWeakPtr<Watched>(&stranger));
    EXPECT_TRUE(first != UT_SharedWeakPtr<Watched>());
    EXPECT_TRUE(UT_SharedWeakPtr<Watched>() == UT_SharedWeakPtr<Watched>());
}

TEST(WeakPtr, KeepsItsPlaceInASetAfterItsTargetHasDied)
{
    std::vector<std::unique_ptr<Watched>> targets;
    std::set<UT_SharedWeakPtr<Watched>> watched;
    std::vector<UT_SharedWeakPtr<Watched>> keys;
    for (int i = 0; i < 100; ++i) {
        targets.push_back(std::make_unique<Watched>());
        keys.emplace_back(targets.back().get());
        watched.insert(keys.back());
    }
    for (std::size_t i = 0; i < targets.size(); i += 2)
        targets[i].reset();
    for (int i = 0; i < 100; ++i) { // at addresses that the dead may have had
        targets.push_back(std::make_unique<Watched>());
        EXPECT_EQ(watched.count(UT_SharedWeakPtr<Watched>(targets.back().get())), 0u);
    }
    for (const UT_SharedWeakPtr<Watched> &key : keys)
        EXPECT_EQ(watched.count(key), 1u);
}

TEST(WeakPtr, FindsAnObjectWhoseWeakBaseStandsSecond)
{
    const auto target = std::make_unique<WatchedSecond>();
    const UT_SharedWeakPtr<WatchedSecond> exact(target.get());
    const UT_SharedWeakPtr<Watched> upcast(target.get());
    EXPECT_EQ(exact.get(), target.get());
    EXPECT_EQ(upcast.get(), static_cast<Watched *>(target.get()));
    EXPECT_TRUE(exact == upcast);
}

TEST(WeakPtr, AssignsMovesAndSwapsRecords)
{
    auto a = std::make_unique<Watched>();
    const Watched b;
    UT_SharedWeakPtr<Watched> first(a.get());
    UT_SharedWeakPtr<Watched> second(&b);
    first = second;
    EXPECT_EQ(first.get(), &b);
    const UT_SharedWeakPtr<Watched> &itself = first;
    first = itself;
    EXPECT_EQ(first.get(), &b);
    UT_SharedWeakPtr<Watched> moved(std::move(first));
    EXPECT_EQ(moved.get(), &b);
    moved = UT_SharedWeakPtr<Watched>(a.get());
    EXPECT_EQ(moved.get(), a.get());
    a.reset();
    EXPECT_FALSE(moved);
    EXPECT_EQ(second.get(), &b);
}

TEST(WeakPtr, SeesNothingOfATargetThatHasBegunToDie)
{
    std::vector<bool> answers;
    UT_SharedWeakPtr<AsksWhileDying> outside;
    {
        const AsksWhileDying target(answers);
        outside = &target;
    }
    EXPECT_EQ(answers, (std::vector<bool>{true, false, false}));
    EXPECT_FALSE(outside);
    EXPECT_TRUE(outside.hasRecord());
}

TEST(WeakBase, CountsAndLeavesDeletingToTheCaller)
{
    const Watched target;
    EXPECT_EQ(target.IncRef(), 1u);
    EXPECT_EQ(target.IncRef(), 2u);
    EXPECT_EQ(target.DecRef(), 1u);
    EXPECT_EQ(target.DecRef(), 0u);
    EXPECT_EQ(target.number, 0);
}

TEST(WeakBaseDeathTest, IsNeverCountedBelowZero)
{
    const Watched target;
    unsigned int count = 0;
    EXPECT_DEBUG_DEATH(count = target.DecRef(), "");
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(target.IncRef(), 1u);
}

TEST(WeakBase, KeepsCountAndWatchersOutOfCopies)
{
    Watched target;
    target.IncRef();
    const UT_SharedWeakPtr<Watched> pointer(&target);
    const Watched copy(target);
    EXPECT_TRUE(UT_SharedWeakPtr<Watched>(&copy) != pointer);
    EXPECT_EQ(copy.IncRef(), 1u);
    Watched assigned;
    assigned.IncRef();
    assigned.IncRef();
    assigned = target;
    EXPECT_EQ(assigned.DecRef(), 1u);
    EXPECT_TRUE(UT_SharedWeakPtr<Watched>(&assigned) != pointer);
}
