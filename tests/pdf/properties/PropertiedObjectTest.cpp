#include "pdf/properties/PKC_PropertiedObject.h"

#include "pdf/properties/PKC_PropertyFromCaptionList.h"
#include "pdf/properties/PKC_PropertyFromFile.h"
#include "pdf/properties/PKC_PropertyFromList.h"
#include "pdf/properties/PKC_PropertyFromRange.h"
#include "pdf/properties/Samples.h"
#include "support/Golden.h"
#include "support/Warnings.h"

#include <QDataStream>
#include <QDomDocument>
#include <QIODevice>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

const QString kA = QStringLiteral("a");
const QString kB = QStringLiteral("b");
const QString kC = QStringLiteral("c");

/// "name=value" of all properties in order.
std::string textOf(const PKC_PropertiedObject &object)
{
    std::list<PKC_Property *> properties;
    object.getAllProperties(properties);
    QStringList parts;
    for (const PKC_Property *property : properties)
        parts += QStringLiteral("%1=%2").arg(property->name(), property->toString());
    return parts.join(QLatin1Char(' ')).toStdString();
}

/// a=1 b=2 c=3, plain and without definition.
std::unique_ptr<PKC_PropertiedObject> abc()
{
    auto object = std::make_unique<PKC_PropertiedObject>();
    object->setProperty(kA, QVariant(1));
    object->setProperty(kB, QVariant(2));
    object->setProperty(kC, QVariant(3));
    return object;
}

/// Does what the test says when it hears of something.
class Listener : public PKC_PropertyObserver
{
public:
    void onPropertyModified(PKC_Property *) override
    {
        if (whenModified)
            whenModified();
    }
    void onPropertyDeleted(PKC_Property *) override
    {
        if (whenDeleted)
            whenDeleted();
    }

    std::function<void()> whenModified;
    std::function<void()> whenDeleted;
};

class Profile : public PKC_PropertiedObject
{
public:
    QString nodeName() const override { return QStringLiteral("profile"); }
};

/// Has one more property than it owns.
class WithOneMore : public PKC_PropertiedObject
{
public:
    using PKC_PropertiedObject::getAllProperties;
    void getAllProperties(std::list<PKC_Property *> &properties) const override
    {
        properties.push_back(&extra);
        PKC_PropertiedObject::getAllProperties(properties);
    }
    mutable PKC_Property extra{QStringLiteral("extra"), 9, nullptr};
};

bool loadInto(PKC_PropertiedObject &object, const QString &markup)
{
    QDomDocument document;
    EXPECT_TRUE(document.setContent(markup)) << markup.toStdString();
    QDomElement element = document.documentElement();
    return object.load(element);
}

QString stored(const PKC_PropertiedObject &object)
{
    QDomDocument document;
    QDomElement root = document.createElement(QStringLiteral("root"));
    document.appendChild(root);
    EXPECT_TRUE(object.store(document, root));
    return document.toString(1);
}

} // namespace

