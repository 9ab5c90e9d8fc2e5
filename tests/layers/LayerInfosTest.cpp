#include "layers/PKC_LayerInfos.h"

#include "scene/metadata/PIO_ComponentReader.h"
#include "support/Golden.h"
#include "support/Payloads.h"
#include "support/Records.h"

#include <QStringList>
#include <QXmlAttributes>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <limits>
#include <utility>

namespace
{

using Layer = PKC_LayerInfos::LayerInfo_t;
using LayerPtr = UT_SharedPtr<Layer>;

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

LayerPtr layerOf(const char *name, int exportFlags, int layerFlags, int displayFlags, int inheritedFlags)
{
    const LayerPtr layer(new Layer(text(name)));
    layer->exportFlags = PKC_LayerInfos::EXPORT_FLAGS(exportFlags);
    layer->layerFlags = PKC_LayerInfos::LAYER_FLAGS(layerFlags);
    layer->displayFlags = PKC_LayerInfos::DISPLAY_FLAGS(displayFlags);
    layer->inheritedFlags = PKC_LayerInfos::INHERITED_FLAGS(inheritedFlags);
    return layer;
}

/// "name(export layer display inherited)" of each entry, in order.
std::string entriesOf(const PKC_LayerInfos &infos)
{
    QStringList entries;
    for (const LayerPtr &layer : infos) {
        if (!layer)
            continue;
        entries += QStringLiteral("%1(%2 %3 %4 %5)")
                       .arg(layer->name, QString::number(layer->exportFlags), QString::number(layer->layerFlags),
                           QString::number(layer->displayFlags), QString::number(layer->inheritedFlags));
    }
    return entries.join(QLatin1Char(' ')).toStdString();
}

PKC_LayerInfos threeLayers()
{
    PKC_LayerInfos infos(text("inside"), text("elsewhere"), text("0.7"));
    infos.add(layerOf("BG", 13, 0x101, 0, 1));
    infos.add(layerOf("Comments %2", -1, 0x10, 2, 0));
    infos.add(layerOf("A", 0, 0, 4, 8));
    return infos;
}

const std::string threeEntries = "BG(13 257 0 1) Comments %2(-1 16 2 0) A(0 0 4 8)";

/// The names found by layer flags, after what @p found holds already.
std::string namesByFlags(const PKC_LayerInfos &infos, int flags, std::vector<LayerPtr> found = {})
{
    const bool any = infos.infoByLayerFlags(PKC_LayerInfos::LAYER_FLAGS(flags), found);
    EXPECT_EQ(any, !found.empty());
    QStringList names;
    for (const LayerPtr &layer : found)
        names += layer->name;
    return names.join(QLatin1Char(' ')).toStdString();
}

/// Gives @p reader a layer with export flags 1 and layer flags 2.
void readLayer(PIO_XML::ComponentReader &reader, const char *name)
{
    QXmlAttributes attributes;
    attributes.append(text("name"), QString(), text("name"), text(name));
    attributes.append(text("exportFlag"), QString(), text("exportFlag"), text("1"));
    attributes.append(text("layerFlag"), QString(), text("layerFlag"), text("2"));
    EXPECT_TRUE(reader.startElement(QString(), text("layer"), attributes));
}

/// Changes of a record of threeLayers() while a reader is at it, and the entries there are once it has then read
/// a layer BG.
const std::pair<std::function<void(PKC_LayerInfos &)>, const char *> changesWhileReading[] = {
    {[](PKC_LayerInfos &infos) { infos.Clear(); }, "BG(1 2 0 0)"},
    {[](PKC_LayerInfos &infos) { infos.remove(text("BG")); }, "Comments %2(-1 16 2 0) A(0 0 4 8) BG(1 2 0 0)"},
    {[](PKC_LayerInfos &infos) { infos.add(layerOf("BG", 5, 5, 5, 5)); },
        "Comments %2(-1 16 2 0) A(0 0 4 8) BG(1 2 0 0)"},
    {[](PKC_LayerInfos &infos) { infos.add(layerOf("B", 5, 5, 5, 5)); },
        "Comments %2(-1 16 2 0) A(0 0 4 8) B(5 5 5 5) BG(1 2 0 0)"},
    {[](PKC_LayerInfos &infos) { infos = PKC_LayerInfos(); }, "BG(1 2 0 0)"},
    {[](PKC_LayerInfos &infos) { infos.info(text("BG"), false)->name = text("old"); },
        "old(13 257 0 1) Comments %2(-1 16 2 0) A(0 0 4 8) BG(1 2 0 0)"},
    {[](PKC_LayerInfos &infos) {
         infos.info(text("BG"), false)->name = text("old");
         infos.info(text("A"), false)->name = text("BG");
     },
        "old(13 257 0 1) Comments %2(-1 16 2 0) BG(1 2 0 0)"},
    {[](PKC_LayerInfos &infos) { *infos.begin() = nullptr; }, "Comments %2(-1 16 2 0) A(0 0 4 8) BG(1 2 0 0)"},
};

} // namespace

