#include "metadata/PKC_MetadataFactory.h"
#include "scene/metadata/PIO_Metadata.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/storage/SC_ProjectFile.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

namespace
{

const QString kName = QStringLiteral("p");

struct Content {
    const char *type;
    const char *payload;
};

/// Every type, with all that it holds and with values that are odd, absent or wrong.
const Content contents[] = {
    {"sceneInfo", "<sceneInfo name=\"A\" nameFlag=\"-7\" sequenceName=\"S\" sequenceNameFlag=\"9\" actName=\"T\"/>"},
    {"sceneInfo", ""},
    {"panelInfo",
        "<panelInfo name=\"&#10;x\" nameFlag=\"2147483647\" exportFlag=\"x\" colorIsValid=\"true\" color=\"#80112233\""
        " linkedAudioClip=\"7,7,y,-9223372036854775808\" linkedVideoClip=\"9\"/><panelInfo linkedAudioClip=\"8\"/>"},
    {"exposurePoints",
        "<exposurePoints primaryExposure=\"1e30\"><pt value=\"3\"/><pt value=\"-2.5\"/><pt/></exposurePoints>"},
    {"exposurePoints", "<exposurePoints primaryExposure=\"inf\"><pt value=\"nan\"/></exposurePoints>"},
    {"tracking", "<tracking trackingFlag=\"true\" trackingDate=\"2020-02-29T23:59:59\" trackingNote=\"\"/>"},
    {"tracking", "<tracking trackingFlag=\"TRUE\" trackingDate=\"99999-01-01\"/>"},
    {"layerInfos",
        "<layerInfos><layer name=\"a\" exportFlag=\"-1\" layerFlag=\"16\" displayFlag=\"3\" parentFlag=\"5\"/>"
        "<layer exportFlag=\"1\" layerFlag=\"1\"/><layer name=\"a\" exportFlag=\"4\" layerFlag=\"2\"/></layerInfos>"},
    {"soundAnnotation", "<soundAnnotation><soundFile id=\"-5\" path=\"b\"/><soundFile id=\"-5\"/></soundAnnotation>"},
    {"namingRules",
        "<namingRules overloadingPref=\"true\" autoShowTotal=\"true\" enabledAct=\"true\">"
        "<shot_rules automaticLeadingZeros=\"true\" numberOfZeros=\"-3\" autoIncrementRule=\"99\""
        " sceneNameIncrementValue=\"0\" shotConflictDelimiter=\"7\" smartShotNameOnDrop=\"true\"/></namingRules>"},
    {"pdfOptions",
        "<pdfOptions><option name=\"x\" type=\"0\"><value data=\"AA==\"/></option><option type=\"5\"/></pdfOptions>"},
    {"referenceToolData",
        "<referenceToolData><position x=\"1\" y=\"nan\" angle=\"inf\" scale=\"-2\"/><color r=\"300\" g=\"1\" b=\"2\" "
        "a=\"0.5\"/>"
        "<options value=\"-1\"/></referenceToolData>"},
    {"deletedPanels",
        "<deletedPanels><scene id=\"5\" date=\"2020-01-01T00:00:00\"/><scene date=\"x\"/></deletedPanels>"},
    {"projectLinkInfo", "<projectLinkInfo><link project=\"b\" date=\"x\"/><link/></projectLinkInfo>"},
    {"projectCompatibilityIssue",
        "<projectCompatibilityIssue><CompatibilityIssue id=\"a\" product=\"b\" "
        "version=\"c\"/></projectCompatibilityIssue>"},
    {"projectPanelInfoFieldList",
        "<projectPanelInfoFieldList><field id=\"3\" name=\"n\" type=\"IMAGE\" size=\"CUSTOM\" height=\"-4\"/>"
        "<field id=\"3\"/><field id=\"2147483647\" comment=\"true\"/></projectPanelInfoFieldList>"},
    {"scenePanelInfoFieldList", "<scenePanelInfoFieldList><field id=\"-2147483648\"/></scenePanelInfoFieldList>"},
    {"extraInfoFieldList",
        "<extraInfoFieldList><field name=\"a\" type=\"IMAGE\" position=\"x\"/><field "
        "comment=\"true\"/></extraInfoFieldList>"},
    {"hiddenInfoField", "<hiddenInfoField><field name=\"b\"/><field name=\"a\"/><field/></hiddenInfoField>"},
    {"infoFields",
        "<infoFields><field id=\"4\" value=\"plain\"/><field id=\"-3\" name=\"own\" type=\"IMAGE\" size=\"CUSTOM\" "
        "value=\"k\"/>"
        "<field id=\"2147483647\" name=\"new\" comment=\"true\"/><field id=\"-2147483648\" dragName=\"d\"/>"
        "<field id=\"4\" size=\"MINIMUM\"/></infoFields>"},
    {"string", "<string value=\"\"/>"},
    {"int", "<int value=\"x\"/>"},
    {"double", "<double value=\"nan\"/>"},
    {"bool", "<bool value=\"true\"/>"},
    {"weather", "<rain><!-- much --> &amp; <a></a></rain>"},
};

QByteArray recordsOf(const char *name)
{
    QByteArray records;
    for (const Content &content : contents)
        records += QByteArray("<metadata type=\"") + content.type + "\"" + name + " creator=\"c\" version=\"2.0\">"
            + content.payload + "</metadata>\n";
    return records;
}

QByteArray fileOf(const QByteArray &newRecords, const QByteArray &inScene)
{
    return "<plotka format=\"2\" name=\"p\" nextId=\"9\" rate=\"24\" startTimecode=\"0\">" + newRecords
        + "<scene object=\"1\" scene=\"2\">" + inScene + "</scene></plotka>";
}

UT_SharedPtr<SC_Project> opened(const QByteArray &file)
{
    PKC_MetadataFactory::createInstance();
    SC_FileReport report;
    return UT_SharedPtr<SC_Project>(SC_ProjectFile::fromText(file, QStringLiteral("/nowhere/p.plotka"), report));
}

} // namespace

// Whatever somebody wrote into new records is there as if it stood in the scene, also once it has been asked for; but for heights of
// captions, which a clone does not have.
TEST(RecordCopies, SayWhatTheirOriginalsDo)
{
    for (const char *name : {"", " name=\"\"", " name=\"inside\""}) {
        const QByteArray records = recordsOf(name);
        // Three times are more than a container shares.
        const auto inScene = opened(fileOf({}, records + records + records));
        const auto shared = opened(fileOf(
            "<newRecords number=\"1\">" + records + records + records + "</newRecords>", "<newRecords as=\"1\"/>"));
        ASSERT_TRUE(inScene && shared);
        const std::string expected = SC_ProjectFile::toText(*inScene, kName).toStdString();
        EXPECT_EQ(SC_ProjectFile::toText(*shared, kName).toStdString(), expected);

        const PIO_Metadatas &own = *dynamic_cast<TUScene *>(shared->sceneAt(0))->metadatas();
        EXPECT_EQ(own.view().size(), 3 * std::size(contents));
        EXPECT_TRUE(own.isShared(0));
        EXPECT_EQ(static_cast<std::size_t>(own.end() - own.begin()), own.view().size());
        EXPECT_FALSE(own.isShared(0));
        EXPECT_EQ(SC_ProjectFile::toText(*shared, kName).toStdString(), expected);
    }
}
