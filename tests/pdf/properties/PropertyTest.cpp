#include "pdf/properties/PKC_Property.h"

#include "pdf/properties/PKC_PropertiedObject.h"
#include "pdf/properties/PKC_PropertyFactory.h"
#include "pdf/properties/PKC_PropertyFromCaptionList.h"
#include "pdf/properties/PKC_PropertyFromFile.h"
#include "pdf/properties/PKC_PropertyFromFont.h"
#include "pdf/properties/PKC_PropertyFromList.h"
#include "pdf/properties/PKC_PropertyFromRange.h"
#include "support/Warnings.h"

#include <QDomDocument>
#include <QPoint>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

const QString kName = QStringLiteral("dpi");

UT_SharedPtr<PKC_PropertyDefinition> definition(bool readOnly = false)
{
    return new PKC_PropertyDefinition(QStringLiteral("Long"), QStringLiteral("Short"), readOnly, false);
}

} // namespace

TEST(PropertyDefinition, IsInternalAndWritableUnlessTold)
{
    const PKC_PropertyDefinition plain;
    EXPECT_TRUE(plain.ldesc().isEmpty());
    EXPECT_TRUE(plain.sdesc().isEmpty());
    EXPECT_FALSE(plain.isReadOnly());
    EXPECT_TRUE(plain.isInternal());
    PKC_PropertyDefinition told(QStringLiteral("l"), QStringLiteral("s"), true, false);
    EXPECT_EQ(told.ldesc(), QStringLiteral("l"));
    EXPECT_EQ(told.sdesc(), QStringLiteral("s"));
    EXPECT_TRUE(told.isReadOnly());
    EXPECT_FALSE(told.isInternal());
    told.setReadOnly(false);
    told.setInternal(true);
    EXPECT_FALSE(told.isReadOnly());
    EXPECT_TRUE(told.isInternal());
}

TEST(Property, StartsWithoutTypeValueAndDefinition)
{
    const PKC_Property property(kName);
    EXPECT_EQ(property.name(), kName);
    EXPECT_FALSE(property.value().isValid());
    EXPECT_FALSE(property.isValid());
    EXPECT_TRUE(property.isNull());
    EXPECT_EQ(property.type(), QMetaType::UnknownType);
    EXPECT_EQ(property.typeName(), nullptr);
    EXPECT_EQ(property.propertyType(), 0);
    EXPECT_TRUE(property.ldesc().isEmpty());
    EXPECT_EQ(&property.ldesc(), &property.sdesc());
    EXPECT_FALSE(property.isReadOnly());
    EXPECT_FALSE(property.isInternal());
    EXPECT_FALSE(std::is_copy_constructible_v<PKC_Property>);
    EXPECT_FALSE(std::is_copy_assignable_v<PKC_Property>);
    EXPECT_TRUE(std::has_virtual_destructor_v<PKC_PropertyObservable>);
}

TEST(Property, TakesItsFirstValueFromAValueOrAProperty)
{
    const PKC_Property property(kName, 150, definition());
    EXPECT_EQ(property.value(), QVariant(150));
    EXPECT_EQ(property.type(), QMetaType::Int);
    EXPECT_STREQ(property.typeName(), "int");
    EXPECT_EQ(property.ldesc(), QStringLiteral("Long"));
    EXPECT_EQ(property.sdesc(), QStringLiteral("Short"));
    const PKC_Property other(QStringLiteral("other"), property, nullptr);
    EXPECT_EQ(other.name(), QStringLiteral("other"));
    EXPECT_EQ(other.value(), QVariant(150));
    EXPECT_TRUE(other.ldesc().isEmpty());
}

TEST(Property, ConvertsItsValueAsAVariantDoes)
{
    const PKC_Property property(kName, QStringLiteral("17"), nullptr);
    EXPECT_TRUE(property.toBool());
    EXPECT_EQ(property.toInt(), 17);
    EXPECT_EQ(property.toUInt(), 17u);
    EXPECT_EQ(property.toLongLong(), 17);
    EXPECT_EQ(property.toULongLong(), 17u);
    EXPECT_EQ(property.toDouble(), 17.0);
    EXPECT_EQ(property.toString(), QStringLiteral("17"));
    EXPECT_EQ(PKC_Property(kName, QStringLiteral("#010203"), nullptr).toColor(), QColor(1, 2, 3));
    EXPECT_EQ(PKC_Property(kName, 1234567.5, nullptr).toString(), QStringLiteral("1234567.5"));
    EXPECT_TRUE(property.canConvert(QMetaType::Int));
    EXPECT_TRUE(property.canConvert(int(QMetaType::Double)));
    EXPECT_FALSE(property.canConvert(QMetaType::QPoint));
#if QT_DEPRECATED_SINCE(6, 0)
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    EXPECT_TRUE(property.canConvert(QVariant::Int));
    EXPECT_FALSE(property.canConvert(QVariant::Point));
    QT_WARNING_POP
#endif
}