TEST(LayerInfos, StartsEmptyAndIsValidWithALayer)
{
    PKC_LayerInfos infos;
    EXPECT_EQ(textsOf(infos), "layerInfos '' 'plotka-tests' '1.0'");
    EXPECT_EQ(PKC_LayerInfos::kPIO_PKMETA_Keyword, text("layerInfos"));
    EXPECT_EQ(PKC_LayerInfos::kPIO_PKMETA_Version, text("1.0"));
    EXPECT_EQ(infos.begin(), infos.end());
    EXPECT_FALSE(infos.isValid());
    EXPECT_TRUE(infos.info(text("A"), true));
    EXPECT_TRUE(infos.isValid());
    infos.Clear();
    EXPECT_FALSE(infos.isValid());
    EXPECT_EQ(entriesOf(infos), "");
    EXPECT_EQ(PKC_LayerInfos(text("n")).metaName(), text("n"));
}

TEST(LayerInfos, GivesANewLayerItsDefaults)
{
    PKC_LayerInfos infos;
    EXPECT_FALSE(infos.info(text("A"), false));
    EXPECT_EQ(entriesOf(infos), "");
    const LayerPtr made = infos.info(text("A"), true);
    EXPECT_EQ(entriesOf(infos), "A(13 0 0 0)");
    EXPECT_EQ(infos.info(text("A"), true), made);
    EXPECT_EQ(infos.info(text("A"), false), made);
    EXPECT_EQ(std::as_const(infos).info(text("A")), made);
    EXPECT_FALSE(std::as_const(infos).info(text("a")));
    EXPECT_FALSE(std::as_const(infos).info(text("A ")));
    EXPECT_EQ(made->refCount, 2);
}

TEST(LayerInfos, PutsAReplacedLayerAtTheEnd)
{
    PKC_LayerInfos infos = threeLayers();
    const LayerPtr old = infos.info(text("BG"), false);
    infos.add(layerOf("BG", 5, 0, 0, 0));
    EXPECT_EQ(entriesOf(infos), "Comments %2(-1 16 2 0) A(0 0 4 8) BG(5 0 0 0)");
    EXPECT_EQ(old->refCount, 1);
    infos.add(layerOf("bg", 6, 0, 0, 0));
    EXPECT_EQ(entriesOf(infos), "Comments %2(-1 16 2 0) A(0 0 4 8) BG(5 0 0 0) bg(6 0 0 0)");
}

TEST(LayerInfos, AddsAnEntryOfItsOwnAgain)
{
    PKC_LayerInfos infos = threeLayers();
    infos.add(*infos.begin());
    EXPECT_EQ(entriesOf(infos), "Comments %2(-1 16 2 0) A(0 0 4 8) BG(13 257 0 1)");
    infos.add(nullptr);
    EXPECT_EQ(entriesOf(infos), "Comments %2(-1 16 2 0) A(0 0 4 8) BG(13 257 0 1)");
}

TEST(LayerInfos, RemovesALayerByItsExactName)
{
    PKC_LayerInfos infos = threeLayers();
    infos.remove(text("bg"));
    EXPECT_EQ(entriesOf(infos), threeEntries);
    infos.remove((*infos.begin())->name);
    infos.remove(text("BG"));
    EXPECT_EQ(entriesOf(infos), "Comments %2(-1 16 2 0) A(0 0 4 8)");
}

TEST(LayerInfos, FindsLayersThatShareAFlag)
{
    const PKC_LayerInfos infos = threeLayers();
    EXPECT_EQ(namesByFlags(infos, 0x100), "BG");
    EXPECT_EQ(namesByFlags(infos, 0x010), "Comments %2");
    EXPECT_EQ(namesByFlags(infos, PKC_LayerInfos::GroupLayer | PKC_LayerInfos::PitchModeLayer), "BG Comments %2");
    EXPECT_EQ(namesByFlags(infos, 0), "");
    EXPECT_EQ(namesByFlags(infos, 0x200), "");
    EXPECT_EQ(namesByFlags(infos, 0x200, {layerOf("old", 0, 0, 0, 0)}), "old");
    EXPECT_EQ(namesByFlags(infos, 0x001, {layerOf("old", 0, 0, 0, 0)}), "old BG");
}

