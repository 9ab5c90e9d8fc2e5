#include "scene/base/UT_Format.h"
#include "scene/base/UT_FrameRate.h"
#include "scene/base/whoami.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace
{

// Asked for before main() makes an application.
const QString nameWithoutApplication = whoami::progName();

std::string timecode(unsigned int frame, unsigned int rate)
{
    return UT_Format::formatFrame(frame, rate, true, 0).ToQString().toStdString();
}

} // namespace

TEST(FrameRate, Is24UnlessSet)
{
    EXPECT_EQ(UT_FrameRate(), UT_FrameRate(24));
    EXPECT_EQ(UT_FrameRate().asString(), QStringLiteral("24"));
    EXPECT_EQ(UT_FrameRate().fps(), 24.0);
    EXPECT_EQ(UT_FrameRate().fpsRound(), 24u);
}

TEST(FrameRate, IsAReducedFractionWithoutZeroes)
{
    EXPECT_EQ(UT_FrameRate(48, 2), UT_FrameRate(24));
    EXPECT_EQ(UT_FrameRate(48000, 2002).asString(), QStringLiteral("24000/1001"));
    EXPECT_EQ(UT_FrameRate(0), UT_FrameRate(1));
    EXPECT_EQ(UT_FrameRate(24, 0), UT_FrameRate(24));
    EXPECT_NE(UT_FrameRate(24), UT_FrameRate(25));
    EXPECT_NE(UT_FrameRate(24), UT_FrameRate(24, 5));
}

TEST(FrameRate, RoundsToAtLeastOneFrameASecond)
{
    EXPECT_EQ(UT_FrameRate(24000, 1001).fpsRound(), 24u);
    EXPECT_EQ(UT_FrameRate(30000, 1001).fpsRound(), 30u);
    EXPECT_EQ(UT_FrameRate(25, 2).fpsRound(), 13u);
    EXPECT_EQ(UT_FrameRate(1, 4).fpsRound(), 1u);
    EXPECT_EQ(UT_FrameRate(4294967295u).fpsRound(), 4294967295u);
    EXPECT_EQ(UT_FrameRate(1, 4294967295u).fpsRound(), 1u);
}

TEST(FrameRate, ReadsBackItsOwnText)
{
    for (const UT_FrameRate &rate :
        {UT_FrameRate(24), UT_FrameRate(24000, 1001), UT_FrameRate(1, 4294967295u), UT_FrameRate(4294967295u)}) {
        UT_FrameRate read(7);
        EXPECT_TRUE(read.parse(rate.asString()));
        EXPECT_EQ(read, rate) << rate.asString().toStdString();
    }
    UT_FrameRate read(7);
    EXPECT_TRUE(read.parse(QStringLiteral("48/2")));
    EXPECT_EQ(read, UT_FrameRate(24));
}

TEST(FrameRate, KeepsItsValueOnBadText)
{
    for (const QString &bad : {QString(), QStringLiteral("/"), QStringLiteral("0"), QStringLiteral("24/0"),
             QStringLiteral("0/1"), QStringLiteral("24/"), QStringLiteral("/24"), QStringLiteral("24/1/1"),
             QStringLiteral("-24"), QStringLiteral("+24"), QStringLiteral(" 24"), QStringLiteral("24 "),
             QStringLiteral("24.0"), QStringLiteral("4294967296"), QStringLiteral("x")}) {
        UT_FrameRate rate(7, 3);
        EXPECT_FALSE(rate.parse(bad)) << bad.toStdString();
        EXPECT_EQ(rate, UT_FrameRate(7, 3)) << bad.toStdString();
    }
}

TEST(Timecode, CountsFromZero)
{
    EXPECT_EQ(timecode(0, 24), "00:00:00:00");
    EXPECT_EQ(timecode(23, 24), "00:00:00:23");
    EXPECT_EQ(timecode(24, 24), "00:00:01:00");
    EXPECT_EQ(timecode(24 * 60 * 60 - 1, 24), "00:59:59:23");
    EXPECT_EQ(timecode(24 * 3600 * 11 + 5, 24), "11:00:00:05");
}

TEST(Timecode, HasAsManyDigitsAsTheNumbersNeed)
{
    EXPECT_EQ(timecode(4294967295u, 1), "1193046:28:15:00");
    EXPECT_EQ(timecode(119, 120), "00:00:00:119");
}

TEST(Timecode, TakesRate0As1)
{
    EXPECT_EQ(timecode(61, 0), "00:01:01:00");
}

TEST(Whoami, IsTheApplicationsNameElsePlotka)
{
    EXPECT_EQ(nameWithoutApplication, QStringLiteral("plotka"));
    const QString name = QCoreApplication::applicationName();
    QCoreApplication::setApplicationName(QStringLiteral("Cutter"));
    EXPECT_EQ(whoami::progName(), QStringLiteral("Cutter"));
    QCoreApplication::setApplicationName(QString());
    // Without a name of its own an application is called after its file.
    EXPECT_FALSE(whoami::progName().isEmpty());
    QCoreApplication::setApplicationName(name);
}
