#include "scene/base/SC_Id.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <set>

namespace
{

// Made before main(), as the keys of static maps are.
const UT_Id keyMadeEarly = UT_Id::createUnique();
const UT_Id otherKeyMadeEarly = UT_Id::createUnique();

} // namespace

TEST(Id, IsNullByDefault)
{
    EXPECT_TRUE(UT_Id().isNull());
    EXPECT_TRUE(SC_Id().isNull());
    EXPECT_EQ(SC_Id().value(), 0);
    EXPECT_EQ(SC_Id().AsString(), QStringLiteral("0"));
    EXPECT_EQ(SC_Id::nullSceneId(), SC_Id());
    EXPECT_EQ(&SC_Id::nullSceneId(), &SC_Id::nullSceneId());
}

TEST(Id, ReadsBackItsOwnText)
{
    for (const qint64 number : {qint64(0), qint64(1), qint64(-1), qint64(4294967296),
             std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::min()}) {
        SC_Id id(5);
        EXPECT_TRUE(id.parseXml(SC_Id(number).AsString())) << number;
        EXPECT_EQ(id.value(), number);
    }
}

TEST(Id, TextHoldsNoComma)
{
    EXPECT_EQ(SC_Id(-1234567890123).AsString(), QStringLiteral("-1234567890123"));
}

TEST(Id, BecomesNullOnBadText)
{
    for (const QString &bad : {QString(), QStringLiteral(""), QStringLiteral("x"), QStringLiteral("12x"),
             QStringLiteral("9223372036854775808"), QStringLiteral("-9223372036854775809"), QStringLiteral("1.0"),
             QStringLiteral("0x10"), QStringLiteral("1,000"), QStringLiteral("-"), QStringLiteral("\u0661")}) {
        SC_Id id(7);
        EXPECT_FALSE(id.parseXml(bad)) << bad.toStdString();
        EXPECT_TRUE(id.isNull()) << bad.toStdString();
    }
}

TEST(Id, ReadsOneTextOnlyForEachNumber)
{
    for (const QString &other : {QStringLiteral(" 7"), QStringLiteral("7 "), QStringLiteral("7\n"),
             QStringLiteral("+7"), QStringLiteral("007"), QStringLiteral("-0")}) {
        SC_Id id(7);
        EXPECT_FALSE(id.parseXml(other)) << other.toStdString();
        EXPECT_TRUE(id.isNull()) << other.toStdString();
    }
}

TEST(Id, UniqueOnesDifferFromEachOtherAndFromWhatProjectsGiveOut)
{
    std::set<qint64> numbers{keyMadeEarly.value(), otherKeyMadeEarly.value()};
    for (int i = 0; i < 1000; ++i) {
        const UT_Id id = UT_Id::createUnique();
        EXPECT_LT(id.value(), 0);
        EXPECT_TRUE(numbers.insert(id.value()).second);
    }
    EXPECT_EQ(numbers.size(), 1002u);
}

TEST(Id, IsOrderedByItsNumber)
{
    EXPECT_LT(SC_Id(-3), SC_Id(2));
    EXPECT_FALSE(SC_Id(2) < SC_Id(2));
    EXPECT_FALSE(SC_Id(3) < SC_Id(2));
    EXPECT_EQ(SC_Id(2), SC_Id(2));
    EXPECT_FALSE(SC_Id(2) == SC_Id(3));
    EXPECT_NE(SC_Id(2), SC_Id(3));
}

TEST(Id, IsAKeyAlsoWhenMadeFromAPlainId)
{
    std::map<SC_Id, int> valueOf;
    valueOf[SC_Id(keyMadeEarly)] = 1;
    valueOf[SC_Id(otherKeyMadeEarly)] = 2;
    EXPECT_EQ(valueOf.size(), 2u);
    EXPECT_EQ(valueOf.at(SC_Id(keyMadeEarly)), 1);
    EXPECT_EQ(qHash(SC_Id(5), 1), qHash(SC_Id(5), 1));
}
