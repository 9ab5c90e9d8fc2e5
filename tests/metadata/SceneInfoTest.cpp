#include "metadata/PKC_SceneInfo.h"

#include "scene/metadata/PIO_ComponentReader.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "support/Golden.h"
#include "support/Payloads.h"
#include "support/Records.h"

#include <QXmlAttributes>

#include <gtest/gtest.h>

namespace
{

/// A record in which no field has its default.
PKC_SceneInfo fullInfo()
{
    PKC_SceneInfo info(QStringLiteral("inside"), QStringLiteral("elsewhere"), QStringLiteral("0.7"));
    info.name().setValue(QStringLiteral("Shot %2"));
    info.name().setFlag(1);
    info.sequenceName().setValue(QStringLiteral("Sequence %1"));
    info.sequenceName().setFlag(2);
    info.actName().setValue(QStringLiteral("Akt \"drugi\""));
    info.actName().setFlag(-4);
    return info;
}

void expectFullInfo(const PKC_SceneInfo &info)
{
    EXPECT_EQ(info.metaType(), QStringLiteral("sceneInfo"));
    EXPECT_EQ(info.metaName(), QStringLiteral("inside"));
    EXPECT_EQ(info.creator(), QStringLiteral("elsewhere"));
    EXPECT_EQ(info.version(), QStringLiteral("0.7"));
    EXPECT_EQ(info.name().value(), QStringLiteral("Shot %2"));
    EXPECT_EQ(info.name().flag(), 1);
    EXPECT_EQ(info.sequenceName().value(), QStringLiteral("Sequence %1"));
    EXPECT_EQ(info.sequenceName().flag(), 2);
    EXPECT_EQ(info.actName().value(), QStringLiteral("Akt \"drugi\""));
    EXPECT_EQ(info.actName().flag(), -4);
}

/// The record after its reader met `<sceneInfo ATTRIBUTES/>`.
PKC_SceneInfo readFrom(const QString &attributes, PKC_SceneInfo info = fullInfo())
{
    readPayload(info, QStringLiteral("<sceneInfo %1/>").arg(attributes));
    return info;
}

} // namespace

TEST(SceneInfo, StartsWithACustomNameWithoutText)
{
    const PKC_SceneInfo info;
    EXPECT_EQ(info.metaType(), QStringLiteral("sceneInfo"));
    EXPECT_EQ(info.metaType(), PKC_SceneInfo::kPIO_PKMETA_Keyword);
    EXPECT_TRUE(info.metaName().isEmpty());
    EXPECT_EQ(info.creator(), QStringLiteral("plotka-tests"));
    EXPECT_EQ(info.version(), QStringLiteral("1.0"));
    EXPECT_EQ(info.version(), PKC_SceneInfo::kPIO_PKMETA_Version);
    EXPECT_EQ(info.name().flag(), 2);
    EXPECT_FALSE(info.name().isAuto());
    EXPECT_EQ(info.sequenceName().flag(), 0);
    EXPECT_EQ(info.actName().flag(), 0);
    EXPECT_TRUE(info.name().value().isEmpty());
    EXPECT_TRUE(info.sequenceName().value().isEmpty());
    EXPECT_TRUE(info.actName().value().isEmpty());
    const PKC_SceneInfo loaded(QString(), QStringLiteral("c"), QStringLiteral("v"));
    EXPECT_TRUE(loaded.name().isCustom());
    EXPECT_EQ(PKC_SceneInfo(QStringLiteral("n")).metaName(), QStringLiteral("n"));
}

TEST(SceneInfo, IsValidUnlessACustomNameHasNoText)
{
    PKC_SceneInfo info;
    EXPECT_FALSE(info.isValid());
    info.name().setFlag(0);
    EXPECT_TRUE(info.isValid());
    info.name().setFlag(2);
    info.name().setValue(QStringLiteral("x"));
    EXPECT_TRUE(info.isValid());
    info.sequenceName().setFlag(2);
    info.actName().setFlag(2);
    EXPECT_TRUE(info.isValid());
}