TEST(LayerInfos, JoinsLayerFlags)
{
    EXPECT_EQ(PKC_LayerInfos::LAYER_FLAGS(0x101), PKC_LayerInfos::BackgroundLayer | PKC_LayerInfos::GroupLayer);
    EXPECT_EQ(PKC_LayerInfos::PitchModeLayer, PKC_LayerInfos::PitchModeLayer | PKC_LayerInfos::PitchModeLayer);
    EXPECT_EQ(PKC_LayerInfos::BackgroundLayer, 0x001);
    EXPECT_EQ(PKC_LayerInfos::PitchModeLayer, 0x010);
    EXPECT_EQ(PKC_LayerInfos::GroupLayer, 0x100);
}

TEST(LayerInfos, ReadsAndSetsFlagsByName)
{
    PKC_LayerInfos infos = threeLayers();
    EXPECT_EQ(infos.exportFlags(text("Comments %2")), -1);
    EXPECT_EQ(infos.layerFlags(text("BG")), 0x101);
    EXPECT_EQ(infos.displayFlags(text("A")), 4);
    EXPECT_EQ(infos.inheritedFlags(text("A")), 8);
    infos.setExportFlags(text("A"), PKC_LayerInfos::EXPORT_FLAGS(1));
    infos.setLayerFlags(text("A"), PKC_LayerInfos::LAYER_FLAGS(2));
    infos.setDisplayFlags(text("A"), PKC_LayerInfos::DISPLAY_FLAGS(3));
    infos.setInheritedFlags(text("A"), PKC_LayerInfos::INHERITED_FLAGS(std::numeric_limits<int>::min()));
    EXPECT_EQ(entriesOf(infos), "BG(13 257 0 1) Comments %2(-1 16 2 0) A(1 2 3 -2147483648)");
}

TEST(LayerInfos, HasNoFlagsForAnUnknownName)
{
    PKC_LayerInfos infos = threeLayers();
    const QString unknown = text("bg");
    EXPECT_EQ(infos.exportFlags(unknown), 0);
    EXPECT_EQ(infos.layerFlags(unknown), 0);
    EXPECT_EQ(infos.displayFlags(unknown), 0);
    EXPECT_EQ(infos.inheritedFlags(unknown), 0);
    infos.setExportFlags(unknown, PKC_LayerInfos::EXPORT_FLAGS(1));
    infos.setLayerFlags(unknown, PKC_LayerInfos::LAYER_FLAGS(1));
    infos.setDisplayFlags(unknown, PKC_LayerInfos::DISPLAY_FLAGS(1));
    infos.setInheritedFlags(unknown, PKC_LayerInfos::INHERITED_FLAGS(1));
    EXPECT_EQ(entriesOf(infos), threeEntries);
    EXPECT_TRUE(infos.info(unknown, true));
    infos.setLayerFlags(unknown, PKC_LayerInfos::GroupLayer);
    EXPECT_EQ(entriesOf(infos), threeEntries + " bg(13 256 0 0)");
}

TEST(LayerInfos, CopiesItsEntries)
{
    PKC_LayerInfos infos = threeLayers();
    const PKC_LayerInfos copied(infos);
    PKC_LayerInfos assigned;
    assigned.info(text("old"), true);
    assigned = infos;
    const LayerPtr shared = assigned.info(text("BG"), false);
    const PKC_LayerInfos &self = assigned;
    assigned = self;
    EXPECT_EQ(assigned.info(text("BG"), false), shared);
    for (const LayerPtr &layer : infos)
        layer->exportFlags = PKC_LayerInfos::EXPORT_FLAGS(99);
    for (const PKC_LayerInfos *copy : {&copied, static_cast<const PKC_LayerInfos *>(&assigned)}) {
        EXPECT_EQ(textsOf(*copy), "layerInfos 'inside' 'elsewhere' '0.7'");
        EXPECT_EQ(entriesOf(*copy), threeEntries);
    }
}

// The one record whose clone does not keep its name within the container.
TEST(LayerInfos, ClonesItsEntriesWithoutItsName)
{
    PKC_LayerInfos infos = threeLayers();
    const auto clone = cloneOf(infos);
    ASSERT_TRUE(clone);
    EXPECT_EQ(textsOf(*clone), "layerInfos '' 'elsewhere' '0.7'");
    infos.setExportFlags(text("A"), PKC_LayerInfos::EXPORT_FLAGS(99));
    EXPECT_EQ(entriesOf(*clone), threeEntries);
}

