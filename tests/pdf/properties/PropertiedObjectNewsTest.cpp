#include "pdf/properties/PropertiedObjects.h"

#include <gtest/gtest.h>

#include <list>
#include <memory>

using namespace PropertiedObjects;

TEST(PropertiedObject, MayObserveItsOwnProperties)
{
    class Observing : public PKC_PropertiedObject
    {
    public:
        void onPropertyModified(PKC_Property *property) override { heard += property->name(); }
        void onPropertyDeleted(PKC_Property *) override { ++ended; }
        QString heard;
        int ended = 0;
    };
    Observing object;
    object.registerObservable(object.addProperty(kA, QVariant(1), nullptr));
    object.registerObservable(object.addProperty(kB, QVariant(1), nullptr));
    object.setProperty(kB, QVariant(2));
    object.setProperty(kA, QVariant(2));
    EXPECT_EQ(object.heard, QStringLiteral("ba"));
    const Observing copy(object);
    object.clearProperties();
    EXPECT_EQ(object.ended, 2);
    EXPECT_EQ(copy.ended, 0);
}

TEST(PropertiedObject, MayBeChangedByThoseWhoHearOfIt)
{
    class Remover : public PKC_PropertyObserver
    {
    public:
        explicit Remover(PKC_PropertiedObject &object) : m_object(object) {}
        void onPropertyModified(PKC_Property *) override
        {
            m_object.removeProperty(kB);
            m_object.removeProperty(kA);
        }
        void onPropertyDeleted(PKC_Property *) override { EXPECT_FALSE(m_object.exists(kA)); }

    private:
        PKC_PropertiedObject &m_object;
    };
    const auto object = abc();
    Remover remover(*object);
    remover.registerObservable(object->getProperty(kA));
    const auto source = abc();
    object->propertiesCopyFrom(source.get(), false);
    EXPECT_EQ(textOf(*object), "c=3");

    const auto loaded = abc();
    Remover other(*loaded);
    other.registerObservable(loaded->getProperty(kA));
    EXPECT_TRUE(
        loadInto(*loaded, QStringLiteral("<properties><a value='4'/><b value='5'/><c value='6'/></properties>")));
    EXPECT_EQ(textOf(*loaded), "c=6");

    const auto cleared = abc();
    Remover last(*cleared);
    last.registerObservable(cleared->getProperty(kA));
    cleared->clearProperties();
    EXPECT_EQ(textOf(*cleared), "");
}

TEST(PropertiedObject, TakesNothingMoreOnceItDies)
{
    auto object = abc();
    Listener listener;
    listener.registerObservable(object->getProperty(kA));
    PKC_PropertiedObject *const dying = object.get();
    int ended = 0;
    Listener late;
    late.whenDeleted = [&] { ++ended; };
    listener.whenDeleted = [&] {
        EXPECT_EQ(dying->addProperty(kA, QVariant(1), nullptr), nullptr);
        dying->setProperty(kB, QVariant(1));
        auto *const ready = new PKC_Property(kC);
        late.registerObservable(ready);
        EXPECT_EQ(dying->addProperty(ready), nullptr);
        EXPECT_EQ(textOf(*dying), "");
    };
    object.reset();
    EXPECT_EQ(ended, 1);
}

TEST(PropertiedObject, TellsWhenWhatWasAddedIsGoneAgain)
{
    auto object = abc();
    Listener listener;
    const auto added = [&](const std::function<void()> &whenDeleted) {
        listener.whenDeleted = nullptr;
        listener.registerObservable(object->addProperty(kA, QVariant(1), nullptr));
        listener.whenDeleted = whenDeleted;
        return object->addProperty(kA, QVariant(2), nullptr);
    };
    EXPECT_EQ(added([&] { object->removeProperty(kA); }), nullptr);
    EXPECT_EQ(textOf(*object), "b=2 c=3");
    EXPECT_EQ(added([&] { object->addProperty(kA, QVariant(3), nullptr); }), nullptr);
    EXPECT_EQ(textOf(*object), "b=2 c=3 a=3");
    const PKC_Property *stays = added([&] { object->removeProperty(kB); });
    ASSERT_NE(stays, nullptr);
    EXPECT_EQ(stays, object->getProperty(kA));
    EXPECT_EQ(added([&] { object.reset(); }), nullptr);
}

TEST(PropertiedObject, MayBeDeletedByThoseWhoHearOfIt)
{
    Listener listener;
    std::unique_ptr<PKC_PropertiedObject> object;
    const auto watched = [&] {
        object = abc();
        listener.registerObservable(object->getProperty(kA));
        return object.get();
    };
    listener.whenModified = [&] { object.reset(); };
    EXPECT_FALSE(loadInto(*watched(), QStringLiteral("<properties><a value='4'/><b value='5'/></properties>")));
    EXPECT_EQ(object, nullptr);
    EXPECT_FALSE(loadInto(*watched(), QStringLiteral("<properties><a value='4'/></properties>")));
    auto source = abc();
    watched()->propertiesCopyFrom(source.get(), true);
    EXPECT_EQ(object, nullptr);

    listener.whenModified = nullptr;
    listener.whenDeleted = [&] { object.reset(); };
    watched()->propertiesSetFrom(source.get());
    EXPECT_EQ(object, nullptr);
    listener.whenDeleted = [&] { source.reset(); };
    watched()->propertiesSetFrom(source.get());
    EXPECT_EQ(textOf(*object), "");
}

TEST(PropertiedObject, IsNotSetFromItsOwnPropertiesByAnother)
{
    class Showing : public PKC_PropertiedObject
    {
    public:
        explicit Showing(const PKC_PropertiedObject &shown) : m_shown(shown) {}
        using PKC_PropertiedObject::getAllProperties;
        void getAllProperties(std::list<PKC_Property *> &properties) const override
        {
            m_shown.getAllProperties(properties);
            PKC_PropertiedObject::getAllProperties(properties);
        }

    private:
        const PKC_PropertiedObject &m_shown;
    };
    const auto object = abc();
    Listener listener;
    int heard = 0;
    listener.whenModified = [&] { ++heard; };
    listener.registerObservable(object->getProperty(kA));
    Showing showing(*object);
    showing.setProperty(QStringLiteral("d"), QVariant(4));
    object->propertiesCopyFrom(&showing, true);
    EXPECT_EQ(heard, 0);
    EXPECT_EQ(textOf(*object), "a=1 b=2 c=3 d=4");
}