TEST(SceneInfo, LetsALockedNameOfASequenceOrActAlone)
{
    PKC_SceneInfo info;
    EXPECT_TRUE(info.canModifySequenceName());
    EXPECT_TRUE(info.canModifyActName());
    info.name().setFlag(1);
    EXPECT_TRUE(info.canModifySequenceName());
    EXPECT_TRUE(info.canModifyActName());
    info.sequenceName().setFlag(3);
    EXPECT_FALSE(info.canModifySequenceName());
    EXPECT_TRUE(info.canModifyActName());
    info.actName().setFlag(1);
    info.sequenceName().setFlag(2);
    EXPECT_TRUE(info.canModifySequenceName());
    EXPECT_FALSE(info.canModifyActName());
}

TEST(SceneInfo, CopiesEveryField)
{
    const PKC_SceneInfo info = fullInfo();
    expectFullInfo(info);
    expectFullInfo(PKC_SceneInfo(info));
    PKC_SceneInfo assigned;
    assigned = info;
    expectFullInfo(assigned);
    const PKC_SceneInfo &self = assigned;
    assigned = self;
    expectFullInfo(assigned);
    const auto clone = cloneOf(info);
    ASSERT_TRUE(clone);
    expectFullInfo(*clone);
}

TEST(SceneInfo, ClonesIndependently)
{
    PKC_SceneInfo info = fullInfo();
    const auto clone = cloneOf(info);
    info.name().setFlag(0);
    info.sequenceName().setValue(QString());
    info.actName().setFlag(0);
    expectFullInfo(*clone);
}

TEST(SceneInfo, WritesItsAttributesInOrder)
{
    expectGolden("scene_info.xml", markupOf(PKC_SceneInfo()) + markupOf(fullInfo()));
}

TEST(SceneInfo, ReadsBackWhatItWrote)
{
    const std::string markup = markupOf(fullInfo());
    PKC_SceneInfo again(QStringLiteral("inside"), QStringLiteral("elsewhere"), QStringLiteral("0.7"));
    const QString text = QString::fromStdString(markup);
    const qsizetype from = text.indexOf(QStringLiteral("<sceneInfo"));
    readPayload(again, text.mid(from, text.indexOf(QStringLiteral("/>")) + 2 - from));
    EXPECT_EQ(markupOf(again), markup);
}

TEST(SceneInfo, DumpsItsFieldsForDebugging)
{
    QString base;
    fullInfo().PIO_Metadata::dumpToString(base);
    EXPECT_EQ(dumpOf(fullInfo()),
        base.toStdString()
            + "name=Shot %2, nameFlag=1, sequenceName=Sequence %1, sequenceNameFlag=2, actName=Akt \"drugi\", "
              "actNameFlag=-4\n");
    EXPECT_NE(
        dumpOf(PKC_SceneInfo()).find("name=, nameFlag=2, sequenceName=, sequenceNameFlag=0, actName=, actNameFlag=0\n"),
        std::string::npos);
}

TEST(SceneInfo, ReadsNothingAsAutomaticNamesWithoutText)
{
    const PKC_SceneInfo info = readFrom(QString());
    for (const PKC_ObjectName &name : {info.name(), info.sequenceName(), info.actName()}) {
        EXPECT_TRUE(name.value().isNull());
        EXPECT_EQ(name.flag(), 0);
    }
    EXPECT_TRUE(readFrom(QString(), PKC_SceneInfo()).name().isAuto());
}

TEST(SceneInfo, TakesTextsAsTheyStand)
{
    const PKC_SceneInfo info = readFrom(QStringLiteral("name='' sequenceName=' b ' actName='&lt;%1&gt;'"));
    EXPECT_EQ(info.name().value(), QString());
    EXPECT_EQ(info.sequenceName().value(), QStringLiteral(" b "));
    EXPECT_EQ(info.actName().value(), QStringLiteral("<%1>"));
}

