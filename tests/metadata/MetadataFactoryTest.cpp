#include "metadata/PKC_MetadataFactory.h"

#include "layers/PKC_LayerInfos.h"
#include "metadata/PKC_ClipInfo.h"
#include "metadata/PKC_DeletedPanels.h"
#include "metadata/PKC_ExposurePoints.h"
#include "metadata/PKC_ProjectCompatibility.h"
#include "metadata/PKC_ProjectLinkInfo.h"
#include "metadata/PKC_ReferenceToolData.h"
#include "metadata/PKC_SceneInfo.h"
#include "metadata/PKC_SoundAnnotation.h"
#include "naming/PKC_NamingRules.h"
#include "scene/metadata/PIO_MetadataInt.h"
#include "scene/metadata/PIO_MetadataUnknown.h"
#include "support/Payloads.h"
#include "support/Records.h"
#include "tracking/PKC_Tracking.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>

namespace
{

std::unique_ptr<PIO_Metadata> made(const QString &type)
{
    return std::unique_ptr<PIO_Metadata>(PKC_MetadataFactory::createInstance()->createMeta(
        type, QStringLiteral("n"), QStringLiteral("c"), QStringLiteral("0.1")));
}

/// The record of @p type that `<metadata ...>PAYLOAD</metadata>` holds, of a foreign program and an old version.
std::unique_ptr<PIO_Metadata> loaded(const QString &type, const QString &payload)
{
    PKC_MetadataFactory::createInstance();
    PIO_RecordResult result = readRecord(
        QStringLiteral("<metadata type='%1' name='' creator='Fremd' version='0.3'>%2</metadata>").arg(type, payload));
    EXPECT_TRUE(result.message.isEmpty()) << result.message.toStdString();
    return std::move(result.record);
}

/// The type names exactly this class, and a record made in code has this version.
template <typename Record>
void expectMade(const char *type, const char *version)
{
    const auto record = made(QString::fromLatin1(type));
    ASSERT_TRUE(record) << type;
    const PIO_Metadata &known = *record;
    EXPECT_TRUE(typeid(known) == typeid(Record)) << type;
    EXPECT_EQ(textsOf(*record), type + std::string(" 'n' 'c' '0.1'"));
    EXPECT_EQ(textsOf(Record()), type + std::string(" '' 'plotka-tests' '") + version + "'");
}

} // namespace

TEST(MetadataFactory, IsOneAndRegistered)
{
    PKC_MetadataFactory *factory = PKC_MetadataFactory::createInstance();
    ASSERT_NE(factory, nullptr);
    EXPECT_EQ(PKC_MetadataFactory::createInstance(), factory);
    EXPECT_EQ(PIO_MetadataFactory::instance(), factory);
    EXPECT_FALSE(std::is_default_constructible_v<PKC_MetadataFactory>);
    EXPECT_FALSE(std::is_copy_constructible_v<PKC_MetadataFactory>);
    EXPECT_TRUE(std::has_virtual_destructor_v<PKC_MetadataFactory>);
    EXPECT_EQ(sizeof(PKC_MetadataFactory), sizeof(PIO_MetadataFactory));
}

TEST(MetadataFactory, MakesTheClassOfAType)
{
    expectMade<PKC_SceneInfo>("sceneInfo", "1.0");
    expectMade<PKC_ClipInfo>("panelInfo", "1.0");
    expectMade<PKC_ExposurePoints>("exposurePoints", "1.0");
    expectMade<PKC_Tracking>("tracking", "1.0");
    expectMade<PKC_LayerInfos>("layerInfos", "1.0");
    expectMade<PKC_NamingRules>("namingRules", "2.0");
    expectMade<PKC_SoundAnnotation>("soundAnnotation", "1.0");
    expectMade<PKC_ReferenceToolData>("referenceToolData", "1.0");
    expectMade<PKC_DeletedPanels>("deletedPanels", "1.0");
    expectMade<PKC_ProjectLinkInfo>("projectLinkInfo", "1.0");
    expectMade<PKC_ProjectCompatibility>("projectCompatibilityIssue", "1.0");
}

