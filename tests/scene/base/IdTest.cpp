#include "scene/base/SC_Id.h"

#include <gtest/gtest.h>

TEST(Id, IsNullByDefault)
{
    EXPECT_TRUE(UT_Id().isNull());
    EXPECT_EQ(SC_Id().AsString(), QStringLiteral("0"));
    EXPECT_EQ(SC_Id::nullSceneId(), SC_Id());
}

TEST(Id, ReadsBackItsOwnText)
{
    SC_Id id;
    EXPECT_TRUE(id.parseXml(SC_Id(-9223372036854775807LL).AsString()));
    EXPECT_EQ(id.value(), -9223372036854775807LL);
}

TEST(Id, BecomesNullOnBadText)
{
    for (const QString &bad :
        {QString(), QStringLiteral("x"), QStringLiteral("12x"), QStringLiteral("9223372036854775808")}) {
        SC_Id id(7);
        EXPECT_FALSE(id.parseXml(bad));
        EXPECT_TRUE(id.isNull()) << bad.toStdString();
    }
}

TEST(Id, UniqueOnesDifferFromEachOtherAndFromNull)
{
    const UT_Id first = UT_Id::createUnique();
    const UT_Id second = UT_Id::createUnique();
    EXPECT_NE(first, second);
    EXPECT_LT(first.value(), 0);
    EXPECT_LT(second.value(), 0);
}
