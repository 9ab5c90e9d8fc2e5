#include "scene/base/UT_SharedPtr.h"

#include <gtest/gtest.h>

#include <list>
#include <utility>

namespace
{

struct Thing : UT_ShareBase {
    explicit Thing(int &countOfDeaths) : deaths(countOfDeaths) {}
    Thing(const Thing &) = default;
    ~Thing() override { ++deaths; }

    int &deaths;
};

struct SpecialThing : Thing {
    using Thing::Thing;
};

} // namespace

TEST(SharedPtr, CountsItsHoldersAndDeletesWithTheLast)
{
    int deaths = 0;
    Thing *const thing = new Thing(deaths);
    EXPECT_EQ(thing->refCount, 0);
    {
        const UT_SharedPtr<Thing> first(thing);
        EXPECT_EQ(thing->refCount, 1);
        {
            const UT_SharedPtr<Thing> second = first;
            EXPECT_EQ(thing->refCount, 2);
            EXPECT_EQ(second.get(), thing);
            EXPECT_EQ(second->refCount, (*first).refCount);
        }
        EXPECT_EQ(thing->refCount, 1);
        EXPECT_EQ(deaths, 0);
    }
    EXPECT_EQ(deaths, 1);
}

TEST(SharedPtr, SharesItsCountWithWhoeverCountsByHand)
{
    int deaths = 0;
    Thing *const thing = new Thing(deaths);
    ++thing->refCount;
    {
        const UT_SharedPtr<Thing> pointer(thing);
    }
    EXPECT_EQ(deaths, 0);
    if (--thing->refCount == 0)
        delete thing;
    EXPECT_EQ(deaths, 1);
}

TEST(SharedPtr, NullIsAnOrdinaryValue)
{
    const UT_SharedPtr<Thing> none;
    EXPECT_FALSE(none);
    EXPECT_EQ(none.get(), nullptr);
    const UT_SharedPtr<Thing> copy = none;
    EXPECT_TRUE(copy == none);
    EXPECT_FALSE(UT_SharedPtr<Thing>(nullptr));
    EXPECT_FALSE(UT_SharedPtr<Thing>(static_cast<Thing *>(nullptr)));
}

TEST(SharedPtr, ConvertsToABaseAndComparesWithIt)
{
    int deaths = 0;
    {
        const UT_SharedPtr<SpecialThing> special(new SpecialThing(deaths));
        const UT_SharedPtr<SpecialThing> other(new SpecialThing(deaths));
        const UT_SharedPtr<Thing> thing = special;
        EXPECT_EQ(special->refCount, 2);
        EXPECT_TRUE(thing == special);
        EXPECT_TRUE(thing != other);
        std::list<UT_SharedPtr<Thing>> things{special, other};
        things.pop_front();
        EXPECT_EQ(special->refCount, 2);
    }
    EXPECT_EQ(deaths, 2);
}

TEST(SharedPtr, MovesAndAssignsWithoutMiscounting)
{
    int deaths = 0;
    UT_SharedPtr<Thing> a(new Thing(deaths));
    UT_SharedPtr<Thing> b(new Thing(deaths));
    UT_SharedPtr<Thing> c = std::move(a);
    EXPECT_FALSE(a);
    EXPECT_EQ(c->refCount, 1);
    c = b;
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(b->refCount, 2);
    const UT_SharedPtr<Thing> &itself = c;
    c = itself;
    EXPECT_EQ(c->refCount, 2);
    c = nullptr;
    b = UT_SharedPtr<Thing>();
    EXPECT_EQ(deaths, 2);
}

TEST(ShareBase, KeepsItsCountOutOfCopies)
{
    int deaths = 0;
    const UT_SharedPtr<Thing> held(new Thing(deaths));
    Thing copy(*held);
    EXPECT_EQ(copy.refCount, 0);
    UT_ShareBase counted;
    counted.refCount = 3;
    counted = *held;
    EXPECT_EQ(counted.refCount, 3);
}