TEST(SceneInfo, ReadsABadFlagAsZero)
{
    for (const char *bad : {"", "x", "7x", "0x7", "1.5", "4294967296"}) {
        const QString text = QString::fromLatin1(bad);
        const PKC_SceneInfo info =
            readFrom(QStringLiteral("nameFlag='%1' sequenceNameFlag='%1' actNameFlag='%1'").arg(text));
        EXPECT_EQ(info.name().flag(), 0) << bad;
        EXPECT_EQ(info.sequenceName().flag(), 0) << bad;
        EXPECT_EQ(info.actName().flag(), 0) << bad;
    }
}

TEST(SceneInfo, ReadsEachAttributeByItself)
{
    const QStringList keys{QStringLiteral("name"), QStringLiteral("nameFlag"), QStringLiteral("sequenceName"),
        QStringLiteral("sequenceNameFlag"), QStringLiteral("actName"), QStringLiteral("actNameFlag")};
    for (const QString &missing : keys) {
        QString attributes;
        for (const QString &key : keys) {
            if (key != missing)
                attributes += QStringLiteral("%1='7' ").arg(key);
        }
        const PKC_SceneInfo info = readFrom(attributes);
        const auto textOf = [&missing](const QString &key) { return key == missing ? QString() : QStringLiteral("7"); };
        const auto flagOf = [&missing](const QString &key) { return key == missing ? 0 : 7; };
        EXPECT_EQ(info.name().value(), textOf(keys[0])) << missing.toStdString();
        EXPECT_EQ(info.name().flag(), flagOf(keys[1])) << missing.toStdString();
        EXPECT_EQ(info.sequenceName().value(), textOf(keys[2])) << missing.toStdString();
        EXPECT_EQ(info.sequenceName().flag(), flagOf(keys[3])) << missing.toStdString();
        EXPECT_EQ(info.actName().value(), textOf(keys[4])) << missing.toStdString();
        EXPECT_EQ(info.actName().flag(), flagOf(keys[5])) << missing.toStdString();
    }
}

TEST(SceneInfo, SkipsElementsItDoesNotKnow)
{
    PKC_SceneInfo info;
    readPayload(info, QStringLiteral("<panelInfo name='no'><sceneInfo name='yes' nameFlag='3'/></panelInfo>"));
    EXPECT_EQ(info.name().value(), QStringLiteral("yes"));
    EXPECT_EQ(info.name().flag(), 3);
    PKC_SceneInfo untouched = fullInfo();
    readPayload(untouched, QStringLiteral("<SceneInfo name='no'/>"));
    expectFullInfo(untouched);
}

TEST(SceneInfo, StopsReadingAtTheFirstClosingElement)
{
    PKC_SceneInfo info = fullInfo();
    readPayload(info, QStringLiteral("<other/><sceneInfo name='late'/>"));
    expectFullInfo(info);
    readPayload(info, QStringLiteral("<sceneInfo name='first'/><sceneInfo name='late'/>"));
    EXPECT_EQ(info.name().value(), QStringLiteral("first"));
}

TEST(SceneInfo, GivesAReaderThatServesItsWholePayload)
{
    PKC_SceneInfo info;
    const UT_SharedPtr<PIO_XML::ComponentReader> reader(info.componentReader());
    {
        const auto children = reader->startElement(QString(), QStringLiteral("anything"), QXmlAttributes());
        EXPECT_EQ(children, reader);
        EXPECT_EQ(reader->refCount, 2);
    }
    EXPECT_TRUE(reader->endElement(QString(), QStringLiteral("anything")));
    EXPECT_EQ(reader->startElement(QString(), QStringLiteral("sceneInfo"), QXmlAttributes()), reader);
    EXPECT_TRUE(info.name().isCustom());
}

TEST(SceneInfo, IsFoundUnderItsTypeAndItsExactName)
{
    PIO_Metadatas records;
    records.add(new PKC_SceneInfo);
    const QString keyword = PKC_SceneInfo::kPIO_PKMETA_Keyword;
    EXPECT_EQ(records.metadata(keyword, keyword), nullptr);
    EXPECT_EQ(records.metadata(keyword, QString()), *records.begin());
    auto *brought = new PKC_SceneInfo(keyword);
    records.add(brought);
    EXPECT_EQ(records.metadata(keyword, keyword), brought);
}