TEST(PropertiedObject, AddsEveryKindInBothForms)
{
    PKC_PropertiedObject object;
    UT_SharedPtr<PKC_PropertyDefinition> shared(
        new PKC_PropertyDefinition(QStringLiteral("l"), QStringLiteral("s"), true, false));
    PKC_PropertyDefinition *const d = shared.get();
    const QString l = QStringLiteral("l");
    const QString s = QStringLiteral("s");
    const PKC_Property from(QStringLiteral("from"), 4, nullptr);
    const QVariantMap choices{{QStringLiteral("One"), 1}};
    const QString filter = QStringLiteral("*.png");
    const auto name = [&object] { return QStringLiteral("p%1").arg(object.propertiesCount()); };
    const std::vector<std::pair<PKC_Property *, int>> made{
        {object.addProperty(name(), from, l, s, true, false), 0},
        {object.addProperty(name(), from, d), 0},
        {object.addProperty(name(), QVariant(4), l, s, true, false), 0},
        {object.addProperty(name(), QVariant(4), d), 0},
        {object.addPropertyFromList(name(), 4, choices, true, false, l, s, true, false), 1},
        {object.addPropertyFromList(name(), 4, choices, true, false, d), 1},
        {object.addPropertyFromRange(name(), 4, 1, 9, l, s, true, false), 2},
        {object.addPropertyFromRange(name(), 4, 1, 9, d), 2},
        {object.addPropertyFromFile(name(), 4, filter, l, s, true, false), 3},
        {object.addPropertyFromFile(name(), 4, filter, d), 3},
        {object.addPropertyFromFont(name(), 4, l, s, true, false), 4},
        {object.addPropertyFromFont(name(), 4, d), 4},
        {object.addPropertyFromCaptionList(name(), 4, l, s, true, false), 5},
        {object.addPropertyFromCaptionList(name(), 4, d), 5},
    };
    EXPECT_EQ(object.propertiesCount(), 14);
    int number = 0;
    for (const auto &entry : made) {
        const PKC_Property *property = entry.first;
        const QString expected = QStringLiteral("p%1").arg(number);
        EXPECT_EQ(property->name(), expected);
        EXPECT_EQ(object.getProperty(expected), property);
        EXPECT_EQ(property->propertyType(), entry.second) << number;
        EXPECT_EQ(property->value(), QVariant(4)) << number;
        EXPECT_EQ(property->ldesc(), l);
        EXPECT_EQ(property->sdesc(), s);
        EXPECT_TRUE(property->isReadOnly());
        EXPECT_FALSE(property->isInternal());
        ++number;
    }
    EXPECT_EQ(shared->refCount, 8);
    EXPECT_EQ(dynamic_cast<const PKC_PropertyFromList &>(*made[5].first).possibleValues(), choices);
    EXPECT_TRUE(dynamic_cast<const PKC_PropertyFromList &>(*made[5].first).allowEmpty());
    EXPECT_FALSE(dynamic_cast<const PKC_PropertyFromList &>(*made[5].first).allowMultiple());
    EXPECT_EQ(dynamic_cast<const PKC_PropertyFromRange &>(*made[7].first).min(), QVariant(1));
    EXPECT_EQ(dynamic_cast<const PKC_PropertyFromRange &>(*made[7].first).max(), QVariant(9));
    EXPECT_EQ(dynamic_cast<const PKC_PropertyFromFile &>(*made[9].first).fileFilter(), filter);
    object.clearProperties();
    EXPECT_EQ(shared->refCount, 1);
    EXPECT_EQ(object.propertiesCount(), 0);
}

TEST(PropertiedObject, TakesADefinitionThatNobodyHoldsYet)
{
    PKC_PropertiedObject object;
    object.addPropertyFromList(kA, 1, QVariant(), false, false, new PKC_PropertyDefinition(kA, kB, false, false));
    EXPECT_EQ(object.getProperty(kA)->ldesc(), kA);
    object.addProperty(kB, QVariant(1), nullptr);
    EXPECT_FALSE(object.getProperty(kB)->isInternal());
}

TEST(PropertiedObject, AddsAnInternalProperty)
{
    PKC_PropertiedObject object;
    for (const bool readOnly : {false, true}) {
        const PKC_Property *property = object.addPropertyInternal(kA, 1, readOnly);
        EXPECT_EQ(property->propertyType(), 0);
        EXPECT_EQ(property->ldesc(), QStringLiteral("Internal"));
        EXPECT_EQ(property->sdesc(), QStringLiteral("Internal"));
        EXPECT_EQ(property->isReadOnly(), readOnly);
        EXPECT_TRUE(property->isInternal());
    }
}

TEST(PropertiedObject, OwnsAReadyProperty)
{
    PKC_PropertiedObject object;
    auto *property = new PKC_PropertyFromRange(kA, 1, 0, 2, nullptr);
    EXPECT_EQ(object.addProperty(property), property);
    EXPECT_EQ(object.addProperty(property), property);
    EXPECT_EQ(object.getProperty(kA), property);
    EXPECT_EQ(object.propertiesCount(), 1);
    EXPECT_EQ(object.addProperty(nullptr), nullptr);
    EXPECT_EQ(object.propertiesCount(), 1);
}

TEST(PropertiedObject, HoldsItsPropertiesToTheirNames)
{
    const auto isLoaded = [](PKC_Property &property, const QString &name) {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        PKC_Property(name, 5, nullptr).store(out);
        QDataStream in(bytes);
        return property.load(in);
    };
    const auto object = abc();
    PKC_Property *const property = object->getProperty(kA);
    for (const QString &name : {kB, QStringLiteral("renamed")}) {
        EXPECT_FALSE(isLoaded(*property, name));
        EXPECT_EQ(object->addProperty(property), property);
        EXPECT_EQ(textOf(*object), "a=1 b=2 c=3");
        EXPECT_EQ(textOf(PKC_PropertiedObject(*object)), "a=1 b=2 c=3");
    }
    EXPECT_TRUE(isLoaded(*property, kA));
    EXPECT_EQ(textOf(*object), "a=5 b=2 c=3");
    const std::unique_ptr<PKC_Property> clone(property->clone());
    EXPECT_TRUE(isLoaded(*clone, kB));
    EXPECT_EQ(clone->name(), kB);
}

