#include "interchange/otio/OtioTime_p.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

std::string text(const OtioTime &time)
{
    return std::to_string(time.numerator()) + "/" + std::to_string(time.denominator());
}

std::string rateText(double rate)
{
    const OtioTime::Rate exact = OtioTime::exactRate(rate);
    return std::to_string(exact.numerator) + "/" + std::to_string(exact.denominator);
}

OtioTime frames(double count, double rate)
{
    return OtioTime::fromUnits(count, OtioTime::exactRate(rate));
}

} // namespace

TEST(OtioTime, TakesRoundedRatesForWhatTheyMean)
{
    EXPECT_EQ(rateText(24), "24/1");
    EXPECT_EQ(rateText(23.976), "24000/1001");
    EXPECT_EQ(rateText(23.98), "24000/1001");
    EXPECT_EQ(rateText(23.976023976023978), "24000/1001");
    EXPECT_EQ(rateText(29.97), "30000/1001");
    EXPECT_EQ(rateText(47.95), "48000/1001");
    EXPECT_EQ(rateText(59.94), "60000/1001");
    EXPECT_EQ(rateText(119.88), "120000/1001");
    EXPECT_EQ(rateText(11.988), "12000/1001");
}

TEST(OtioTime, TakesOtherRatesAsTheyAre)
{
    EXPECT_EQ(rateText(12.5), "25/2");
    EXPECT_EQ(rateText(24.5), "49/2");
    EXPECT_EQ(rateText(24.975), "999/40");
    EXPECT_EQ(rateText(44100), "44100/1");
    EXPECT_EQ(rateText(0.04), "1/25");
}

TEST(OtioTime, HasNoRateFromNonsense)
{
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double bad : {0.0, -24.0, 1e-9, 1e10, infinity, -infinity, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_FALSE(OtioTime::exactRate(bad).isValid()) << bad;
}

TEST(OtioTime, KeepsFractionsOfUnitsExact)
{
    EXPECT_EQ(text(frames(71.94, 24)), "1199/400");
    EXPECT_EQ(text(frames(-0.5, 1)), "-1/2");
    EXPECT_EQ(text(frames(1.0 / 3.0, 1)), "1/3");
    EXPECT_EQ(text(frames(33.333333, 1)), "33333333/1000000");
    EXPECT_EQ(text(frames(std::numeric_limits<double>::quiet_NaN(), 24)), "0/1");
}

TEST(OtioTime, AddsUpWithoutError)
{
    OtioTime sum;
    for (int i = 0; i < 24000; ++i)
        sum = sum + OtioTime::fromUnits(qint64(1), OtioTime::exactRate(23.976));
    EXPECT_EQ(text(sum), "1001/1");
    EXPECT_EQ(text(frames(1, 48000) + frames(1, 44100) - frames(1, 44100)), "1/48000");
}

TEST(OtioTime, RoundsHalvesUpOnBothSidesOfZero)
{
    const UT_FrameRate rate(24);
    EXPECT_EQ(frames(0.5, 24).roundedFrame(rate), 1);
    EXPECT_EQ(frames(0.499999, 24).roundedFrame(rate), 0);
    EXPECT_EQ(frames(-0.5, 24).roundedFrame(rate), 0);
    EXPECT_EQ(frames(-0.500001, 24).roundedFrame(rate), -1);
    EXPECT_EQ(frames(-1.5, 24).roundedFrame(rate), -1);
    EXPECT_TRUE(frames(44100, 44100).isWholeFrame(rate));
    EXPECT_FALSE(frames(44101, 44100).isWholeFrame(rate));
}

TEST(OtioTime, ComparesExactly)
{
    EXPECT_LT(frames(1, 30), frames(1, 29.97));
    EXPECT_EQ(frames(2, 48), frames(1, 24));
    EXPECT_LE(frames(-1, 24), frames(-1, 24));
    EXPECT_GT(frames(1e9, 1), frames(999999999, 1));
}

TEST(OtioTime, HoldsItsBoundsForAnyNumber)
{
    const qint64 most = std::numeric_limits<qint64>::max();
    const qint64 least = std::numeric_limits<qint64>::min();
    const OtioTime::Rate slow = OtioTime::exactRate(0.001);
    const OtioTime::Rate fast = OtioTime::exactRate(999999999.9999);
    for (const OtioTime::Rate &rate : {slow, fast}) {
        for (const OtioTime &time : {OtioTime::fromUnits(most, rate), OtioTime::fromUnits(least, rate),
                 OtioTime::fromUnits(1e300, rate), OtioTime::fromUnits(-1e300, rate)}) {
            const OtioTime twice = time + time;
            EXPECT_LE(std::abs(twice.seconds()), 4294967296.0);
            EXPECT_LE(std::abs(twice.roundedFrame(UT_FrameRate(4294967295U))), qint64(1) << 62);
        }
    }
    EXPECT_TRUE(OtioTime::fromUnits(most, slow).isAtLimit());
    EXPECT_EQ(text(OtioTime::fromUnits(least, slow)), "-4294967296/1");
    EXPECT_EQ(text(frames(4294967295.5, 1)), "8589934591/2");
    EXPECT_EQ(text(frames(4294967296.5, 1)), "4294967296/1");
    EXPECT_EQ(text(frames(-4294967295.5, 1)), "-8589934591/2");
    EXPECT_EQ(text(frames(-4294967296.5, 1)), "-4294967296/1");
}

TEST(OtioTime, RoundsSumsOfUnrelatedRatesToAFineGrid)
{
    OtioTime sum;
    double plain = 0;
    for (int i = 0; i < 200; ++i) {
        const double rate = 101.0 + 2 * i + 0.123457 * i;
        sum = sum + OtioTime::fromUnits(qint64(1), OtioTime::exactRate(rate));
        plain += 1.0 / rate;
    }
    EXPECT_NEAR(sum.seconds(), plain, 1e-6);
}
