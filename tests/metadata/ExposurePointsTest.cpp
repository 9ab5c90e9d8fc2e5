#include "metadata/PKC_ExposurePoints.h"

#include "support/Golden.h"
#include "support/Payloads.h"
#include "support/Records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

PKC_ExposurePoints threePoints()
{
    PKC_ExposurePoints points(QStringLiteral("inside"), QStringLiteral("elsewhere"), QStringLiteral("0.7"));
    points.insertExposurePoint(0.75F);
    points.insertExposurePoint(0.1F);
    points.insertExposurePoint(1.0F);
    return points;
}

void expectThreePoints(const PKC_ExposurePoints &points)
{
    EXPECT_EQ(textsOf(points), "exposurePoints 'inside' 'elsewhere' '0.7'");
    EXPECT_THAT(points.exposureList(), ElementsAre(0.1F, 0.75F, 1.0F));
    EXPECT_EQ(points.getPrimaryExposurePoint(), 0.75F);
}

PKC_ExposurePoints readFrom(const QString &payload, PKC_ExposurePoints points = PKC_ExposurePoints())
{
    readPayload(points, payload);
    return points;
}

} // namespace

TEST(ExposurePoints, StartsWithoutAnyPoint)
{
    const PKC_ExposurePoints points;
    EXPECT_EQ(textsOf(points), "exposurePoints '' 'plotka-tests' '1.0'");
    EXPECT_EQ(PKC_ExposurePoints::kPIO_PKMETA_Keyword, QStringLiteral("exposurePoints"));
    EXPECT_EQ(PKC_ExposurePoints::kPIO_PKMETA_Version, QStringLiteral("1.0"));
    EXPECT_EQ(points.getNumOfExposurePoint(), 0U);
    EXPECT_EQ(points.getPrimaryExposurePoint(), 0.0F);
    EXPECT_TRUE(points.isPrimaryExposurePoint(0.0F));
    EXPECT_TRUE(points.isValid());
    EXPECT_TRUE(points.canInsertExposurePoint());
}

TEST(ExposurePoints, MakesTheFirstPointThePrimaryOne)
{
    PKC_ExposurePoints points;
    EXPECT_TRUE(points.insertExposurePoint(0.5F));
    EXPECT_EQ(points.getPrimaryExposurePoint(), 0.5F);
    EXPECT_TRUE(points.insertExposurePoint(0.25F));
    EXPECT_EQ(points.getPrimaryExposurePoint(), 0.5F);
    EXPECT_FALSE(points.insertExposurePoint(0.25F));
    EXPECT_EQ(points.getNumOfExposurePoint(), 2U);
    EXPECT_THAT(points.exposureList(), ElementsAre(0.25F, 0.5F));
    EXPECT_EQ(*points.beginExposureList(), 0.25F);
    EXPECT_EQ(std::distance(points.beginExposureList(), points.endExposureList()), 2);
    const PKC_ExposurePoints &constPoints = points;
    EXPECT_EQ(*constPoints.beginExposureList(), 0.25F);
    EXPECT_EQ(std::distance(constPoints.beginExposureList(), constPoints.endExposureList()), 2);
    EXPECT_TRUE(points.canInsertExposurePoint());
}

TEST(ExposurePoints, MakesTheOnlyPointThePrimaryOneAgain)
{
    PKC_ExposurePoints points = threePoints();
    for (const float point : {0.1F, 0.75F, 1.0F})
        EXPECT_TRUE(points.removeExposurePoint(point));
    EXPECT_TRUE(points.insertExposurePoint(0.3F));
    EXPECT_EQ(points.getPrimaryExposurePoint(), 0.3F);
}

TEST(ExposurePoints, LeavesThePrimaryPointAloneWhenItIsRemoved)
{
    PKC_ExposurePoints points = threePoints();
    EXPECT_TRUE(points.removeExposurePoint(0.75F));
    EXPECT_FALSE(points.removeExposurePoint(0.75F));
    EXPECT_THAT(points.exposureList(), ElementsAre(0.1F, 1.0F));
    EXPECT_TRUE(points.isPrimaryExposurePoint(0.75F));
    EXPECT_EQ(points.getPrimaryExposurePoint(), 0.75F);
}

TEST(ExposurePoints, HasPrimaryPointZeroWithoutAnyPoint)
{
    PKC_ExposurePoints points;
    points.setPrimaryExposurePoint(0.75F);
    EXPECT_EQ(points.getPrimaryExposurePoint(), 0.0F);
    EXPECT_TRUE(points.isPrimaryExposurePoint(0.75F));
    EXPECT_FALSE(points.isPrimaryExposurePoint(0.0F));
    EXPECT_EQ(points.getPrimaryExposureFrame(101), 1);
}

