#include "tracking/PKC_Tracking.h"

#include "support/Golden.h"
#include "support/Payloads.h"
#include "support/Records.h"

#include <QTimeZone>

#include <gtest/gtest.h>

namespace
{

QDateTime someDate()
{
    return QDateTime(QDate(2031, 2, 28), QTime(23, 59, 58), Qt::UTC);
}

/// A record in which no field has its default.
PKC_Tracking fullTracking()
{
    PKC_Tracking tracking(QStringLiteral("inside"), QStringLiteral("elsewhere"), QStringLiteral("0.7"));
    tracking.setIsTracked(true);
    tracking.setTrackingDate(someDate());
    tracking.setTrackingNote(QStringLiteral("redrawn %1\n& \"cleaned\""));
    return tracking;
}

void expectFullTracking(const PKC_Tracking &tracking)
{
    EXPECT_EQ(textsOf(tracking), "tracking 'inside' 'elsewhere' '0.7'");
    EXPECT_TRUE(tracking.isTracked());
    EXPECT_EQ(tracking.trackingDate(), someDate());
    EXPECT_EQ(tracking.trackingNote(), QStringLiteral("redrawn %1\n& \"cleaned\""));
}

/// The record after its reader met `<tracking ATTRIBUTES/>`.
PKC_Tracking readFrom(const QString &attributes, PKC_Tracking tracking = fullTracking())
{
    readPayload(tracking, QStringLiteral("<tracking %1/>").arg(attributes));
    return tracking;
}

} // namespace

TEST(Tracking, StartsUntrackedWithoutDateAndNote)
{
    const PKC_Tracking tracking;
    EXPECT_EQ(textsOf(tracking), "tracking '' 'plotka-tests' '1.0'");
    EXPECT_EQ(PKC_Tracking::kPIO_PKMETA_Keyword, QStringLiteral("tracking"));
    EXPECT_EQ(PKC_Tracking::kPIO_PKMETA_Version, QStringLiteral("1.0"));
    EXPECT_FALSE(tracking.isTracked());
    EXPECT_TRUE(tracking.trackingDate().isNull());
    EXPECT_TRUE(tracking.trackingNote().isNull());
    EXPECT_EQ(PKC_Tracking(QStringLiteral("n")).metaName(), QStringLiteral("n"));
}

TEST(Tracking, IsValidWhileUntrackedOrWithDateAndNote)
{
    PKC_Tracking tracking;
    EXPECT_TRUE(tracking.isValid());
    tracking.setIsTracked(true);
    EXPECT_FALSE(tracking.isValid());
    tracking.setTrackingDate(someDate());
    EXPECT_FALSE(tracking.isValid());
    tracking.setTrackingNote(QStringLiteral(""));
    EXPECT_TRUE(tracking.isValid());
    tracking.setTrackingDate(QDateTime(QDate(), QTime(1, 2)));
    EXPECT_FALSE(tracking.isValid());
    tracking.setIsTracked(false);
    EXPECT_TRUE(tracking.isValid());
}

TEST(Tracking, SetsOneValueAtATime)
{
    PKC_Tracking tracking;
    tracking.setTrackingNote(QStringLiteral("n"));
    EXPECT_FALSE(tracking.isTracked());
    EXPECT_TRUE(tracking.trackingDate().isNull());
    tracking.setTrackingDate(someDate());
    EXPECT_FALSE(tracking.isTracked());
    EXPECT_EQ(tracking.trackingNote(), QStringLiteral("n"));
    tracking.setIsTracked(true);
    tracking.setIsTracked(false);
    EXPECT_EQ(tracking.trackingDate(), someDate());
    EXPECT_EQ(tracking.trackingNote(), QStringLiteral("n"));
}

TEST(Tracking, CopiesEveryField)
{
    const PKC_Tracking tracking = fullTracking();
    expectFullTracking(PKC_Tracking(tracking));
    PKC_Tracking assigned;
    assigned = tracking;
    expectFullTracking(assigned);
    const PKC_Tracking &self = assigned;
    assigned = self;
    expectFullTracking(assigned);
}

TEST(Tracking, ClonesIndependently)
{
    PKC_Tracking tracking = fullTracking();
    const auto clone = cloneOf(tracking);
    ASSERT_TRUE(clone);
    tracking = PKC_Tracking();
    expectFullTracking(*clone);
}

TEST(Tracking, WritesAllAttributesAlways)
{
    expectGolden("tracking.xml", markupOf(PKC_Tracking()) + markupOf(fullTracking()));
}

TEST(Tracking, ReadsBackWhatItWrote)
{
    const auto again = as<PKC_Tracking>(readBack(fullTracking()));
    ASSERT_TRUE(again);
    expectFullTracking(*again);
    EXPECT_EQ(markupOf(*again), markupOf(fullTracking()));
}

