#include "metadata/PKC_ClipInfo.h"

#include "scene/metadata/PIO_ComponentReader.h"
#include "scene/metadata/PIO_MetadataAccess.h"
#include "support/Golden.h"
#include "support/Payloads.h"
#include "support/Records.h"

#include <QXmlAttributes>

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

namespace
{

/// A record in which no field has its default.
PKC_ClipInfo fullInfo()
{
    PKC_ClipInfo info(QStringLiteral("inside"), QStringLiteral("elsewhere"), QStringLiteral("0.7"));
    info.name().setValue(QStringLiteral("Panel %1 & <1>"));
    info.name().setFlag(3);
    info.setExportFlag(7);
    info.setColorIsValid(true);
    info.setColor(QColor(1, 2, 255));
    info.linkVideoClip(SC_Id(11));
    info.linkVideoClip(SC_Id(12));
    info.linkAudioClip(SC_Id(21));
    return info;
}

void expectFullInfo(const PKC_ClipInfo &info)
{
    EXPECT_EQ(info.metaType(), QStringLiteral("panelInfo"));
    EXPECT_EQ(info.metaName(), QStringLiteral("inside"));
    EXPECT_EQ(info.creator(), QStringLiteral("elsewhere"));
    EXPECT_EQ(info.version(), QStringLiteral("0.7"));
    EXPECT_EQ(info.name().value(), QStringLiteral("Panel %1 & <1>"));
    EXPECT_EQ(info.name().flag(), 3);
    EXPECT_EQ(info.exportFlag(), 7);
    EXPECT_TRUE(info.colorIsValid());
    EXPECT_EQ(info.color(), QColor(1, 2, 255));
    EXPECT_EQ(info.linkedVideoClips(), (std::vector<SC_Id>{SC_Id(11), SC_Id(12)}));
    EXPECT_EQ(info.linkedAudioClips(), std::vector<SC_Id>{SC_Id(21)});
}

/// The record after its reader met `<panelInfo ATTRIBUTES/>`.
PKC_ClipInfo readFrom(const QString &attributes, PKC_ClipInfo info = PKC_ClipInfo())
{
    readPayload(info, QStringLiteral("<panelInfo %1/>").arg(attributes));
    return info;
}

std::vector<SC_Id> ids(std::initializer_list<qint64> values)
{
    std::vector<SC_Id> result;
    for (const qint64 value : values)
        result.emplace_back(value);
    return result;
}

} // namespace

TEST(ClipInfo, ReadsEachAttributeByItself)
{
    const QList<std::pair<QString, QString>> all{{QStringLiteral("name"), QStringLiteral("n")},
        {QStringLiteral("nameFlag"), QStringLiteral("3")}, {QStringLiteral("exportFlag"), QStringLiteral("7")},
        {QStringLiteral("colorIsValid"), QStringLiteral("true")},
        {QStringLiteral("color"), QStringLiteral("#ff010203")},
        {QStringLiteral("linkedAudioClip"), QStringLiteral("21")},
        {QStringLiteral("linkedVideoClip"), QStringLiteral("11")}};
    for (const auto &missing : all) {
        QString attributes;
        for (const auto &attribute : all) {
            if (attribute != missing)
                attributes += QStringLiteral("%1='%2' ").arg(attribute.first, attribute.second);
        }
        const PKC_ClipInfo info = readFrom(attributes);
        const auto isRead = [&](int index) { return all[index] != missing; };
        const std::string what = missing.first.toStdString();
        EXPECT_EQ(info.name().value(), isRead(0) ? QStringLiteral("n") : QString()) << what;
        EXPECT_EQ(info.name().flag(), isRead(1) ? 3 : 0) << what;
        EXPECT_EQ(info.exportFlag(), isRead(2) ? 7 : 0) << what;
        EXPECT_EQ(info.colorIsValid(), isRead(3)) << what;
        EXPECT_EQ(info.color(), isRead(4) ? QColor(1, 2, 3) : QColor()) << what;
        EXPECT_EQ(info.linkedAudioClips(), isRead(5) ? ids({21}) : ids({})) << what;
        EXPECT_EQ(info.linkedVideoClips(), isRead(6) ? ids({11}) : ids({})) << what;
    }
}

