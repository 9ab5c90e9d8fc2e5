#include "metadata/PKC_ReferenceToolData.h"

#include "support/Golden.h"
#include "support/Payloads.h"
#include "support/Records.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

namespace
{

using Data = PKC_ReferenceToolData::Data_t;

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/// A record in which no field has its default.
PKC_ReferenceToolData fullTool()
{
    PKC_ReferenceToolData tool(text("inside"), text("elsewhere"), text("0.7"));
    tool.setPos(Math::Point2d(1.5, -2.25));
    tool.setScale(0.1);
    tool.setAngle(-90.5);
    tool.setAlpha(0.5);
    tool.setRgb(QColor(1, 2, 3));
    tool.setOptions(-6);
    return tool;
}

void expectFullTool(const PKC_ReferenceToolData &tool)
{
    EXPECT_EQ(textsOf(tool), "referenceToolData 'inside' 'elsewhere' '0.7'");
    EXPECT_EQ(tool.pos().x, 1.5);
    EXPECT_EQ(tool.pos().y, -2.25);
    EXPECT_EQ(tool.scale(), 0.1);
    EXPECT_EQ(tool.angle(), -90.5);
    EXPECT_EQ(tool.alpha(), 0.5);
    EXPECT_EQ(tool.rgb(), QColor(1, 2, 3));
    EXPECT_EQ(tool.options(), -6);
}

PKC_ReferenceToolData readFrom(const QString &payload, PKC_ReferenceToolData tool = fullTool())
{
    readPayload(tool, payload);
    return tool;
}

const char *const badDoubles[] = {"", "x", "1,5", "0x1", "1e999"};
const char *const badInts[] = {"", "x", "1.5", "0x1", "2147483648"};

} // namespace

TEST(ReferenceToolData, StartsOpaqueAtTheOrigin)
{
    const PKC_ReferenceToolData tool;
    EXPECT_EQ(textsOf(tool), "referenceToolData '' 'plotka-tests' '1.0'");
    EXPECT_EQ(PKC_ReferenceToolData::kPIO_PKMETA_Keyword, text("referenceToolData"));
    EXPECT_EQ(PKC_ReferenceToolData::kPIO_PKMETA_Version, text("1.0"));
    EXPECT_TRUE(tool.isValid());
    EXPECT_TRUE(tool.pos() == Math::Point2d(0.0, 0.0));
    EXPECT_EQ(tool.scale(), 1.0);
    EXPECT_EQ(tool.angle(), 0.0);
    EXPECT_EQ(tool.alpha(), 1.0);
    EXPECT_EQ(tool.rgb(), QColor(255, 30, 255));
    EXPECT_EQ(tool.rgb().alpha(), 255);
    EXPECT_EQ(tool.options(), 0);
    EXPECT_FALSE(tool.showOnThumbnails());
    EXPECT_FALSE(tool.autoUpdateThumbnails());
    EXPECT_TRUE(tool.data() == Data());
    EXPECT_EQ(PKC_ReferenceToolData(text("n")).metaName(), text("n"));
}

TEST(ReferenceToolData, ComparesEachFieldOfItsData)
{
    const std::function<void(PKC_ReferenceToolData &)> changes[] = {
        [](PKC_ReferenceToolData &tool) { tool.setPos(Math::Point2d(1.0, 0.0)); },
        [](PKC_ReferenceToolData &tool) { tool.setPos(Math::Point2d(0.0, 1e-300)); },
        [](PKC_ReferenceToolData &tool) { tool.setScale(1.0 + std::numeric_limits<double>::epsilon()); },
        [](PKC_ReferenceToolData &tool) { tool.setAngle(1e-300); },
        [](PKC_ReferenceToolData &tool) { tool.setAlpha(0.0); },
        [](PKC_ReferenceToolData &tool) { tool.setRgb(QColor(255, 30, 254)); },
        [](PKC_ReferenceToolData &tool) { tool.setRgb(QColor(255, 30, 255, 254)); },
    };
    for (const auto &change : changes) {
        PKC_ReferenceToolData tool;
        change(tool);
        EXPECT_FALSE(tool.data() == Data());
        EXPECT_TRUE(tool.data() != Data());
        Data copy(tool.data());
        EXPECT_TRUE(copy == tool.data());
        copy = Data();
        EXPECT_TRUE(copy == Data());
    }
    PKC_ReferenceToolData tool;
    tool.setOptions(3);
    EXPECT_TRUE(tool.data() == Data());
}