TEST(Tracking, KeepsItsDateToTheSecond)
{
    PKC_Tracking tracking;
    for (const QDateTime &date : {QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3, 456)),
             QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3, 456), QTimeZone(-5400))}) {
        tracking.setTrackingDate(date);
        const auto again = as<PKC_Tracking>(readBack(tracking));
        ASSERT_TRUE(again);
        EXPECT_EQ(again->trackingDate(), date.addMSecs(-456));
    }
}

TEST(Tracking, DumpsItsFieldsForDebugging)
{
    QString base;
    fullTracking().PIO_Metadata::dumpToString(base);
    EXPECT_EQ(dumpOf(fullTracking()),
        base.toStdString()
            + "trackingFlag=true, trackingDate=2031-02-28T23:59:58Z, trackingNote=redrawn %1\n& \"cleaned\"\n");
    EXPECT_NE(dumpOf(PKC_Tracking()).find("trackingFlag=false, trackingDate=, trackingNote=\n"), std::string::npos);
}

TEST(Tracking, KeepsItsFlagWhenTheFileHasABadOne)
{
    for (const char *bad : {"", "trackingFlag=''", "trackingFlag='True'", "trackingFlag='1'", "trackingFlag='true '"}) {
        for (const bool before : {false, true}) {
            PKC_Tracking tracking;
            tracking.setIsTracked(before);
            tracking = readFrom(
                QLatin1String(bad) + QStringLiteral(" trackingDate='2031-02-28T23:59:58Z' trackingNote='n'"), tracking);
            EXPECT_EQ(tracking.isTracked(), before) << bad;
            EXPECT_EQ(tracking.trackingDate(), someDate()) << bad;
            EXPECT_EQ(tracking.trackingNote(), QStringLiteral("n")) << bad;
        }
    }
    EXPECT_FALSE(readFrom(QStringLiteral("trackingFlag='false'")).isTracked());
    EXPECT_TRUE(readFrom(QStringLiteral("trackingFlag='true'"), PKC_Tracking()).isTracked());
}

TEST(Tracking, ReadsAMissingOrBadDateAsNull)
{
    for (const char *bad : {"", "trackingDate=''", "trackingDate='yesterday'", "trackingDate='2031-02-30T00:00:00'"}) {
        const PKC_Tracking tracking = readFrom(QLatin1String(bad));
        EXPECT_FALSE(tracking.trackingDate().isValid()) << bad;
        EXPECT_TRUE(tracking.isTracked()) << bad;
    }
    EXPECT_TRUE(readFrom(QStringLiteral("trackingDate=''")).trackingDate().isNull());
}

TEST(Tracking, TellsAMissingNoteFromAnEmptyOne)
{
    EXPECT_TRUE(readFrom(QString()).trackingNote().isNull());
    const PKC_Tracking tracking = readFrom(QStringLiteral("trackingDate='2031-02-28T23:59:58Z' trackingNote=''"));
    EXPECT_TRUE(tracking.trackingNote().isEmpty());
    EXPECT_FALSE(tracking.trackingNote().isNull());
    EXPECT_TRUE(tracking.isValid());
    EXPECT_EQ(readFrom(QStringLiteral("trackingNote=' %1&#10;'")).trackingNote(), QStringLiteral(" %1\n"));
}

TEST(Tracking, SkipsElementsItDoesNotKnow)
{
    PKC_Tracking tracking;
    readPayload(tracking, QStringLiteral("<other trackingFlag='true'><tracking trackingNote='yes'/></other>"));
    EXPECT_FALSE(tracking.isTracked());
    EXPECT_EQ(tracking.trackingNote(), QStringLiteral("yes"));
    PKC_Tracking untouched = fullTracking();
    readPayload(untouched, QStringLiteral("<Tracking trackingFlag='false'/>"));
    expectFullTracking(untouched);
}

TEST(Tracking, StopsReadingAtTheFirstClosingElement)
{
    PKC_Tracking tracking = fullTracking();
    readPayload(tracking, QStringLiteral("<other/><tracking trackingNote='late'/>"));
    expectFullTracking(tracking);
    readPayload(tracking, QStringLiteral("<tracking trackingNote='first'/><tracking trackingNote='late'/>"));
    EXPECT_EQ(tracking.trackingNote(), QStringLiteral("first"));
}

TEST(Tracking, KeepsAForeignCreatorAndAnOlderVersion)
{
    const auto tracking =
        loaded<PKC_Tracking>(QStringLiteral("<tracking trackingFlag='true' trackingDate='' trackingNote='n'/>"));
    ASSERT_TRUE(tracking);
    EXPECT_EQ(textsOf(*tracking), "tracking 'inside' 'elsewhere' '0.7'");
    EXPECT_TRUE(tracking->isTracked());
    EXPECT_FALSE(tracking->isValid());
    EXPECT_EQ(textsOf(*cloneOf(*tracking)), "tracking 'inside' 'elsewhere' '0.7'");
}