TEST(Property, KeepsTheTypeItWasBornWith)
{
    PKC_Property property(kName);
    EXPECT_TRUE(property.setValue(QVariant(1)));
    EXPECT_TRUE(property.setValue(QVariant(QStringLiteral("42"))));
    EXPECT_EQ(property.type(), QMetaType::Int);
    EXPECT_EQ(property.toInt(), 42);
    EXPECT_TRUE(property.setValue(QVariant(2.75)));
    EXPECT_EQ(property.type(), QMetaType::Int);
    EXPECT_EQ(property.toInt(), 3);
    const QVariant given(QStringLiteral("8"));
    EXPECT_TRUE(property.setValue(given));
    EXPECT_EQ(given.typeId(), QMetaType::QString); // only a copy of it was converted
}

TEST(Property, RefusesWhatCannotBeConverted)
{
    Warnings warnings;
    PKC_Property property(kName, 7, nullptr);
    EXPECT_FALSE(property.setValue(QVariant(QStringLiteral("abc"))));
    EXPECT_THAT(warnings.taken(),
        ElementsAre("Could not change value of property dpi, type is not compatible -- from QString to int"));
    EXPECT_EQ(warnings.category(), "plotka.properties");
    EXPECT_EQ(property.value(), QVariant(7));
    EXPECT_FALSE(property.setValue(QVariant()));
    EXPECT_THAT(warnings.taken(),
        ElementsAre("Could not change value of property dpi, type is not compatible -- from  to int"));
    EXPECT_FALSE(property.setValue(QVariant(QPoint(1, 2))));
    EXPECT_THAT(warnings.taken(),
        ElementsAre("Could not change value of property dpi, type is not compatible -- from QPoint to int"));
    EXPECT_EQ(property.type(), QMetaType::Int);
    EXPECT_EQ(property.value(), QVariant(7));
}

TEST(Property, TakesANullValueOfItsTypeOnly)
{
    Warnings warnings;
    PKC_Property property(kName, 7, nullptr);
    EXPECT_FALSE(property.setValue(QVariant(QString())));
    EXPECT_FALSE(property.setValue(QVariant(QMetaType(QMetaType::QString))));
    const std::string refused = "Could not change value of property dpi, type is not compatible -- from QString to int";
    EXPECT_THAT(warnings.taken(), ElementsAre(refused, refused));
    EXPECT_EQ(property.value(), QVariant(7));
    EXPECT_TRUE(property.setValue(QVariant(QMetaType(QMetaType::Int))));
    EXPECT_TRUE(property.isNull());
    EXPECT_TRUE(property.isValid());
    EXPECT_EQ(property.toInt(), 0);
}

TEST(Property, IsSetByOneFunctionWhateverItIsSetFrom)
{
    class Counting : public PKC_Property
    {
    public:
        using PKC_Property::PKC_Property;
        using PKC_Property::setValue;
        bool setValue(const QVariant &value) override
        {
            ++count;
            return PKC_Property::setValue(value);
        }
        int count = 0;
    };
    PKC_PropertiedObject object;
    auto *const property = new Counting(kName, 1, nullptr);
    object.addProperty(property);
    EXPECT_TRUE(property->setValue(PKC_Property(kName, 2, nullptr)));
    EXPECT_EQ(property->count, 1);
    EXPECT_TRUE(property->setValueFromString(QStringLiteral("3")));
    EXPECT_EQ(property->count, 2);
    QDomDocument document;
    QDomElement element = document.createElement(kName);
    EXPECT_TRUE(property->load(element));
    EXPECT_EQ(property->count, 3);
    PKC_PropertiedObject source;
    source.setProperty(kName, QVariant(5));
    object.propertiesCopyFrom(&source, false);
    EXPECT_EQ(property->count, 4);
    object.setProperty(kName, *source.getProperty(kName));
    EXPECT_EQ(property->count, 5);
    object.setProperty(kName, QVariant(6));
    EXPECT_EQ(property->count, 6);
    object.propertyCopyFrom(&source, kName, QString());
    EXPECT_EQ(property->count, 7);
    EXPECT_EQ(property->toInt(), 5);
}

