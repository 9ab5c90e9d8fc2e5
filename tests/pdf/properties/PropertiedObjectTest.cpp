#include "pdf/properties/PropertiedObjects.h"

#include "pdf/properties/PKC_PropertyFromFile.h"
#include "pdf/properties/PKC_PropertyFromList.h"
#include "pdf/properties/PKC_PropertyFromRange.h"
#include "support/Warnings.h"

#include <QDataStream>
#include <QIODevice>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <list>
#include <memory>

using namespace PropertiedObjects;
using testing::ElementsAre;

namespace
{

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