TEST(MetadataFactory, HandsOnNameCreatorAndVersion)
{
    for (const QString &type : {QStringLiteral("sceneInfo"), QStringLiteral("panelInfo"), QStringLiteral("int")}) {
        const auto record = made(type);
        ASSERT_TRUE(record) << type.toStdString();
        EXPECT_EQ(record->metaType(), type);
        EXPECT_EQ(record->metaName(), QStringLiteral("n"));
        EXPECT_EQ(record->creator(), QStringLiteral("c"));
        EXPECT_EQ(record->version(), QStringLiteral("0.1"));
    }
}

TEST(MetadataFactory, LeavesOtherTypesToItsBase)
{
    EXPECT_NE(dynamic_cast<PIO_MetadataInt *>(made(QStringLiteral("int")).get()), nullptr);
    for (const QString &type : {QString(), QStringLiteral("SceneInfo"), QStringLiteral("panelinfo"),
             QStringLiteral("panelInfo "), QStringLiteral("sceneInf"), QStringLiteral("nobody's")})
        EXPECT_FALSE(made(type)) << type.toStdString();
}

TEST(MetadataFactory, KeepsAForeignCreatorAndAnOlderVersionThroughLoadAndClone)
{
    const auto record = loaded(QStringLiteral("panelInfo"), QStringLiteral("<panelInfo name='A' nameFlag='2'/>"));
    const auto *info = dynamic_cast<const PKC_ClipInfo *>(record.get());
    ASSERT_NE(info, nullptr);
    const auto clone = cloneOf(*info);
    for (const PKC_ClipInfo *same : {info, static_cast<const PKC_ClipInfo *>(clone.get())}) {
        EXPECT_EQ(same->creator(), QStringLiteral("Fremd"));
        EXPECT_EQ(same->version(), QStringLiteral("0.3"));
        EXPECT_EQ(same->name().value(), QStringLiteral("A"));
        EXPECT_EQ(same->exportFlag(), 0);
    }
}

TEST(MetadataFactory, LoadsARecordByteForByte)
{
    for (const QString &payload :
        {QStringLiteral("<panelInfo name='A' nameFlag='2' exportFlag='13' colorIsValid='true' "
                        "color='#ff102030' linkedAudioClip='5,6' linkedVideoClip='7'/>"),
            QStringLiteral("<sceneInfo name='A' nameFlag='2' sequenceName='S' sequenceNameFlag='1' actName='' "
                           "actNameFlag='0'/>")}) {
        const QString type = payload.mid(1, payload.indexOf(QLatin1Char(' ')) - 1);
        const auto record = loaded(type, payload);
        ASSERT_TRUE(record);
        const std::string first = markupOf(*record);
        const PIO_RecordResult again = readRecord(QString::fromStdString(first));
        ASSERT_TRUE(again.record);
        EXPECT_EQ(markupOf(*again.record), first);
        EXPECT_NE(QString::fromStdString(first).replace(QLatin1Char('"'), QLatin1Char('\'')).indexOf(payload), -1)
            << first;
    }
}

TEST(MetadataFactory, LoadsOddPayloadsWithoutComplaint)
{
    for (const QString &payload : {QString(), QStringLiteral("text"), QStringLiteral("<x><y/></x>"),
             QStringLiteral("<sceneInfo><![CDATA[<panelInfo name='no'/>]]></sceneInfo>"),
             QStringLiteral("<!-- nothing -->")}) {
        const auto record = loaded(QStringLiteral("panelInfo"), payload);
        const auto *info = dynamic_cast<const PKC_ClipInfo *>(record.get());
        ASSERT_NE(info, nullptr) << payload.toStdString();
        EXPECT_EQ(info->exportFlag(), 13) << payload.toStdString();
        EXPECT_TRUE(info->name().value().isEmpty()) << payload.toStdString();
    }
}