TEST(PropertiedObject, ReplacesAPropertyAtItsPlace)
{
    const auto object = abc();
    const PKC_Property *added = object->addProperty(kB, QVariant(QStringLiteral("new")), nullptr);
    EXPECT_EQ(object->getProperty(kB), added);
    EXPECT_EQ(textOf(*object), "a=1 b=new c=3");
    object->addProperty(new PKC_Property(kA, 7, nullptr));
    EXPECT_EQ(textOf(*object), "a=7 b=new c=3");
}

TEST(PropertiedObject, ReplacesAPropertyByItself)
{
    const auto object = abc();
    const PKC_Property *b = object->getProperty(kB);
    object->addProperty(b->name(), *b, nullptr);
    const PKC_Property *c = object->getProperty(kC);
    object->addProperty(c->name(), c->value(), nullptr);
    EXPECT_EQ(textOf(*object), "a=1 b=2 c=3");
    object->removeProperty(object->getProperty(kB)->name());
    EXPECT_EQ(textOf(*object), "a=1 c=3");
}

TEST(PropertiedObject, MakesAPlainPropertyOfAListWithoutChoices)
{
    PKC_PropertiedObject object;
    for (const QVariant &nothing : {QVariant(), QVariant(QVariantMap()), QVariant(QVariantList()),
             QVariant(QVariantList{QStringLiteral("key alone")}), QVariant(5), QVariant(QStringList{kA, kB})}) {
        EXPECT_EQ(object.addPropertyFromList(kA, 1, nothing, true, true, nullptr)->propertyType(), 0);
        EXPECT_EQ(object.addPropertyFromList(kB, 1, nothing, true, true, kA, kB, false, false)->propertyType(), 0);
        EXPECT_EQ(object.getProperty(kB)->ldesc(), kA);
    }
}

TEST(PropertiedObject, ReadsChoicesFromAMapOrFromKeysAndValuesInTurn)
{
    QMap<QString, QVariant> list{{kC, 9}};
    PKC_PropertiedObject::qVariantToPropertyList(QVariant(7), list);
    PKC_PropertiedObject::qVariantToPropertyList(QVariant(QStringList{kA, kB}), list);
    PKC_PropertiedObject::qVariantToPropertyList(QVariant(), list);
    EXPECT_EQ(list, (QMap<QString, QVariant>{{kC, 9}}));
    const QVariantMap map{{kB, 1}, {kA, kB}};
    PKC_PropertiedObject::qVariantToPropertyList(map, list);
    EXPECT_EQ(list, map);
    PKC_PropertiedObject::qVariantToPropertyList(QVariantList{kB, 1, 2.5, kC, kB, 3, kA}, list);
    EXPECT_EQ(list, (QMap<QString, QVariant>{{QStringLiteral("2.5"), kC}, {kB, 3}}));
    PKC_PropertiedObject::qVariantToPropertyList(QVariantList{kA}, list);
    EXPECT_TRUE(list.isEmpty());
}

TEST(PropertiedObject, AnswersByName)
{
    PKC_PropertiedObject object;
    object.setProperty(kA, QVariant(QStringLiteral("17")));
    object.setProperty(kB, QVariant(QStringLiteral("#010203")));
    EXPECT_TRUE(object.exists(kA));
    EXPECT_FALSE(object.exists(kC));
    EXPECT_EQ(object.getProperty(QStringLiteral("A")), nullptr);
    EXPECT_EQ(object.getPropertyInt(kA, 5), 17);
    EXPECT_EQ(object.getPropertyInt(kC, 5), 5);
    EXPECT_EQ(object.getPropertyInt(kB, 5), 0); // what there is counts, good or not
    EXPECT_EQ(object.getPropertyDouble(kA, 0.5), 17.0);
    EXPECT_EQ(object.getPropertyDouble(kC, 0.5), 0.5);
    EXPECT_TRUE(object.getPropertyBool(kA, false));
    EXPECT_TRUE(object.getPropertyBool(kC, true));
    EXPECT_FALSE(object.getPropertyBool(kC, false));
    EXPECT_EQ(object.getPropertyColor(kB, QColor()), QColor(1, 2, 3));
    EXPECT_EQ(object.getPropertyColor(kC, QColor(9, 9, 9)), QColor(9, 9, 9));
    EXPECT_EQ(object.getPropertyString(kA, kB), QStringLiteral("17"));
    EXPECT_EQ(object.getPropertyString(kC, kB), kB);
}