TEST(LayerInfos, WritesDisplayFlagsOnlyWhereThereAreSome)
{
    expectGolden("layer_infos.xml", markupOf(PKC_LayerInfos()) + markupOf(threeLayers()));
}

TEST(LayerInfos, ReadsBackWhatItWrote)
{
    const auto again = as<PKC_LayerInfos>(readBack(threeLayers()));
    ASSERT_TRUE(again);
    EXPECT_EQ(entriesOf(*again), threeEntries);
    EXPECT_EQ(markupOf(*again), markupOf(threeLayers()));
}

TEST(LayerInfos, DumpsItsLayersForDebugging)
{
    QString base;
    threeLayers().PIO_Metadata::dumpToString(base);
    EXPECT_EQ(dumpOf(threeLayers()),
        base.toStdString()
            + "Layer: name=BG, exportFlags=13, layerFlags=257, displayFlags=0, inheritedFlags=1\n"
              "Layer: name=Comments %2, exportFlags=-1, layerFlags=16, displayFlags=2, inheritedFlags=0\n"
              "Layer: name=A, exportFlags=0, layerFlags=0, displayFlags=4, inheritedFlags=8\n");
}

TEST(LayerInfos, KeepsDefaultsForMissingAndEmptyOptionalFlags)
{
    const auto infos =
        loaded<PKC_LayerInfos>(text("<layerInfos><layer name='A' exportFlag='1' layerFlag='2'/>"
                                    "<layer exportFlag='1' layerFlag='2' displayFlag='' parentFlag=''/></layerInfos>"));
    ASSERT_TRUE(infos);
    EXPECT_EQ(entriesOf(*infos), "A(1 2 0 0) (1 2 0 0)");
}

TEST(LayerInfos, RefusesALayerWithABadNumber)
{
    for (const char *bad : {"layerFlag='2'", "exportFlag='1'", "exportFlag='' layerFlag='2'",
             "exportFlag='1' layerFlag=''", "exportFlag='1' layerFlag='x'", "exportFlag='0x1' layerFlag='2'",
             "exportFlag='1' layerFlag='2' displayFlag='x'", "exportFlag='1' layerFlag='2' parentFlag='1.5'",
             "exportFlag='2147483648' layerFlag='2'"}) {
        const auto infos =
            loaded<PKC_LayerInfos>(QStringLiteral("<layerInfos><layer name='bad' %1>"
                                                  "<layer name='inside' exportFlag='1' layerFlag='2'/></layer>"
                                                  "<layer name='next' exportFlag='1' layerFlag='2'/></layerInfos>")
                                       .arg(text(bad)));
        ASSERT_TRUE(infos);
        EXPECT_EQ(entriesOf(*infos), "next(1 2 0 0)") << bad;
    }
}

TEST(LayerInfos, ReadsADoubledNameAsItsLastLayer)
{
    PKC_LayerInfos infos = threeLayers();
    readPayload(infos,
        text("<layerInfos><layer name='BG' exportFlag='1' layerFlag='1'/><layer name='B' exportFlag='2' "
             "layerFlag='2'/><layer name='BG' exportFlag='3' layerFlag='3'/></layerInfos>"));
    EXPECT_EQ(entriesOf(infos), "Comments %2(-1 16 2 0) A(0 0 4 8) B(2 2 0 0) BG(3 3 0 0)");
}

TEST(LayerInfos, SkipsElementsItDoesNotKnow)
{
    PKC_LayerInfos infos;
    readPayload(infos,
        text("<other><layer name='A' exportFlag='1' layerFlag='1'/></other><layerInfos>"
             "<Layer name='x' exportFlag='1' layerFlag='1'/><layers exportFlag='x'>"
             "<layer name='B' exportFlag='1' layerFlag='1'/></layers></layerInfos>"));
    EXPECT_EQ(entriesOf(infos), "A(1 1 0 0) B(1 1 0 0)");
}

TEST(LayerInfos, StopsReadingAtItsOwnEnd)
{
    PKC_LayerInfos infos = threeLayers();
    readPayload(infos,
        text("<layerInfos/><layer name='B' exportFlag='1' layerFlag='1'/><layer exportFlag='x'/>"
             "<layerInfos><layer name='C' exportFlag='1' layerFlag='1'/></layerInfos>"));
    EXPECT_EQ(entriesOf(infos), threeEntries);
}

