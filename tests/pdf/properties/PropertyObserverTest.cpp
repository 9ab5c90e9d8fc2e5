#include "pdf/properties/PKC_PropertyObserver.h"

#include "pdf/properties/PKC_Property.h"
#include "pdf/properties/PKC_PropertyFromList.h"
#include "support/Warnings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

const QString kName = QStringLiteral("key");

/// Writes down what it hears, then does what the test says.
class Listener : public PKC_PropertyObserver
{
public:
    explicit Listener(std::vector<std::string> &log, std::string name = "L") : m_log(&log), m_name(std::move(name)) {}

    void onPropertyModified(PKC_Property *property) override
    {
        m_log->push_back(m_name + " modified " + std::to_string(property->toInt()));
        if (whenModified)
            whenModified(property);
    }
    void onPropertyDeleted(PKC_Property *property) override
    {
        m_log->push_back(m_name + " deleted");
        if (whenDeleted)
            whenDeleted(property);
    }

    using PKC_PropertyObserver::unregisterToAll;

    std::function<void(PKC_Property *)> whenModified;
    std::function<void(PKC_Property *)> whenDeleted;

private:
    std::vector<std::string> *m_log;
    std::string m_name;
};

/// Three listeners in the order in which they are told.
struct ThreeListeners {
    explicit ThreeListeners(PKC_Property &property)
    {
        for (int i = 0; i < 3; ++i)
            listeners.push_back(std::make_unique<Listener>(log));
        std::sort(listeners.begin(), listeners.end(),
            [](const auto &one, const auto &two) { return std::less<>()(one.get(), two.get()); });
        for (const auto &listener : listeners)
            listener->registerObservable(&property);
    }
    Listener &operator[](size_t index) { return *listeners[index]; }

    std::vector<std::string> log;
    std::vector<std::unique_ptr<Listener>> listeners;
};

} // namespace

TEST(PropertyObserver, HearsEveryValueThatWasTaken)
{
    Warnings warnings;
    std::vector<std::string> log;
    PKC_Property property(kName);
    Listener listener(log);
    listener.registerObservable(&property);
    listener.registerObservable(&property); // twice is once
    EXPECT_TRUE(property.setValue(QVariant(1)));
    EXPECT_TRUE(property.setValue(QVariant(1)));
    EXPECT_TRUE(property.setValueFromString(QStringLiteral("3")));
    EXPECT_FALSE(property.setValue(QVariant(QStringLiteral("x"))));
    EXPECT_EQ(warnings.taken().size(), 1u);
    EXPECT_THAT(log, ElementsAre("L modified 1", "L modified 1", "L modified 3"));
}

TEST(PropertyObserver, HearsNothingOfAValueThatDidNotValidate)
{
    std::vector<std::string> log;
    PKC_PropertyFromList list(kName, QVariant(), {{QStringLiteral("a"), 1}}, false, false, nullptr);
    Listener listener(log);
    listener.registerObservable(&list);
    EXPECT_FALSE(list.setValue(QVariant(QStringLiteral("x"))));
    EXPECT_FALSE(list.isValid());
    EXPECT_THAT(log, IsEmpty());
}

TEST(PropertyObserver, HearsNothingOnceItLeft)
{
    std::vector<std::string> log;
    PKC_Property one(kName);
    PKC_Property two(kName);
    Listener listener(log);
    listener.unregisterObservable(&one);
    listener.unregisterObservable(nullptr);
    listener.registerObservable(nullptr);
    listener.registerObservable(&one);
    listener.registerObservable(&two);
    listener.unregisterObservable(&one);
    one.setValue(QVariant(1));
    two.setValue(QVariant(2));
    listener.unregisterToAll();
    two.setValue(QVariant(3));
    EXPECT_THAT(log, ElementsAre("L modified 2"));
}

TEST(PropertyObserver, MayDieBeforeTheProperty)
{
    std::vector<std::string> log;
    PKC_Property property(kName);
    {
        Listener listener(log);
        listener.registerObservable(&property);
    }
    property.setValue(QVariant(1));
    EXPECT_THAT(log, IsEmpty());
}