TEST(Property, PrintsNamesThatLookLikePlaceholdersAsTheyAre)
{
    Warnings warnings;
    PKC_Property property(QStringLiteral("%s%n \u017c"), 7, nullptr);
    EXPECT_FALSE(property.setValue(QVariant(QStringLiteral("x"))));
    EXPECT_THAT(warnings.taken(),
        ElementsAre("Could not change value of property %s%n \u017c, type is not compatible -- from QString to int"));
}

TEST(Property, AssignsOnceWhenReadOnly)
{
    Warnings warnings;
    PKC_Property property(kName, QVariant(), definition(/*readOnly*/ true));
    EXPECT_TRUE(property.isReadOnly());
    EXPECT_FALSE(property.isValid());
    EXPECT_TRUE(property.setValue(QVariant(1)));
    EXPECT_THAT(warnings.taken(), IsEmpty());
    EXPECT_FALSE(property.setValue(QVariant(2)));
    EXPECT_THAT(warnings.taken(), ElementsAre("Could not change value of property dpi, property is read only"));
    EXPECT_FALSE(property.setValue(QVariant(1)));
    EXPECT_THAT(warnings.taken(), ElementsAre("Could not change value of property dpi, property is read only"));
    EXPECT_FALSE(property.setValueFromString(QStringLiteral("3")));
    EXPECT_THAT(warnings.taken(), ElementsAre("Could not change value of property dpi, property is read only"));
    EXPECT_EQ(property.toInt(), 1);
    property.setReadOnly(false);
    EXPECT_TRUE(property.setValue(QVariant(2)));
}

TEST(Property, TakesItsOwnValue)
{
    PKC_Property property(kName, QStringLiteral("text"), nullptr);
    EXPECT_TRUE(property.setValue(property.value()));
    EXPECT_TRUE(property.setValue(property));
    EXPECT_EQ(property.toString(), QStringLiteral("text"));
}

TEST(Property, SharesItsDefinition)
{
    const auto shared = definition();
    PKC_Property one(QStringLiteral("one"), 1, shared);
    PKC_Property two(QStringLiteral("two"), 2, shared);
    const std::unique_ptr<PKC_Property> clone(two.clone());
    one.setReadOnly(true);
    one.setInternal(true);
    for (const PKC_Property *property : {&one, &two, clone.get()}) {
        EXPECT_TRUE(property->isReadOnly());
        EXPECT_TRUE(property->isInternal());
    }
    PKC_Property without(kName, 1, nullptr);
    without.setReadOnly(true);
    without.setInternal(true);
    EXPECT_FALSE(without.isReadOnly());
    EXPECT_FALSE(without.isInternal());
}

TEST(Property, GivesUpItsDefinitionWithItsLife)
{
    const UT_SharedPtr<PKC_PropertyDefinition> shared = definition();
    {
        const PKC_Property property(kName, 1, shared);
        const std::unique_ptr<PKC_Property> clone(property.clone());
        EXPECT_EQ(shared->refCount, 3);
    }
    EXPECT_EQ(shared->refCount, 1);
}

TEST(Property, ComparesValuesOnly)
{
    const PKC_Property one(QStringLiteral("one"), 1, nullptr);
    const PKC_Property alsoOne(QStringLiteral("other"), 1, definition());
    const PKC_Property two(QStringLiteral("one"), 2, nullptr);
    EXPECT_TRUE(one == alsoOne);
    EXPECT_FALSE(one != alsoOne);
    EXPECT_FALSE(one == two);
    EXPECT_TRUE(one != two);
    EXPECT_TRUE(one == PKC_Property(kName, 1.0, nullptr)); // as numbers
    EXPECT_TRUE(PKC_Property(kName) == PKC_Property(QStringLiteral("b")));
    EXPECT_FALSE(PKC_Property(kName) == one);
}

TEST(Property, ComparesANullTextEqualToAnEmptyOne)
{
    const PKC_Property null(kName, QString(), nullptr);
    const PKC_Property empty(kName, QStringLiteral(""), nullptr);
    const PKC_Property text(kName, QStringLiteral("a"), nullptr);
    EXPECT_TRUE(null == empty);
    EXPECT_TRUE(empty == null);
    EXPECT_FALSE(null == text);
    EXPECT_FALSE(text == PKC_Property(kName, QStringLiteral("A"), nullptr));
}

