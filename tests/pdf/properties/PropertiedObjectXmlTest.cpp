#include "pdf/properties/PropertiedObjects.h"

#include "pdf/properties/PKC_PropertyFromRange.h"
#include "pdf/properties/Samples.h"
#include "support/Golden.h"
#include "support/Warnings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace PropertiedObjects;
using testing::ElementsAre;

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