TEST(ExposurePoints, TakesAnyPrimaryPoint)
{
    PKC_ExposurePoints points = threePoints();
    points.setPrimaryExposurePoint(0.3F);
    EXPECT_EQ(points.getPrimaryExposurePoint(), 0.3F);
    EXPECT_THAT(points.exposureList(), ElementsAre(0.1F, 0.75F, 1.0F));
    points.setPrimaryExposurePoint(-1.0F);
    EXPECT_FALSE(points.isValid());
    points.setPrimaryExposurePoint(-0.0F);
    EXPECT_TRUE(points.isValid());
    points.setPrimaryExposurePoint(notANumber);
    EXPECT_FALSE(points.isValid());
}

TEST(ExposurePoints, RefusesAPointThatIsNotFinite)
{
    PKC_ExposurePoints empty;
    PKC_ExposurePoints points = threePoints();
    for (const float odd : {infinity, -infinity, notANumber}) {
        EXPECT_FALSE(points.insertExposurePoint(odd));
        EXPECT_FALSE(points.removeExposurePoint(odd));
        expectThreePoints(points);
        EXPECT_FALSE(empty.insertExposurePoint(odd));
        EXPECT_EQ(empty.getNumOfExposurePoint(), 0U);
        EXPECT_TRUE(empty.isPrimaryExposurePoint(0.0F));
    }
}

TEST(ExposurePoints, RoundsToTheNearestFrame)
{
    const auto frame = PKC_ExposurePoints::getExposureFrame;
    EXPECT_EQ(frame(10, 0.0F), 1);
    EXPECT_EQ(frame(10, 1.0F), 10);
    EXPECT_EQ(frame(10, 0.5F), 6);
    EXPECT_EQ(frame(10, 0.49F), 5);
    EXPECT_EQ(frame(1, 0.7F), 1);
    EXPECT_EQ(frame(0, 1.0F), 0);
    EXPECT_EQ(frame(10, -1.0F), -8);
    EXPECT_EQ(frame(10, 2.0F), 19);
    PKC_ExposurePoints points = threePoints();
    EXPECT_EQ(points.getPrimaryExposureFrame(101), 76);
}

// The last frame of so long a panel has no place in single precision, which counts in twos there.
TEST(ExposurePoints, CountsFramesInSinglePrecision)
{
    EXPECT_EQ(PKC_ExposurePoints::getExposureFrame(16777217, 1.0F), 16777218);
    EXPECT_EQ(PKC_ExposurePoints::getExposureFrame(16777219, 1.0F), 16777220);
}

TEST(ExposurePoints, HoldsFramesWithinRange)
{
    const auto frame = PKC_ExposurePoints::getExposureFrame;
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    EXPECT_EQ(frame(most, 1.0F), most);
    EXPECT_EQ(frame(most, 4.0F), most);
    EXPECT_EQ(frame(least, 1.0F), least);
    EXPECT_EQ(frame(least, -4.0F), most);
    EXPECT_EQ(frame(10, infinity), most);
    EXPECT_EQ(frame(10, notANumber), 0);
    EXPECT_EQ(frame(1, infinity), 0);
}

TEST(ExposurePoints, CopiesEveryField)
{
    const PKC_ExposurePoints points = threePoints();
    expectThreePoints(PKC_ExposurePoints(points));
    PKC_ExposurePoints assigned;
    assigned.insertExposurePoint(0.9F);
    assigned = points;
    expectThreePoints(assigned);
    const PKC_ExposurePoints &self = assigned;
    assigned = self;
    expectThreePoints(assigned);
}

TEST(ExposurePoints, ClonesIndependently)
{
    PKC_ExposurePoints points = threePoints();
    const auto clone = cloneOf(points);
    ASSERT_TRUE(clone);
    points.exposureList().clear();
    points.setPrimaryExposurePoint(0.0F);
    expectThreePoints(*clone);
}

TEST(ExposurePoints, WritesItsPointsInOrder)
{
    expectGolden("exposure_points.xml", markupOf(PKC_ExposurePoints()) + markupOf(threePoints()));
}