TEST(ClipInfo, StartsAutomaticWithExportFlag13AndNoColour)
{
    const PKC_ClipInfo info;
    EXPECT_EQ(info.metaType(), QStringLiteral("panelInfo"));
    EXPECT_EQ(info.metaType(), PKC_ClipInfo::kPIO_PKMETA_Keyword);
    EXPECT_TRUE(info.metaName().isEmpty());
    EXPECT_EQ(info.creator(), QStringLiteral("plotka-tests"));
    EXPECT_EQ(info.version(), QStringLiteral("1.0"));
    EXPECT_EQ(info.version(), PKC_ClipInfo::kPIO_PKMETA_Version);
    EXPECT_TRUE(info.name().value().isEmpty());
    EXPECT_EQ(info.name().flag(), 0);
    EXPECT_EQ(info.exportFlag(), 13);
    EXPECT_FALSE(info.colorIsValid());
    EXPECT_FALSE(info.color().isValid());
    EXPECT_TRUE(info.linkedVideoClips().empty());
    EXPECT_TRUE(info.linkedAudioClips().empty());
    EXPECT_EQ(PKC_ClipInfo(QStringLiteral("n")).metaName(), QStringLiteral("n"));
}

TEST(ClipInfo, SharesAnAbstractBaseWithOtherNamedRecords)
{
    EXPECT_TRUE(std::is_abstract_v<PKC_ObjInfo>);
    EXPECT_TRUE((std::is_base_of_v<PIO_Metadata, PKC_ObjInfo>));
    EXPECT_TRUE((std::is_base_of_v<PKC_ObjInfo, PKC_ClipInfo>));
}

TEST(ClipInfo, IsValidUnlessACustomNameHasNoText)
{
    PKC_ClipInfo info;
    EXPECT_TRUE(info.isValid());
    info.name().setFlag(2);
    EXPECT_FALSE(info.isValid());
    info.name().setFlag(3);
    EXPECT_FALSE(info.isValid());
    info.name().setFlag(1);
    EXPECT_TRUE(info.isValid());
    info.name().setFlag(2);
    info.name().setValue(QStringLiteral("x"));
    EXPECT_TRUE(info.isValid());
}

TEST(ClipInfo, GivesTheOldExportFlagWhenANewOneIsSet)
{
    PKC_ClipInfo info;
    EXPECT_EQ(info.setExportFlag(-1), 13);
    EXPECT_EQ(info.setExportFlag(0), -1);
    EXPECT_EQ(info.exportFlag(), 0);
}

TEST(ClipInfo, KeepsColourAndItsUseApart)
{
    PKC_ClipInfo info;
    info.setColor(Qt::red);
    EXPECT_FALSE(info.colorIsValid());
    info.setColorIsValid(true);
    info.setColor(QColor());
    EXPECT_TRUE(info.colorIsValid());
    EXPECT_FALSE(info.color().isValid());
}

TEST(ClipInfo, LinksAClipOncePerList)
{
    PKC_ClipInfo info;
    EXPECT_TRUE(info.linkVideoClip(SC_Id(5)));
    EXPECT_FALSE(info.linkVideoClip(SC_Id(5)));
    EXPECT_TRUE(info.linkAudioClip(SC_Id(5)));
    EXPECT_FALSE(info.linkAudioClip(SC_Id(5)));
    EXPECT_TRUE(info.linkVideoClip(SC_Id(3)));
    EXPECT_EQ(info.linkedVideoClips(), ids({5, 3}));
    EXPECT_EQ(info.linkedAudioClips(), ids({5}));
}

TEST(ClipInfo, UnlinksAndKeepsTheOrderOfTheOthers)
{
    PKC_ClipInfo info;
    for (const qint64 id : {4, 2, 9}) {
        info.linkVideoClip(SC_Id(id));
        info.linkAudioClip(SC_Id(-id));
    }
    EXPECT_TRUE(info.unlinkVideoClip(SC_Id(2)));
    EXPECT_FALSE(info.unlinkVideoClip(SC_Id(2)));
    EXPECT_FALSE(info.unlinkVideoClip(SC_Id(-4)));
    EXPECT_EQ(info.linkedVideoClips(), ids({4, 9}));
    EXPECT_TRUE(info.unlinkAudioClip(SC_Id(-4)));
    EXPECT_FALSE(info.unlinkAudioClip(SC_Id(4)));
    EXPECT_EQ(info.linkedAudioClips(), ids({-2, -9}));
}