TEST(PropertyObserver, HearsOfTheEndOfAPropertyThatIsEmptyByThen)
{
    std::vector<std::string> log;
    const UT_SharedPtr<PKC_PropertyDefinition> definition(
        new PKC_PropertyDefinition(QStringLiteral("l"), QStringLiteral("s"), true, true));
    auto property = std::make_unique<PKC_Property>(kName, 1, definition);
    Listener listener(log);
    listener.registerObservable(property.get());
    PKC_Property *const address = property.get();
    listener.whenDeleted = [&](PKC_Property *dying) {
        EXPECT_EQ(dying, address);
        EXPECT_FALSE(dying->isValid());
        EXPECT_TRUE(dying->name().isEmpty());
        EXPECT_TRUE(dying->ldesc().isEmpty());
        EXPECT_FALSE(dying->isReadOnly());
        EXPECT_EQ(definition->refCount, 1);
        listener.unregisterObservable(dying); // as it used to do
    };
    property.reset();
    EXPECT_THAT(log, ElementsAre("L deleted"));
    listener.unregisterObservable(address); // not known any more, so not touched
}

TEST(PropertyObserver, IsLeftByAPropertyThatDies)
{
    std::vector<std::string> log;
    Listener listener(log);
    {
        PKC_Property property(kName);
        listener.registerObservable(&property);
        listener.whenDeleted = [&](PKC_Property *dying) { listener.registerObservable(dying); };
    }
    listener.unregisterToAll();
    EXPECT_THAT(log, ElementsAre("L deleted"));
}

TEST(PropertyObserver, IsToldNothingAsACopy)
{
    std::vector<std::string> log;
    PKC_Property property(kName);
    Listener listener(log, "first");
    listener.registerObservable(&property);
    auto copy = std::make_unique<Listener>(listener);
    property.setValue(QVariant(1));
    EXPECT_THAT(log, ElementsAre("first modified 1"));
    copy->registerObservable(&property); // now it is an observer of its own
    property.setValue(QVariant(2));
    EXPECT_EQ(log.size(), 3u);
    copy.reset();
    property.setValue(QVariant(3));
    EXPECT_EQ(log.size(), 4u);
}

TEST(PropertyObserver, AsACopyTouchesNoPropertyThatDied)
{
    std::vector<std::string> log;
    auto property = std::make_unique<PKC_Property>(kName);
    Listener listener(log);
    listener.registerObservable(property.get());
    Listener copy(listener);
    const Listener copyOfTheCopy(copy);
    property.reset();
    EXPECT_THAT(log, ElementsAre("L deleted"));
    copy.unregisterToAll();
}

TEST(PropertyObserver, AsACopyLeavesAPropertyThatLives)
{
    std::vector<std::string> log;
    PKC_Property property(kName);
    {
        Listener listener(log);
        listener.registerObservable(&property);
        Listener copy(listener);
        copy.unregisterObservable(&property);
        const Listener other(listener);
    }
    property.setValue(QVariant(1));
    EXPECT_THAT(log, IsEmpty());
}

TEST(PropertyObserver, IsNotTakenOverByAClone)
{
    std::vector<std::string> log;
    PKC_Property property(kName, 1, nullptr);
    Listener listener(log);
    listener.registerObservable(&property);
    std::unique_ptr<PKC_Property> clone(property.clone());
    clone->setValue(QVariant(2));
    clone.reset();
    EXPECT_THAT(log, IsEmpty());
}

TEST(PropertyNews, ReachesObserversInTheOrderOfTheirSet)
{
    PKC_Property property(kName);
    ThreeListeners three(property);
    std::vector<const Listener *> order;
    for (const auto &listener : three.listeners) {
        const Listener *address = listener.get();
        listener->whenModified = [&order, address](PKC_Property *) { order.push_back(address); };
    }
    property.setValue(QVariant(1));
    EXPECT_EQ(order, (std::vector<const Listener *>{&three[0], &three[1], &three[2]}));
}

TEST(PropertyNews, SkipsThoseWhoLeftMeanwhile)
{
    PKC_Property property(kName);
    ThreeListeners three(property);
    three[0].whenModified = [&](PKC_Property *) {
        three[0].unregisterToAll();
        three[2].unregisterObservable(&property);
    };
    property.setValue(QVariant(1));
    EXPECT_EQ(three.log.size(), 2u);
    property.setValue(QVariant(2));
    EXPECT_EQ(three.log.size(), 3u);
}