TEST(ReferenceToolData, AddsAnOptionToTheOthers)
{
    PKC_ReferenceToolData tool;
    tool.addOption(PKC_ReferenceToolData::ShowOnThumbnails);
    EXPECT_EQ(tool.options(), 1);
    EXPECT_TRUE(tool.showOnThumbnails());
    EXPECT_FALSE(tool.autoUpdateThumbnails());
    tool.addOption(PKC_ReferenceToolData::AutoUpdateThumbnails);
    EXPECT_EQ(tool.options(), 3);
    EXPECT_TRUE(tool.showOnThumbnails());
    EXPECT_TRUE(tool.autoUpdateThumbnails());
    tool.setOptions(8);
    tool.addOption(PKC_ReferenceToolData::AutoUpdateThumbnails);
    tool.addOption(PKC_ReferenceToolData::AutoUpdateThumbnails);
    EXPECT_EQ(tool.options(), 10);
    EXPECT_FALSE(tool.showOnThumbnails());
}

TEST(ReferenceToolData, CopiesEveryField)
{
    PKC_ReferenceToolData tool = fullTool();
    const PKC_ReferenceToolData copied(tool);
    PKC_ReferenceToolData assigned;
    assigned = tool;
    const PKC_ReferenceToolData &self = assigned;
    assigned = self;
    const auto clone = cloneOf(tool);
    ASSERT_TRUE(clone);
    tool = PKC_ReferenceToolData();
    expectFullTool(copied);
    expectFullTool(assigned);
    expectFullTool(*clone);
}

TEST(ReferenceToolData, WritesThreeElementsAlways)
{
    expectGolden("reference_tool_data.xml", markupOf(PKC_ReferenceToolData()) + markupOf(fullTool()));
}

TEST(ReferenceToolData, ReadsBackWhatItWrote)
{
    const auto again = as<PKC_ReferenceToolData>(readBack(fullTool()));
    ASSERT_TRUE(again);
    expectFullTool(*again);
    EXPECT_EQ(markupOf(*again), markupOf(fullTool()));
    PKC_ReferenceToolData far = fullTool();
    far.setScale(std::numeric_limits<double>::infinity());
    far.setPos(Math::Point2d(std::numeric_limits<double>::max(), std::numeric_limits<double>::denorm_min()));
    EXPECT_TRUE(as<PKC_ReferenceToolData>(readBack(far))->data() == far.data());
}