TEST(PropertyClone, IsOfTheSameKindWithAllFields)
{
    const QMap<QString, QVariant> choices{{QStringLiteral("A"), 1}};
    const PKC_Property plain(kName, 1, definition());
    const PKC_PropertyFromList list(kName, 1, choices, true, true, definition());
    const PKC_PropertyFromRange range(kName, 1, 0, 10, definition());
    const PKC_PropertyFromFile file(kName, QStringLiteral("f"), QStringLiteral("*.png"), definition());
    const PKC_PropertyFromFont font(kName, QStringLiteral("Courier"), definition());
    const PKC_PropertyFromCaptionList captions(kName, QStringLiteral("a;b"), definition());
    int kind = 0;
    for (const PKC_Property *property : {&plain, static_cast<const PKC_Property *>(&list),
             static_cast<const PKC_Property *>(&range), static_cast<const PKC_Property *>(&file),
             static_cast<const PKC_Property *>(&font), static_cast<const PKC_Property *>(&captions)}) {
        const std::unique_ptr<PKC_Property> clone(property->clone());
        EXPECT_EQ(clone->propertyType(), kind++);
        EXPECT_EQ(property->propertyType(), clone->propertyType());
        EXPECT_EQ(typeid(*clone), typeid(*property));
        EXPECT_EQ(clone->name(), property->name());
        EXPECT_EQ(clone->value(), property->value());
        EXPECT_EQ(clone->ldesc(), QStringLiteral("Long"));
    }
    const std::unique_ptr<PKC_Property> listClone(list.clone());
    const auto &clonedList = dynamic_cast<const PKC_PropertyFromList &>(*listClone);
    EXPECT_EQ(clonedList.possibleValues(), choices);
    EXPECT_TRUE(clonedList.allowEmpty());
    EXPECT_TRUE(clonedList.allowMultiple());
    const std::unique_ptr<PKC_Property> rangeClone(range.clone());
    EXPECT_EQ(dynamic_cast<const PKC_PropertyFromRange &>(*rangeClone).min(), QVariant(0));
    EXPECT_EQ(dynamic_cast<const PKC_PropertyFromRange &>(*rangeClone).max(), QVariant(10));
    const std::unique_ptr<PKC_Property> fileClone(file.clone());
    EXPECT_EQ(dynamic_cast<const PKC_PropertyFromFile &>(*fileClone).fileFilter(), QStringLiteral("*.png"));
}

TEST(PropertyClone, LeavesAnEmptyOneEmpty)
{
    for (int kind = 0; kind <= 4; ++kind) {
        const std::unique_ptr<PKC_Property> property(PKC_PropertyFactory::create(kind, kName));
        const std::unique_ptr<PKC_Property> clone(property->clone());
        EXPECT_FALSE(clone->isValid()) << kind;
        EXPECT_EQ(clone->propertyType(), kind);
    }
}

TEST(PropertyFactory, MakesEmptyPropertiesOfFiveKinds)
{
    for (int kind = 0; kind <= 4; ++kind) {
        const std::unique_ptr<PKC_Property> property(PKC_PropertyFactory::create(kind, kName));
        ASSERT_TRUE(property) << kind;
        EXPECT_EQ(property->propertyType(), kind);
        EXPECT_EQ(property->name(), kName);
        EXPECT_FALSE(property->isValid());
        EXPECT_FALSE(property->isInternal());
    }
    const std::unique_ptr<PKC_Property> list(PKC_PropertyFactory::create(1, kName));
    EXPECT_TRUE(dynamic_cast<PKC_PropertyFromList &>(*list).possibleValues().isEmpty());
    EXPECT_FALSE(dynamic_cast<PKC_PropertyFromList &>(*list).allowEmpty());
    EXPECT_FALSE(dynamic_cast<PKC_PropertyFromList &>(*list).allowMultiple());
    const std::unique_ptr<PKC_Property> range(PKC_PropertyFactory::create(2, kName));
    EXPECT_FALSE(dynamic_cast<PKC_PropertyFromRange &>(*range).min().isValid());
    EXPECT_FALSE(dynamic_cast<PKC_PropertyFromRange &>(*range).max().isValid());
    const std::unique_ptr<PKC_Property> file(PKC_PropertyFactory::create(3, kName));
    EXPECT_EQ(dynamic_cast<PKC_PropertyFromFile &>(*file).fileFilter(), QStringLiteral("*.*"));
}

TEST(PropertyFactory, MakesNothingOfOtherKinds)
{
    for (const int kind : {-1, 5, 6, 2147483647, -2147483647 - 1})
        EXPECT_EQ(PKC_PropertyFactory::create(kind, kName), nullptr) << kind;
}