TEST(LayerInfos, GivesAReaderOnlyForLayersThatItTakes)
{
    PKC_LayerInfos infos;
    const UT_SharedPtr<PIO_XML::ComponentReader> reader(infos.componentReader());
    EXPECT_EQ(reader->startElement(QString(), text("layerInfos"), QXmlAttributes()), reader);
    EXPECT_FALSE(reader->startElement(QString(), text("layer"), QXmlAttributes()));
    EXPECT_TRUE(reader->endElement(QString(), text("layer")));
    EXPECT_TRUE(reader->endElement(QString(), text("layerInfos")));
    EXPECT_EQ(reader->startElement(QString(), text("layer"), QXmlAttributes()), reader);
    EXPECT_EQ(entriesOf(infos), "");
}

TEST(LayerInfos, ReadsOnWhenItChangedMeanwhile)
{
    for (const auto &[change, entries] : changesWhileReading) {
        PKC_LayerInfos infos = threeLayers();
        const UT_SharedPtr<PIO_XML::ComponentReader> reader(infos.componentReader());
        change(infos);
        readLayer(*reader, "BG");
        EXPECT_EQ(entriesOf(infos), entries);
    }
}

TEST(LayerInfos, ReadsOnWhenItChangedBetweenTwoLayers)
{
    for (const auto &[change, entries] : changesWhileReading) {
        PKC_LayerInfos infos = threeLayers();
        const UT_SharedPtr<PIO_XML::ComponentReader> reader(infos.componentReader());
        readLayer(*reader, "first");
        change(infos);
        readLayer(*reader, "BG");
        infos.remove(text("first"));
        EXPECT_EQ(entriesOf(infos), entries);
    }
}

TEST(LayerInfos, TakesTwoReadersAtATime)
{
    PKC_LayerInfos infos = threeLayers();
    const UT_SharedPtr<PIO_XML::ComponentReader> one(infos.componentReader());
    const UT_SharedPtr<PIO_XML::ComponentReader> other(infos.componentReader());
    for (const char *name : {"BG", "A", "BG"}) {
        readLayer(*one, name);
        readLayer(*other, name);
    }
    EXPECT_EQ(entriesOf(infos), "Comments %2(-1 16 2 0) A(1 2 0 0) BG(1 2 0 0)");
}

TEST(LayerInfos, TakesAnEntryThatWasSetToNullForNone)
{
    PKC_LayerInfos infos = threeLayers();
    *infos.begin() = nullptr;
    const std::string rest = "Comments %2(-1 16 2 0) A(0 0 4 8)";
    EXPECT_EQ(entriesOf(infos), rest);
    EXPECT_FALSE(infos.info(text("BG"), false));
    EXPECT_EQ(infos.layerFlags(text("A")), 0);
    EXPECT_EQ(namesByFlags(infos, -1), "Comments %2");
    EXPECT_EQ(dumpOf(infos).find("BG"), std::string::npos);
    EXPECT_EQ(entriesOf(PKC_LayerInfos(infos)), rest);
    EXPECT_EQ(entriesOf(*cloneOf(infos)), rest);
    EXPECT_EQ(entriesOf(*as<PKC_LayerInfos>(readBack(infos))), rest);
    infos.remove(text("A"));
    readPayload(infos, text("<layerInfos><layer name='B' exportFlag='1' layerFlag='2'/></layerInfos>"));
    infos.add(layerOf("BG", 5, 0, 0, 0));
    EXPECT_EQ(entriesOf(infos), "Comments %2(-1 16 2 0) B(1 2 0 0) BG(5 0 0 0)");
    EXPECT_TRUE(infos.isValid());
    for (LayerPtr &layer : infos)
        layer = nullptr;
    EXPECT_FALSE(infos.isValid());
}

// Each of the repeated layers would have to be looked for behind all the others.
TEST(LayerInfos, ReadsManyLayersInLittleTime)
{
    QString payload = text("<layerInfos>");
    const int count = 10000;
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < count; ++i) {
            const int number = round == 0 ? i : count - 1 - i;
            payload += QStringLiteral("<layer name='%1' exportFlag='1' layerFlag='1'/>").arg(number);
        }
    }
    const auto start = std::chrono::steady_clock::now();
    const auto infos = loaded<PKC_LayerInfos>(payload + text("</layerInfos>"));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    ASSERT_TRUE(infos);
    EXPECT_EQ(std::distance(infos->begin(), infos->end()), count);
    EXPECT_EQ((*infos->begin())->name, QString::number(count - 1));
}

TEST(LayerInfos, KeepsAForeignCreatorAndAnOlderVersion)
{
    const auto infos = loaded<PKC_LayerInfos>(text("<layerInfos/>"));
    ASSERT_TRUE(infos);
    EXPECT_EQ(textsOf(*infos), "layerInfos 'inside' 'elsewhere' '0.7'");
    EXPECT_FALSE(infos->isValid());
}
