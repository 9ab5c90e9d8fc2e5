#include "scene/base/AT_Frame.h"
#include "scene/base/TUMaths.h"
#include "scene/base/UT_Numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double beyond64Bits = 9223372036854775808.0;

} // namespace

TEST(Numbers, CutAFrameTowardZeroAndKeepTheLowBits)
{
    EXPECT_EQ(UT_Numbers::toFrame(0.0), 0u);
    EXPECT_EQ(UT_Numbers::toFrame(1.999), 1u);
    EXPECT_EQ(UT_Numbers::toFrame(-0.999), 0u);
    EXPECT_EQ(UT_Numbers::toFrame(-1.0), 0xFFFFFFFFu);
    EXPECT_EQ(UT_Numbers::toFrame(-1.5), 0xFFFFFFFFu);
    EXPECT_EQ(UT_Numbers::toFrame(4294967295.0), 0xFFFFFFFFu);
    EXPECT_EQ(UT_Numbers::toFrame(4294967296.0), 0u);
    EXPECT_EQ(UT_Numbers::toFrame(4294967296.0 * 3 + 7), 7u);
}

TEST(Numbers, GiveFrame0ForWhatIsNoFrame)
{
    for (const double odd : {infinity, -infinity, notANumber, beyond64Bits, -beyond64Bits, 1e300, -1e300})
        EXPECT_EQ(UT_Numbers::toFrame(odd), 0u) << odd;
}

TEST(Numbers, HoldAnIntWithinItsRange)
{
    EXPECT_EQ(UT_Numbers::toInt(2.9), 2);
    EXPECT_EQ(UT_Numbers::toInt(-2.9), -2);
    EXPECT_EQ(UT_Numbers::toInt(notANumber), 0);
    for (const double big : {2147483647.0, 2147483648.0, 1e300, infinity})
        EXPECT_EQ(UT_Numbers::toInt(big), 2147483647) << big;
    for (const double small : {-2147483648.0, -2147483649.0, -1e300, -infinity})
        EXPECT_EQ(UT_Numbers::toInt(small), std::numeric_limits<int>::min()) << small;
    EXPECT_EQ(UT_Numbers::toInt(2147483646.5), 2147483646);
}

TEST(Maths, RoundHalvesAwayFromZeroWithinTheRangeOfInt)
{
    EXPECT_EQ(TUMaths::round(0.5), 1);
    EXPECT_EQ(TUMaths::round(-0.5), -1);
    EXPECT_EQ(TUMaths::round(1.5), 2);
    EXPECT_EQ(TUMaths::round(2.5), 3);
    EXPECT_EQ(TUMaths::round(2.4999999), 2);
    EXPECT_EQ(TUMaths::round(0.49999999999999994), 0);
    EXPECT_EQ(TUMaths::round(1e20), 2147483647);
    EXPECT_EQ(TUMaths::round(-1e20), std::numeric_limits<int>::min());
    EXPECT_EQ(TUMaths::round(notANumber), 0);
}

TEST(Maths, DropTheSign)
{
    EXPECT_EQ(TUMaths::abs(-2.5), 2.5);
    EXPECT_EQ(TUMaths::abs(2.5), 2.5);
    EXPECT_EQ(TUMaths::abs(-infinity), infinity);
}

TEST(Frame, RoundsHalvesAwayFromZero)
{
    EXPECT_EQ(AT_Frame::roundToUnsigned(0.5), 1);
    EXPECT_EQ(AT_Frame::roundToUnsigned(1.5), 2);
    EXPECT_EQ(AT_Frame::roundToUnsigned(2.5), 3);
    EXPECT_EQ(AT_Frame::roundToUnsigned(2.49), 2);
    EXPECT_EQ(AT_Frame::roundToUnsigned(-0.4), 0);
    EXPECT_EQ(AT_Frame::roundToUnsigned(-0.5), -1);
    EXPECT_EQ(AT_Frame::roundToUnsigned(-1.5), -2);
}

TEST(Frame, RoundsIn64BitsAndKeepsTheLowOnes)
{
    EXPECT_EQ(static_cast<unsigned int>(AT_Frame::roundToUnsigned(4294967295.0)), 4294967295u);
    EXPECT_EQ(static_cast<unsigned int>(AT_Frame::roundToUnsigned(2147483648.4)), 2147483648u);
    EXPECT_EQ(AT_Frame::roundToUnsigned(4294967296.0 + 5), 5);
    for (const double odd : {infinity, -infinity, notANumber, beyond64Bits, 1e300})
        EXPECT_EQ(AT_Frame::roundToUnsigned(odd), 0) << odd;
}