TEST(PropertiedObject, SetsWhatIsThereAndAddsWhatIsNot)
{
    Warnings warnings;
    PKC_PropertiedObject object;
    object.addPropertyFromRange(kA, 5, 0, 10, kB, kC, false, true);
    object.setProperty(kA, QVariant(QStringLiteral("7")));
    object.setProperty(kA, PKC_Property(kC, 8, nullptr));
    object.setProperty(kA, QVariant(-1));
    EXPECT_EQ(warnings.taken().size(), 1u);
    EXPECT_EQ(object.getProperty(kA)->value(), QVariant(8));
    EXPECT_EQ(object.getProperty(kA)->propertyType(), 2);
    object.setProperty(kB, QVariant(kC));
    object.setProperty(kC, *object.getProperty(kA));
    for (const QString &name : {kB, kC}) {
        const PKC_Property *added = object.getProperty(name);
        EXPECT_EQ(added->propertyType(), 0);
        EXPECT_TRUE(added->ldesc().isEmpty());
        EXPECT_TRUE(added->sdesc().isEmpty());
        EXPECT_FALSE(added->isInternal());
    }
    EXPECT_EQ(textOf(object), "a=8 b=c c=8");
}

TEST(PropertiedObject, RemovesByName)
{
    const auto object = abc();
    object->removeProperty(QStringLiteral("B"));
    object->removeProperty(kB);
    object->removeProperty(kB);
    EXPECT_EQ(textOf(*object), "a=1 c=3");
    EXPECT_FALSE(object->exists(kB));
    object->setProperty(kB, QVariant(4));
    EXPECT_EQ(textOf(*object), "a=1 c=3 b=4");
    object->clearProperties();
    EXPECT_EQ(textOf(*object), "");
    EXPECT_FALSE(object->exists(kA));
}

TEST(PropertiedObject, AddsWhatAListDoesNotHoldByName)
{
    const auto object = abc();
    PKC_Property mine(kB, 20, nullptr);
    std::list<PKC_Property *> properties{&mine};
    object->getAllProperties(properties);
    EXPECT_THAT(properties, ElementsAre(&mine, object->getProperty(kA), object->getProperty(kC)));
    std::list<QString> names{kC};
    object->getAllProperties(names);
    EXPECT_THAT(names, ElementsAre(kC, kA, kB));
    std::map<QString, PKC_Property *> byName{{kB, &mine}};
    object->getAllProperties(byName);
    EXPECT_EQ(byName.size(), 3u);
    EXPECT_EQ(byName[kB], &mine);
    EXPECT_EQ(byName[kA], object->getProperty(kA));
}

TEST(PropertiedObject, CountsAndComparesWhatAKindOfItsOwnAdds)
{
    WithOneMore more;
    EXPECT_EQ(more.propertiesCount(), 1);
    more.setProperty(kA, QVariant(1));
    more.setProperty(QStringLiteral("extra"), QVariant(10)); // hidden by the one that was there first
    EXPECT_EQ(more.propertiesCount(), 2);
    PKC_PropertiedObject other;
    EXPECT_FALSE(other.propertiesCompare(&more));
    other.propertiesCopyFrom(&more, true);
    EXPECT_EQ(textOf(other), "extra=9 a=1");
    EXPECT_TRUE(other.propertiesCompare(&more));
}

TEST(PropertiedObject, ComparesOnlyWhatTheOtherHas)
{
    const auto large = abc();
    PKC_PropertiedObject small;
    EXPECT_TRUE(large->propertiesCompare(&small));
    EXPECT_TRUE(small.propertiesCompare(&small));
    small.setProperty(kB, QVariant(2.0));
    EXPECT_TRUE(large->propertiesCompare(&small));
    EXPECT_FALSE(small.propertiesCompare(large.get()));
    small.setProperty(kB, QVariant(5));
    EXPECT_FALSE(large->propertiesCompare(&small));
    EXPECT_FALSE(large->propertiesCompare(nullptr));
    PKC_PropertiedObject odd;
    odd.setProperty(kA, QVariant(qQNaN()));
    EXPECT_TRUE(odd.propertiesCompare(&odd)); // the same property is equal whatever it holds
}