TEST(ClipInfo, FindsALinkInEitherList)
{
    PKC_ClipInfo info;
    info.linkVideoClip(SC_Id(1));
    info.linkAudioClip(SC_Id(2));
    EXPECT_TRUE(info.isLinkedToClip(SC_Id(1)));
    EXPECT_TRUE(info.isLinkedToClip(SC_Id(2)));
    EXPECT_FALSE(info.isLinkedToClip(SC_Id(3)));
    info.clearLinkedClips();
    EXPECT_FALSE(info.isLinkedToClip(SC_Id(1)));
    EXPECT_FALSE(info.isLinkedToClip(SC_Id(2)));
}

TEST(ClipInfo, GivesCopiesOfItsLists)
{
    PKC_ClipInfo info;
    info.linkVideoClip(SC_Id(1));
    info.linkAudioClip(SC_Id(2));
    const std::vector<SC_Id> video = info.linkedVideoClips();
    const std::vector<SC_Id> audio = info.linkedAudioClips();
    info.clearLinkedClips();
    EXPECT_EQ(video, ids({1}));
    EXPECT_EQ(audio, ids({2}));
}

TEST(ClipInfo, CopiesEveryField)
{
    const PKC_ClipInfo info = fullInfo();
    expectFullInfo(info);
    expectFullInfo(PKC_ClipInfo(info));
    PKC_ClipInfo assigned;
    assigned.linkAudioClip(SC_Id(99));
    assigned = info;
    expectFullInfo(assigned);
    const PKC_ClipInfo &self = assigned;
    assigned = self;
    expectFullInfo(assigned);
    const auto clone = cloneOf(info);
    ASSERT_TRUE(clone);
    expectFullInfo(*clone);
}

TEST(ClipInfo, ClonesIndependently)
{
    PKC_ClipInfo info = fullInfo();
    const auto clone = cloneOf(info);
    info.name().setValue(QString());
    info.clearLinkedClips();
    info.setColor(Qt::black);
    expectFullInfo(*clone);
}

TEST(ClipInfo, WritesItsAttributesInOrder)
{
    expectGolden("clip_info.xml", markupOf(PKC_ClipInfo()) + markupOf(fullInfo()));
}

TEST(ClipInfo, ReadsBackWhatItWrote)
{
    PKC_ClipInfo info = fullInfo();
    info.name().setValue(QStringLiteral("Zażółć \"gęślą\"\n\tjaźń"));
    info.setExportFlag(std::numeric_limits<int>::min());
    const std::string markup = markupOf(info);
    PKC_ClipInfo again(QStringLiteral("inside"), QStringLiteral("elsewhere"), QStringLiteral("0.7"));
    const QString text = QString::fromStdString(markup);
    const qsizetype from = text.indexOf(QStringLiteral("<panelInfo"));
    readPayload(again, text.mid(from, text.indexOf(QStringLiteral("/>")) + 2 - from));
    EXPECT_EQ(markupOf(again), markup);
}

TEST(ClipInfo, WritesNoEmptyList)
{
    PKC_ClipInfo info;
    EXPECT_EQ(markupOf(info).find("linked"), std::string::npos);
    info.linkVideoClip(SC_Id(1));
    EXPECT_EQ(markupOf(info).find("linkedAudioClip"), std::string::npos);
    EXPECT_NE(markupOf(info).find("linkedVideoClip=\"1\""), std::string::npos);
}

TEST(ClipInfo, DumpsItsFieldsForDebugging)
{
    std::string base;
    {
        QString text;
        fullInfo().PIO_Metadata::dumpToString(text);
        base = text.toStdString();
    }
    EXPECT_EQ(dumpOf(fullInfo()),
        base
            + "name=Panel %1 & <1>, nameFlag=3, exportFlag=7,colorIsValid=true,color=#0102ff,linkedAudioClip=21,"
              "linkedVideoClip=11,12,");
    QString text = QStringLiteral("before ");
    PKC_ClipInfo().dumpToString(text);
    EXPECT_TRUE(text.startsWith(QStringLiteral("before ")));
    EXPECT_TRUE(text.endsWith(QStringLiteral("name=, nameFlag=0, exportFlag=13,colorIsValid=false,color=#000000,")));
}