TEST(ReferenceToolData, TakesNumbersThatAreNotFinite)
{
    const PKC_ReferenceToolData tool =
        readFrom(text("<position x='inf' y='1' angle='2' scale='nan'/><color r='4' g='5' b='6' a='-inf'/>"));
    EXPECT_TRUE(std::isnan(tool.scale()));
    EXPECT_EQ(tool.pos().x, std::numeric_limits<double>::infinity());
    EXPECT_EQ(tool.alpha(), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(tool.rgb(), QColor(4, 5, 6));
    const std::string markup = markupOf(tool);
    EXPECT_NE(markup.find("x=\"inf\" y=\"1\" angle=\"2\" scale=\"nan\""), std::string::npos) << markup;
    EXPECT_NE(markup.find("a=\"-inf\""), std::string::npos) << markup;
    EXPECT_EQ(markupOf(*readBack(tool)), markup);
}

TEST(ReferenceToolData, DumpsItsFieldsForDebugging)
{
    QString base;
    fullTool().PIO_Metadata::dumpToString(base);
    EXPECT_EQ(dumpOf(fullTool()),
        base.toStdString()
            + "Position x=1.5, y=-2.25\nScale=0.1, angle=-90.5\nColor(r,g,b,a) = 1, 2, 3, 0.5\n"
              "Show on thumbnails = false\nAuto update thumbnails = true\n");
    PKC_ReferenceToolData tool;
    tool.addOption(PKC_ReferenceToolData::ShowOnThumbnails);
    EXPECT_NE(dumpOf(tool).find("Show on thumbnails = true\nAuto update thumbnails = false\n"), std::string::npos);
}

TEST(ReferenceToolData, ReadsAPositionWhoseScaleIsGood)
{
    for (const char *bad : badDoubles) {
        const PKC_ReferenceToolData tool =
            readFrom(QStringLiteral("<position x='%1' y='7' angle='%1' scale='3'/>").arg(text(bad)));
        EXPECT_TRUE(tool.pos() == Math::Point2d(0.0, 7.0)) << bad;
        EXPECT_EQ(tool.angle(), 0.0) << bad;
        EXPECT_EQ(tool.scale(), 3.0) << bad;
        const PKC_ReferenceToolData other =
            readFrom(QStringLiteral("<position x='7' y='%1' angle='8' scale='3'/>").arg(text(bad)));
        EXPECT_TRUE(other.pos() == Math::Point2d(7.0, 0.0)) << bad;
        EXPECT_EQ(other.angle(), 8.0) << bad;
    }
    const PKC_ReferenceToolData bare = readFrom(text("<position scale='3'/>"));
    EXPECT_TRUE(bare.pos() == Math::Point2d());
    EXPECT_EQ(bare.angle(), 0.0);
    EXPECT_EQ(bare.alpha(), 0.5);
    EXPECT_EQ(bare.options(), -6);
}

TEST(ReferenceToolData, KeepsItsPositionWhenTheScaleIsBad)
{
    for (const char *bad : badDoubles)
        expectFullTool(readFrom(QStringLiteral("<position x='7' y='7' angle='7' scale='%1'/>").arg(text(bad))));
    expectFullTool(readFrom(text("<position x='7' y='7' angle='7'/>")));
}

TEST(ReferenceToolData, ReadsAColourWhoseAlphaIsGood)
{
    const PKC_ReferenceToolData half = readFrom(text("<color r='4' g='5' b='6' a='0.25'/>"));
    EXPECT_EQ(half.alpha(), 0.25);
    EXPECT_EQ(half.rgb(), QColor(4, 5, 6));
    EXPECT_EQ(half.rgb().alpha(), 255);
    for (const char *bad : badInts) {
        EXPECT_EQ(readFrom(QStringLiteral("<color r='%1' g='5' b='6' a='1'/>").arg(text(bad))).rgb(), QColor(0, 5, 6));
        EXPECT_EQ(readFrom(QStringLiteral("<color r='4' g='%1' b='6' a='1'/>").arg(text(bad))).rgb(), QColor(4, 0, 6));
        EXPECT_EQ(readFrom(QStringLiteral("<color r='4' g='5' b='%1' a='1'/>").arg(text(bad))).rgb(), QColor(4, 5, 0));
    }
    EXPECT_EQ(readFrom(text("<color a='1'/>")).rgb(), QColor(0, 0, 0));
}

TEST(ReferenceToolData, KeepsItsColourWhenTheAlphaIsBad)
{
    for (const char *bad : badDoubles)
        expectFullTool(readFrom(QStringLiteral("<color r='7' g='7' b='7' a='%1'/>").arg(text(bad))));
    expectFullTool(readFrom(text("<color r='7' g='7' b='7'/>")));
}

// It is written as black, which then is a colour like any other.
TEST(ReferenceToolData, ReadsAColourOutOfRangeAsNone)
{
    for (const char *odd : {"256", "-1", "2147483647", "-2147483648"}) {
        const PKC_ReferenceToolData tool = readFrom(QStringLiteral("<color r='4' g='%1' b='6' a='1'/>").arg(text(odd)));
        EXPECT_FALSE(tool.rgb().isValid()) << odd;
        EXPECT_EQ(as<PKC_ReferenceToolData>(readBack(tool))->rgb(), QColor(0, 0, 0)) << odd;
    }
}

TEST(ReferenceToolData, KeepsItsOptionsWhenTheFileHasBadOnes)
{
    for (const char *bad : badInts)
        expectFullTool(readFrom(QStringLiteral("<options value='%1'/>").arg(text(bad))));
    expectFullTool(readFrom(text("<options/>")));
    EXPECT_EQ(readFrom(text("<options value='3'/>")).options(), 3);
}

TEST(ReferenceToolData, ReadsOnWhateverCloses)
{
    const PKC_ReferenceToolData tool =
        readFrom(text("<other/><referenceToolData value='9' scale='9' a='9'><x value='9'><options value='4'/></x>"
                      "<Options value='9'/></referenceToolData><position scale='2'/>"));
    EXPECT_EQ(tool.options(), 4);
    EXPECT_EQ(tool.scale(), 2.0);
    EXPECT_EQ(tool.alpha(), 0.5);
}

TEST(ReferenceToolData, KeepsAForeignCreatorAndAnOlderVersion)
{
    const auto tool =
        loaded<PKC_ReferenceToolData>(text("<referenceToolData><options value='1'/></referenceToolData>"));
    ASSERT_TRUE(tool);
    EXPECT_EQ(textsOf(*tool), "referenceToolData 'inside' 'elsewhere' '0.7'");
    EXPECT_EQ(textsOf(*cloneOf(*tool)), textsOf(*tool));
    EXPECT_TRUE(tool->showOnThumbnails());
}