TEST(PropertiedObject, CopiesValuesOfWhatBothHave)
{
    Warnings warnings;
    PKC_PropertiedObject target;
    target.addPropertyFromRange(kC, 1, 0, 10, nullptr);
    target.setProperty(kA, QVariant(QStringLiteral("text")));
    auto source = abc();
    source->setProperty(kC, QVariant(-4));
    source->setProperty(QStringLiteral("d"), QVariant(5));
    target.propertiesCopyFrom(source.get(), false);
    EXPECT_EQ(warnings.taken().size(), 1u); // c refused, the rest went on
    EXPECT_EQ(textOf(target), "c=1 a=1");
    EXPECT_EQ(target.getProperty(kA)->type(), QMetaType::QString);
    source->setProperty(kC, QVariant(4));
    target.propertiesCopyFrom(source.get(), true);
    EXPECT_EQ(textOf(target), "c=4 a=1 b=2 d=5");
    target.propertiesCopyFrom(&target, true);
    target.propertiesCopyFrom(nullptr, true);
    EXPECT_EQ(textOf(target), "c=4 a=1 b=2 d=5");
}

TEST(PropertiedObject, CopiesMissingPropertiesAsTheyAre)
{
    PKC_PropertiedObject source;
    source.addPropertyFromRange(kA, 1, 0, 10, kB, kC, true, true);
    PKC_PropertiedObject target;
    target.propertiesCopyFrom(&source, true);
    const PKC_Property *copy = target.getProperty(kA);
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, source.getProperty(kA));
    EXPECT_EQ(copy->propertyType(), 2);
    EXPECT_EQ(copy->ldesc(), kB);
    EXPECT_TRUE(copy->isReadOnly());
}

TEST(PropertiedObject, SetsItselfFromAnother)
{
    auto target = abc();
    PKC_PropertiedObject source;
    source.addPropertyFromRange(kC, 30, 0, 99, nullptr);
    source.setProperty(QStringLiteral("d"), QVariant(4));
    target->propertiesSetFrom(&source);
    EXPECT_EQ(textOf(*target), "c=30 d=4");
    EXPECT_EQ(target->getProperty(kC)->propertyType(), 2);
    target->propertiesSetFrom(target.get());
    target->propertiesSetFrom(nullptr);
    EXPECT_EQ(textOf(*target), "c=30 d=4");
}

TEST(PropertiedObject, CopiesOneProperty)
{
    auto target = abc();
    PKC_PropertiedObject source;
    source.addPropertyFromRange(kA, 7, 0, 10, kB, kC, false, true);
    target->propertyCopyFrom(&source, kA, QString());
    target->propertyCopyFrom(&source, kA, kB);
    target->propertyCopyFrom(&source, kA, QStringLiteral("d"));
    target->propertyCopyFrom(&source, kC, kA);
    target->propertyCopyFrom(nullptr, kA, kB);
    EXPECT_EQ(textOf(*target), "a=7 b=7 c=3 d=7");
    EXPECT_EQ(target->getProperty(QStringLiteral("d"))->propertyType(), 0);
    EXPECT_TRUE(target->getProperty(QStringLiteral("d"))->ldesc().isEmpty());
    target->propertyCopyFrom(target.get(), kC, kA);
    EXPECT_EQ(target->getPropertyInt(kA, 0), 3);
}

TEST(PropertiedObject, IsCopiedByBuildingAnew)
{
    class Listener : public PKC_PropertyObserver
    {
    public:
        void onPropertyModified(PKC_Property *) override { ++heard; }
        int heard = 0;
    };
    const auto object = abc();
    Listener listener;
    listener.registerObservable(object->getProperty(kA));
    PKC_PropertiedObject copy(*object);
    EXPECT_EQ(textOf(copy), "a=1 b=2 c=3");
    copy.setProperty(kA, QVariant(10));
    EXPECT_EQ(listener.heard, 0);
    EXPECT_EQ(textOf(*object), "a=1 b=2 c=3");
    copy.setProperty(QStringLiteral("d"), QVariant(4));
    copy = *object;
    EXPECT_EQ(textOf(copy), "a=1 b=2 c=3");
    const PKC_PropertiedObject &self = copy;
    copy = self;
    EXPECT_EQ(textOf(copy), "a=1 b=2 c=3");
}

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