TEST(PropertyNews, SkipsThoseWhoWereDeletedMeanwhile)
{
    PKC_Property property(kName);
    ThreeListeners three(property);
    three[0].whenModified = [&](PKC_Property *) { three.listeners[1].reset(); };
    property.setValue(QVariant(1));
    EXPECT_EQ(three.log.size(), 2u);
}

TEST(PropertyNews, LetsAnObserverDeleteItself)
{
    PKC_Property property(kName);
    ThreeListeners three(property);
    three[1].whenModified = [&](PKC_Property *) {
        const auto self = std::move(three.listeners[1]); // dies at the end of the call
    };
    property.setValue(QVariant(1));
    EXPECT_EQ(three.log.size(), 3u);
    property.setValue(QVariant(2));
    EXPECT_EQ(three.log.size(), 5u);
}

TEST(PropertyNews, IsNotToldToThoseWhoJoinMeanwhile)
{
    std::vector<std::string> log;
    PKC_Property property(kName);
    ThreeListeners three(property);
    std::vector<std::unique_ptr<Listener>> late;
    three[0].whenModified = [&](PKC_Property *) {
        for (int i = 0; i < 20; ++i) {
            late.push_back(std::make_unique<Listener>(log, "late"));
            late.back()->registerObservable(&property);
        }
        three[0].whenModified = nullptr;
    };
    property.setValue(QVariant(1));
    EXPECT_THAT(log, IsEmpty());
    property.setValue(QVariant(2));
    EXPECT_EQ(log.size(), 20u);
}

TEST(PropertyNews, MayCauseMoreOfIt)
{
    PKC_Property property(kName);
    ThreeListeners three(property);
    three[0].whenModified = [&](PKC_Property *changed) {
        if (changed->toInt() < 3) {
            EXPECT_TRUE(changed->setValue(QVariant(changed->toInt() + 1)));
        }
    };
    EXPECT_TRUE(property.setValue(QVariant(1)));
    EXPECT_EQ(property.toInt(), 3);
    EXPECT_EQ(three.log.size(), 9u);
    EXPECT_THAT(std::vector<std::string>(three.log.begin() + 3, three.log.end()), testing::Each("L modified 3"));
}

TEST(PropertyNews, EndsWithTheProperty)
{
    auto property = std::make_unique<PKC_Property>(kName);
    ThreeListeners three(*property);
    three[0].whenModified = [&](PKC_Property *) { property.reset(); };
    EXPECT_TRUE(property->setValue(QVariant(1)));
    EXPECT_THAT(three.log, ElementsAre("L modified 1", "L deleted", "L deleted", "L deleted"));
}

TEST(PropertyNews, EndsWithThePropertyAtEveryLevel)
{
    auto property = std::make_unique<PKC_Property>(kName);
    ThreeListeners three(*property);
    three[1].whenModified = [&](PKC_Property *changed) {
        if (changed->toInt() == 2)
            property.reset();
        else
            changed->setValue(QVariant(2));
    };
    EXPECT_TRUE(property->setValue(QVariant(1)));
    EXPECT_THAT(three.log,
        ElementsAre(
            "L modified 1", "L modified 1", "L modified 2", "L modified 2", "L deleted", "L deleted", "L deleted"));
}

TEST(PropertyNews, OfTheEndSkipsThoseWhoWentMeanwhile)
{
    auto property = std::make_unique<PKC_Property>(kName);
    ThreeListeners three(*property);
    three[0].whenDeleted = [&](PKC_Property *) {
        three.listeners[2].reset();
        const auto self = std::move(three.listeners[0]);
    };
    property.reset();
    EXPECT_THAT(three.log, ElementsAre("L deleted", "L deleted"));
}

TEST(PropertyNews, OfTheEndMayCauseMoreOfIt)
{
    auto property = std::make_unique<PKC_Property>(kName, 7, nullptr);
    ThreeListeners three(*property);
    three[0].whenDeleted = [](PKC_Property *dying) { dying->setValue(QVariant(9)); };
    property.reset();
    EXPECT_EQ(three.log.size(), 6u);
    EXPECT_EQ(three.log[1], "L modified 9");
}