TEST(ClipInfo, ReadsNothingAsZeroAndEmpty)
{
    const PKC_ClipInfo info = readFrom(QString(), fullInfo());
    EXPECT_TRUE(info.name().value().isNull());
    EXPECT_EQ(info.name().flag(), 0);
    EXPECT_EQ(info.exportFlag(), 0);
    EXPECT_FALSE(info.colorIsValid());
    EXPECT_EQ(info.color(), QColor(1, 2, 255));
    EXPECT_EQ(info.linkedVideoClips(), ids({11, 12}));
    EXPECT_EQ(info.linkedAudioClips(), ids({21}));
}

TEST(ClipInfo, TakesTheNameAsItStands)
{
    EXPECT_TRUE(readFrom(QString()).name().value().isEmpty());
    EXPECT_TRUE(readFrom(QStringLiteral("name=''")).name().value().isEmpty());
    EXPECT_EQ(readFrom(QStringLiteral("name=' a &amp; %1 '")).name().value(), QStringLiteral(" a & %1 "));
}

TEST(ClipInfo, ReadsABadFlagAsZero)
{
    for (const char *bad : {"", "x", "7x", "0x7", "1.5", "4294967296", "--1"}) {
        const QString text = QString::fromLatin1(bad);
        const PKC_ClipInfo info = readFrom(QStringLiteral("nameFlag='%1' exportFlag='%1'").arg(text), fullInfo());
        EXPECT_EQ(info.name().flag(), 0) << bad;
        EXPECT_EQ(info.exportFlag(), 0) << bad;
    }
    const PKC_ClipInfo info = readFrom(QStringLiteral("nameFlag='-2147483648' exportFlag='2147483647'"));
    EXPECT_EQ(info.name().flag(), std::numeric_limits<int>::min());
    EXPECT_EQ(info.exportFlag(), std::numeric_limits<int>::max());
}

TEST(ClipInfo, UsesTheColourOnlyOnExactlyTrue)
{
    EXPECT_TRUE(readFrom(QStringLiteral("colorIsValid='true'")).colorIsValid());
    for (const char *other : {"", "false", "TRUE", "True", "1", " true", "yes"}) {
        const QString attribute = QStringLiteral("colorIsValid='%1'").arg(QString::fromLatin1(other));
        EXPECT_FALSE(readFrom(attribute, fullInfo()).colorIsValid()) << other;
    }
}

TEST(ClipInfo, KeepsItsColourWhenTheAttributeIsBad)
{
    for (const char *bad : {"", "red", "#0102ff", "#zz0102ff", "ff0102ff", "#ff0102ff0"}) {
        const PKC_ClipInfo info =
            readFrom(QStringLiteral("colorIsValid='false' color='%1'").arg(QString::fromLatin1(bad)), fullInfo());
        EXPECT_EQ(info.color(), QColor(1, 2, 255)) << bad;
        EXPECT_FALSE(info.colorIsValid()) << bad;
        EXPECT_FALSE(readFrom(QStringLiteral("color='%1'").arg(QString::fromLatin1(bad))).color().isValid()) << bad;
    }
    const PKC_ClipInfo info = readFrom(QStringLiteral("color='#FF0a0B0c'"), fullInfo());
    EXPECT_EQ(info.color(), QColor(10, 11, 12));
    EXPECT_FALSE(info.colorIsValid());
    EXPECT_EQ(readFrom(QStringLiteral("color='#000a0b0c'")).color(), QColor(10, 11, 12));
}

TEST(ClipInfo, ReadsAnUnsetColourBackAsBlack)
{
    const PKC_ClipInfo info = readFrom(QStringLiteral("color='#ff000000'"));
    EXPECT_EQ(info.color(), QColor(Qt::black));
    EXPECT_NE(markupOf(PKC_ClipInfo()).find("color=\"#ff000000\""), std::string::npos);
}

TEST(ClipInfo, MergesLinksIntoThoseItHolds)
{
    const PKC_ClipInfo info =
        readFrom(QStringLiteral("linkedVideoClip='12,7,7,11' linkedAudioClip='-9223372036854775808,21,5'"), fullInfo());
    EXPECT_EQ(info.linkedVideoClips(), ids({11, 12, 7}));
    EXPECT_EQ(info.linkedAudioClips(), ids({21, std::numeric_limits<qint64>::min(), 5}));
}