TEST(PropertiedObject, LoadsByThePropertiesItHas)
{
    const auto object = abc();
    object->setProperty(QStringLiteral("t"), QVariant(QStringLiteral("old")));
    EXPECT_TRUE(loadInto(*object,
        QStringLiteral("<properties><!-- c --><unknown value='1'/>text<c value='30'/><a value='ten'/><x><b "
                       "value='9'/></x><t value='12'/></properties>")));
    EXPECT_EQ(textOf(*object), "a=0 b=2 c=30 t=12");
    EXPECT_TRUE(loadInto(*object, QStringLiteral("<properties/>")));
    EXPECT_EQ(textOf(*object), "a=0 b=2 c=30 t=12");
}

TEST(PropertiedObject, LoadsNothingFromAnElementOfAnotherName)
{
    const auto object = abc();
    for (const char *name : {"Properties", "profile", "a"})
        EXPECT_FALSE(loadInto(*object, QStringLiteral("<%1><a value='9'/></%1>").arg(QString::fromLatin1(name))));
    EXPECT_EQ(textOf(*object), "a=1 b=2 c=3");
    Profile profile;
    profile.setProperty(kA, QVariant(1));
    EXPECT_FALSE(loadInto(profile, QStringLiteral("<properties><a value='9'/></properties>")));
    EXPECT_TRUE(loadInto(profile, QStringLiteral("<profile><a value='9'/></profile>")));
    EXPECT_EQ(textOf(profile), "a=9");
}

TEST(PropertiedObject, StopsLoadingAtAPropertyThatRefuses)
{
    Warnings warnings;
    const auto object = abc();
    object->addPropertyFromRange(kB, 5, 0, 10, nullptr);
    EXPECT_FALSE(
        loadInto(*object, QStringLiteral("<properties><a value='7'/><b value='-7'/><c value='7'/></properties>")));
    EXPECT_THAT(
        warnings.taken(), ElementsAre("Invalid PKC_PropertyFromRange, out of range (lower). Init value to min."));
    EXPECT_EQ(textOf(*object), "a=7 b=5 c=3");
}

TEST(PropertiedObject, StopsLoadingAtAReadOnlyPropertyAndAtOneWithoutType)
{
    for (const bool isReadOnly : {true, false}) {
        Warnings warnings;
        const auto object = abc();
        object->addProperty(kB, isReadOnly ? QVariant(5) : QVariant(), kA, kA, isReadOnly, false);
        const QString markup = stored(*object);
        EXPECT_EQ(warnings.taken().size(), isReadOnly ? 0u : 1u);
        object->setProperty(kA, QVariant(10));
        object->setProperty(kC, QVariant(30));
        QDomDocument document;
        ASSERT_TRUE(document.setContent(markup));
        QDomElement element = document.documentElement().firstChildElement();
        EXPECT_FALSE(object->load(element));
        EXPECT_THAT(warnings.taken(),
            ElementsAre(isReadOnly ? "Could not change value of property b, property is read only"
                                   : "Cannot convert property of type  from string = ."));
        EXPECT_EQ(textOf(*object), isReadOnly ? "a=1 b=5 c=30" : "a=1 b= c=30");
    }
}

TEST(PropertiedObject, StoresItsPropertiesInOrder)
{
    Warnings warnings;
    Profile profile;
    int number = 0;
    for (const SampleValue &sample : sampleValues())
        profile.setProperty(QStringLiteral("p%1").arg(40 - number++), sample.value);
    profile.setProperty(QStringLiteral("no name"), QVariant(1));
    const QString markup = stored(profile);
    EXPECT_THAT(warnings.taken(), ElementsAre("Could not store property no name, no element can be named so"));
    expectGolden("properties.xml", markup.toStdString());

    Profile again;
    number = 0;
    for (const SampleValue &sample : sampleValues())
        again.setProperty(QStringLiteral("p%1").arg(40 - number++), QVariant(sample.value.metaType()));
    QDomDocument document;
    ASSERT_TRUE(document.setContent(markup));
    QDomElement element = document.documentElement().firstChildElement();
    EXPECT_TRUE(again.load(element));
    EXPECT_EQ(stored(again), markup);
}

TEST(PropertiedObject, StoresNothingAsAnEmptyElement)
{
    EXPECT_EQ(stored(PKC_PropertiedObject()).simplified().toStdString(), "<root> <properties/> </root>");
}
