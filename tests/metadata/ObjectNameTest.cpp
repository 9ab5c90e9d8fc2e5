#include "metadata/PKC_ObjectName.h"

#include <gtest/gtest.h>

#include <type_traits>

TEST(ObjectName, IsEmptyAutomaticAndFreeByDefault)
{
    const PKC_ObjectName name;
    EXPECT_TRUE(name.value().isEmpty());
    EXPECT_EQ(name.flag(), 0);
    EXPECT_FALSE(name.isLocked());
    EXPECT_FALSE(name.isCustom());
    EXPECT_TRUE(name.isAuto());
}

TEST(ObjectName, ReadsTwoBitsOfItsFlagAndKeepsTheOthers)
{
    PKC_ObjectName name;
    name.setFlag(1);
    EXPECT_TRUE(name.isLocked());
    EXPECT_FALSE(name.isCustom());
    EXPECT_TRUE(name.isAuto());
    name.setFlag(2);
    EXPECT_FALSE(name.isLocked());
    EXPECT_TRUE(name.isCustom());
    EXPECT_FALSE(name.isAuto());
    name.setFlag(-4);
    EXPECT_FALSE(name.isLocked());
    EXPECT_FALSE(name.isCustom());
    EXPECT_EQ(name.flag(), -4);
    name.setFlag(-1);
    EXPECT_TRUE(name.isLocked());
    EXPECT_TRUE(name.isCustom());
}

TEST(ObjectName, GivesTheOldFlagWhenANewOneIsSet)
{
    PKC_ObjectName name;
    EXPECT_EQ(name.setFlag(3), 0);
    EXPECT_EQ(name.setFlag(5), 3);
    EXPECT_EQ(name.flag(), 5);
}

TEST(ObjectName, CopiesTextAndFlag)
{
    PKC_ObjectName name;
    name.setValue(QStringLiteral("Żółw"));
    name.setFlag(3);
    const PKC_ObjectName copy(name);
    PKC_ObjectName assigned;
    assigned = name;
    name.setValue(QStringLiteral("other"));
    name.setFlag(0);
    for (const PKC_ObjectName &same : {copy, assigned}) {
        EXPECT_EQ(same.value(), QStringLiteral("Żółw"));
        EXPECT_EQ(same.flag(), 3);
    }
}

TEST(ObjectName, StaysAsItIsWhenGivenItself)
{
    PKC_ObjectName name;
    name.setValue(QStringLiteral("A"));
    name.setFlag(2);
    const PKC_ObjectName &self = name;
    name = self;
    name.setValue(name.value());
    EXPECT_EQ(name.value(), QStringLiteral("A"));
    EXPECT_EQ(name.flag(), 2);
}

TEST(ObjectName, MayBeDerivedFrom)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<PKC_ObjectName>);
}