TEST(ClipInfo, LeavesItsLinksOnAnEmptyAttribute)
{
    const PKC_ClipInfo info = readFrom(QStringLiteral("linkedVideoClip='' linkedAudioClip=''"), fullInfo());
    EXPECT_EQ(info.linkedVideoClips(), ids({11, 12}));
    EXPECT_EQ(info.linkedAudioClips(), ids({21}));
}

TEST(ClipInfo, ReadsABadLinkAsTheNullId)
{
    const PKC_ClipInfo info =
        readFrom(QStringLiteral("linkedVideoClip='3,x,,4,9223372036854775808' linkedAudioClip=','"));
    EXPECT_EQ(info.linkedVideoClips(), ids({3, 0, 4}));
    EXPECT_EQ(info.linkedAudioClips(), ids({0}));
}

TEST(ClipInfo, ReadsAVeryLongListInReasonableTime)
{
    QStringList parts;
    for (int i = 1; i <= 200000; ++i)
        parts += QString::number(i);
    const PKC_ClipInfo info = readFrom(QStringLiteral("linkedVideoClip='%1,1,2,3'").arg(parts.join(QLatin1Char(','))));
    EXPECT_EQ(info.linkedVideoClips().size(), 200000U);
}

TEST(ClipInfo, SkipsElementsItDoesNotKnow)
{
    PKC_ClipInfo info;
    readPayload(info,
        QStringLiteral("<sceneInfo name='no'><PanelInfo name='no'><panelInfo name='yes'/></PanelInfo></sceneInfo>"));
    EXPECT_EQ(info.name().value(), QStringLiteral("yes"));
    PKC_ClipInfo untouched = fullInfo();
    readPayload(untouched, QStringLiteral("<panelinfo name='no'/>"));
    expectFullInfo(untouched);
}

TEST(ClipInfo, StopsReadingAtTheFirstClosingElement)
{
    PKC_ClipInfo info = fullInfo();
    readPayload(info, QStringLiteral("<other/><panelInfo name='late'/>"));
    expectFullInfo(info);
    readPayload(
        info, QStringLiteral("<panelInfo name='first'><panelInfo name='second'/><panelInfo name='late'/></panelInfo>"));
    EXPECT_EQ(info.name().value(), QStringLiteral("second"));
}

TEST(ClipInfo, GivesAReaderThatServesItsWholePayload)
{
    PKC_ClipInfo info;
    const UT_SharedPtr<PIO_XML::ComponentReader> reader(info.componentReader());
    const UT_SharedPtr<PIO_XML::ComponentReader> another(info.componentReader());
    EXPECT_NE(reader, another);
    EXPECT_EQ(reader->refCount, 1);
    {
        const auto children = reader->startElement(QString(), QStringLiteral("anything"), QXmlAttributes());
        EXPECT_EQ(children, reader);
        EXPECT_EQ(reader->refCount, 2);
    }
    EXPECT_TRUE(reader->endElement(QString(), QStringLiteral("anything")));
    EXPECT_TRUE(reader->endElement(QString(), QString()));
    EXPECT_EQ(reader->startElement(QString(), QStringLiteral("panelInfo"), QXmlAttributes()), reader);
    EXPECT_EQ(info.exportFlag(), 13);
}

TEST(ClipInfo, IsReachedThroughAnAccess)
{
    PIO_MetadataAccess<PKC_ClipInfo> nowhere(nullptr, QString());
    EXPECT_EQ(nowhere.get(), nullptr);
    EXPECT_EQ(nowhere.getOrCreate(), nullptr);

    PIO_Metadatas records;
    PIO_MetadataAccess<PKC_ClipInfo> access(&records, QString());
    EXPECT_EQ(access.get(), nullptr);
    EXPECT_EQ(records.begin(), records.end());
    auto *named = new PKC_ClipInfo(QStringLiteral("named"));
    records.add(new PlainRecord);
    records.add(named);
    EXPECT_EQ(access.get(), named);
    PIO_MetadataAccess<PKC_ClipInfo> byEmptyName(&records, QStringLiteral(""));
    EXPECT_EQ(byEmptyName.get(), nullptr);
    PKC_ClipInfo *made = byEmptyName.getOrCreate();
    ASSERT_NE(made, nullptr);
    EXPECT_NE(made, named);
    EXPECT_TRUE(records.contains(made));
    EXPECT_EQ(made->exportFlag(), 13);
}