TEST(ExposurePoints, ReadsBackWhatItWrote)
{
    PKC_ExposurePoints points = threePoints();
    points.insertExposurePoint(std::numeric_limits<float>::max());
    points.insertExposurePoint(std::numeric_limits<float>::denorm_min());
    points.setPrimaryExposurePoint(1.0F / 3.0F);
    const auto again = as<PKC_ExposurePoints>(readBack(points));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->exposureList(), points.exposureList());
    EXPECT_TRUE(again->isPrimaryExposurePoint(1.0F / 3.0F));
    EXPECT_EQ(markupOf(*again), markupOf(points));
}

TEST(ExposurePoints, LosesAPrimaryPointThatIsNotFinite)
{
    for (const float odd : {infinity, -infinity, notANumber}) {
        PKC_ExposurePoints points = threePoints();
        points.setPrimaryExposurePoint(odd);
        const auto again = as<PKC_ExposurePoints>(readBack(points));
        ASSERT_TRUE(again);
        EXPECT_EQ(again->exposureList(), points.exposureList());
        EXPECT_EQ(again->getPrimaryExposurePoint(), 0.0F) << odd;
    }
}

TEST(ExposurePoints, DumpsItsPointsForDebugging)
{
    QString base;
    threePoints().PIO_Metadata::dumpToString(base);
    EXPECT_EQ(dumpOf(threePoints()), base.toStdString() + "primaryExposure=0.75, Others=0.1, 0.75, 1, \n");
    EXPECT_NE(dumpOf(PKC_ExposurePoints()).find("primaryExposure=0\n"), std::string::npos);
    PKC_ExposurePoints third;
    third.insertExposurePoint(1.0F / 3.0F);
    EXPECT_NE(dumpOf(third).find("primaryExposure=0.333333, Others=0.333333, \n"), std::string::npos);
}

TEST(ExposurePoints, LeavesThePrimaryPointOfAFileAlone)
{
    const PKC_ExposurePoints points = readFrom(
        QStringLiteral("<exposurePoints primaryExposure='0.5'><pt value='0.25'/><pt value='2e-1'/></exposurePoints>"));
    EXPECT_THAT(points.exposureList(), ElementsAre(0.2F, 0.25F));
    EXPECT_EQ(points.getPrimaryExposurePoint(), 0.5F);
    const PKC_ExposurePoints bare = readFrom(QStringLiteral("<exposurePoints><pt value='0.25'/></exposurePoints>"));
    EXPECT_EQ(bare.getPrimaryExposurePoint(), 0.0F);
    EXPECT_FALSE(readFrom(QStringLiteral("<exposurePoints primaryExposure='-1'/>")).isValid());
}

TEST(ExposurePoints, PassesOverBadNumbers)
{
    for (const char *bad : {"", "x", "1,5", "0.5x", "nan", "inf", "-inf", "1e39", "1e999", "3.4028236e38"}) {
        const QString payload = QStringLiteral("<exposurePoints primaryExposure='%1'><pt value='%1'/><pt/>"
                                               "<pt value='0.5'/></exposurePoints>")
                                    .arg(QLatin1String(bad));
        const PKC_ExposurePoints points = readFrom(payload, threePoints());
        EXPECT_THAT(points.exposureList(), ElementsAre(0.1F, 0.5F, 0.75F, 1.0F)) << bad;
        EXPECT_EQ(points.getPrimaryExposurePoint(), 0.75F) << bad;
    }
    expectThreePoints(readFrom(QStringLiteral("<exposurePoints/>"), threePoints()));
}

TEST(ExposurePoints, ReadsOnWhateverCloses)
{
    const PKC_ExposurePoints points =
        readFrom(QStringLiteral("<other primaryExposure='9' value='9'/><exposurePoints primaryExposure='0.5' value='9'>"
                                "<x value='9'><pt value='0.25'/></x><Pt value='9'/></exposurePoints><pt value='1'/>"));
    EXPECT_THAT(points.exposureList(), ElementsAre(0.25F, 1.0F));
    EXPECT_EQ(points.getPrimaryExposurePoint(), 0.5F);
}

TEST(ExposurePoints, KeepsAForeignCreatorAndAnOlderVersion)
{
    const auto points =
        loaded<PKC_ExposurePoints>(QStringLiteral("<exposurePoints primaryExposure='0.5'></exposurePoints>"));
    ASSERT_TRUE(points);
    EXPECT_EQ(textsOf(*points), "exposurePoints 'inside' 'elsewhere' '0.7'");
    EXPECT_EQ(textsOf(*cloneOf(*points)), textsOf(*points));
    EXPECT_THAT(points->exposureList(), IsEmpty());
    EXPECT_TRUE(points->isPrimaryExposurePoint(0.5F));
}
