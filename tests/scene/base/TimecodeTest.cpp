#include "scene/base/UT_Format.h"
#include "scene/base/UT_FrameRate.h"
#include "scene/base/UT_Timecode.h"
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

const UT_FrameRate ntsc(30000, 1001);
const UT_FrameRate ntscDoubled(60000, 1001);

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

TEST(Timecode, DropsNumbersAtTheBeginningOfEachMinuteButTheTenth)
{
    // The table of the rule, as it is published for 29.97 frames a second.
    const std::pair<unsigned int, const char *> table[] = {{0, "00:00:00;00"}, {29, "00:00:00;29"},
        {1799, "00:00:59;29"}, {1800, "00:01:00;02"}, {1801, "00:01:00;03"}, {3597, "00:01:59;29"},
        {3598, "00:02:00;02"}, {16183, "00:08:59;29"}, {16184, "00:09:00;02"}, {17981, "00:09:59;29"},
        {17982, "00:10:00;00"}, {17983, "00:10:00;01"}, {19781, "00:10:59;29"}, {19782, "00:11:00;02"},
        {107891, "00:59:59;29"}, {107892, "01:00:00;00"}, {2589407, "23:59:59;29"}, {2589408, "24:00:00;00"}};
    for (const auto &[frame, expected] : table) {
        EXPECT_EQ(UT_Timecode::text(frame, ntsc, UT_Timecode::DropFrame).toStdString(), expected);
        EXPECT_EQ(UT_Timecode::parse(QLatin1String(expected), ntsc), frame) << expected;
    }
    const std::pair<unsigned int, const char *> doubled[] = {{3599, "00:00:59;59"}, {3600, "00:01:00;04"},
        {7195, "00:01:59;59"}, {7196, "00:02:00;04"}, {35963, "00:09:59;59"}, {35964, "00:10:00;00"},
        {215784, "01:00:00;00"}};
    for (const auto &[frame, expected] : doubled) {
        EXPECT_EQ(UT_Timecode::text(frame, ntscDoubled, UT_Timecode::DropFrame).toStdString(), expected);
        EXPECT_EQ(UT_Timecode::parse(QLatin1String(expected), ntscDoubled), frame) << expected;
    }
}

TEST(Timecode, NamesEveryFrameOnceAndInOrder)
{
    // Counted as a person would: up by one, and over the numbers that are dropped.
    for (const UT_FrameRate &rate : {ntsc, ntscDoubled}) {
        const unsigned int perSecond = rate.fpsRound();
        unsigned int number = 0;
        for (unsigned int frame = 0; frame < 25 * 60 * perSecond; ++frame, ++number) {
            const bool isMinute = number % (60 * perSecond) == 0 && number % (600 * perSecond) != 0;
            if (isMinute)
                number += perSecond / 15;
            std::string expected = timecode(number, perSecond);
            expected[8] = ';';
            ASSERT_EQ(UT_Timecode::text(frame, rate, UT_Timecode::DropFrame).toStdString(), expected) << frame;
            ASSERT_EQ(UT_Timecode::parse(QString::fromStdString(expected), rate), frame) << expected;
        }
    }
}

TEST(Timecode, HasDropFramesAtTwoRatesAlone)
{
    EXPECT_TRUE(UT_Timecode::hasDropFrames(ntsc));
    EXPECT_TRUE(UT_Timecode::hasDropFrames(ntscDoubled));
    for (const UT_FrameRate &rate :
        {UT_FrameRate(30), UT_FrameRate(60), UT_FrameRate(24000, 1001), UT_FrameRate(120000, 1001), UT_FrameRate(25)}) {
        EXPECT_FALSE(UT_Timecode::hasDropFrames(rate)) << rate.asString().toStdString();
        EXPECT_EQ(UT_Timecode::parse(QStringLiteral("00:00:10;05"), rate), std::nullopt);
    }
    EXPECT_EQ(UT_Timecode::text(1800, UT_FrameRate(30), UT_Timecode::DropFrame), QStringLiteral("00:01:00:00"));
    EXPECT_EQ(UT_Timecode::text(1800, ntsc), QStringLiteral("00:01:00:00"));
    EXPECT_EQ(UT_Timecode::text(4294967295u, ntsc, UT_Timecode::DropFrame), QStringLiteral("39808:01:25;11"));
    EXPECT_EQ(UT_Timecode::parse(QStringLiteral("39808:01:25;11"), ntsc), 4294967295u);
    EXPECT_EQ(UT_Timecode::parse(QStringLiteral("39808:01:25;12"), ntsc), std::nullopt);
}

TEST(Timecode, IsReadFromTheRight)
{
    const UT_FrameRate film(24);
    EXPECT_EQ(UT_Timecode::parse(QStringLiteral("01:00:00:00"), film), 86400u);
    EXPECT_EQ(UT_Timecode::parse(QStringLiteral("1:2:3:4"), film), (3723u * 24) + 4);
    EXPECT_EQ(UT_Timecode::parse(QStringLiteral("2:3:4"), film), (123u * 24) + 4);
    EXPECT_EQ(UT_Timecode::parse(QStringLiteral("3:23"), film), 95u);
    EXPECT_EQ(UT_Timecode::parse(QStringLiteral("59:59:23"), film), 86399u);
    EXPECT_EQ(UT_Timecode::parse(QStringLiteral("01:00;02"), ntsc), 1800u);
    EXPECT_EQ(UT_Timecode::parse(QStringLiteral("01:00:02"), ntsc), 1802u);
}

TEST(Timecode, OfAnotherTextNamesNoFrame)
{
    for (const char *text : {"", ":", "12", ";12", "1:", ":1", "00:00:00:24", "00:00:60:00", "00:60:00:00", "0:0:0:0:0",
             "00:00:-1:00", "00:00:+1:00", "00:00:0a:00", " 00:00:01:00", "00:00:01:00 ", "00:00:1.5:00",
             "49711:00:00:00", "99999999999999999999:00:00:00", "00;00:00:00", "00:00:00:\u0661"}) {
        EXPECT_EQ(UT_Timecode::parse(QString::fromUtf8(text), UT_FrameRate(24)), std::nullopt) << text;
    }
    for (const char *text : {"00:01:00;00", "00:01:00;01", "00:09:00;01", "00:00:00;30", "00;00;00;00", "00;00:01:00",
             "1;", "00:00:01;:2"}) {
        EXPECT_EQ(UT_Timecode::parse(QString::fromUtf8(text), ntsc), std::nullopt) << text;
    }
    EXPECT_EQ(UT_Timecode::parse(QStringLiteral("00:01:00;03"), ntscDoubled), std::nullopt);
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
