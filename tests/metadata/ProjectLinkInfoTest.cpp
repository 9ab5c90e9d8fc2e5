#include "metadata/PKC_ProjectLinkInfo.h"

#include "support/Golden.h"
#include "support/Payloads.h"
#include "support/Records.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace
{

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

QDateTime dayOf(int day)
{
    return QDateTime(QDate(2030, 1, day), QTime(12, 0, 1), Qt::UTC);
}

std::string linksOf(const PKC_ProjectLinkInfo &info)
{
    QStringList links;
    for (const auto &[project, date] : info.links())
        links += project + QLatin1Char('@') + date.toString(Qt::ISODate);
    return links.join(QLatin1Char(' ')).toStdString();
}

PKC_ProjectLinkInfo threeLinks()
{
    PKC_ProjectLinkInfo info(text("inside"), text("elsewhere"), text("0.7"));
    info.link(text("b/%1"), dayOf(2));
    info.link(text("a"), QDateTime());
    info.link(text("B & <c>"), dayOf(3));
    return info;
}

const std::string allLinks = "B & <c>@2030-01-03T12:00:01Z a@ b/%1@2030-01-02T12:00:01Z";

} // namespace

TEST(ProjectLinkInfo, StartsEmptyAndIsAlwaysValid)
{
    const PKC_ProjectLinkInfo info;
    EXPECT_EQ(textsOf(info), "projectLinkInfo '' 'plotka-tests' '1.0'");
    EXPECT_EQ(PKC_ProjectLinkInfo::kPIO_PKMETA_Keyword, text("projectLinkInfo"));
    EXPECT_EQ(PKC_ProjectLinkInfo::kPIO_PKMETA_Version, text("1.0"));
    EXPECT_TRUE(info.isValid());
    EXPECT_TRUE(threeLinks().isValid());
    EXPECT_TRUE(info.links().empty());
}

TEST(ProjectLinkInfo, KeepsOneDatePerProject)
{
    PKC_ProjectLinkInfo info = threeLinks();
    EXPECT_EQ(linksOf(info), allLinks);
    info.link(text("a"), dayOf(9));
    EXPECT_EQ(linksOf(info), "B & <c>@2030-01-03T12:00:01Z a@2030-01-09T12:00:01Z b/%1@2030-01-02T12:00:01Z");
}

TEST(ProjectLinkInfo, UnlinksOneOrAll)
{
    PKC_ProjectLinkInfo info = threeLinks();
    info.unlink(text("A"));
    EXPECT_EQ(linksOf(info), allLinks);
    info.unlink(info.links().begin()->first);
    info.unlink(text("a"));
    info.unlink(text("a"));
    EXPECT_EQ(linksOf(info), "b/%1@2030-01-02T12:00:01Z");
    info.clear();
    EXPECT_EQ(linksOf(info), "");
}

TEST(ProjectLinkInfo, CopiesEveryField)
{
    PKC_ProjectLinkInfo info = threeLinks();
    const PKC_ProjectLinkInfo copied(info);
    PKC_ProjectLinkInfo assigned;
    assigned.link(text("old"), dayOf(1));
    assigned = info;
    const PKC_ProjectLinkInfo &self = assigned;
    assigned = self;
    const auto clone = cloneOf(info);
    ASSERT_TRUE(clone);
    info.clear();
    for (const PKC_ProjectLinkInfo &copy : {copied, assigned, *clone}) {
        EXPECT_EQ(textsOf(copy), "projectLinkInfo 'inside' 'elsewhere' '0.7'");
        EXPECT_EQ(linksOf(copy), allLinks);
    }
}

TEST(ProjectLinkInfo, WritesItsElementAlsoWhenEmpty)
{
    expectGolden("project_link_info.xml", markupOf(PKC_ProjectLinkInfo()) + markupOf(threeLinks()));
}

TEST(ProjectLinkInfo, ReadsBackWhatItWrote)
{
    const auto again = as<PKC_ProjectLinkInfo>(readBack(threeLinks()));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->links(), threeLinks().links());
    EXPECT_EQ(markupOf(*again), markupOf(threeLinks()));
}

TEST(ProjectLinkInfo, WritesADateOutsideTheYearsOfFilesAsNone)
{
    const auto dateOfYear = [](int year) { return QDateTime(QDate(year, 1, 2), QTime(12, 0, 1), Qt::UTC); };
    PKC_ProjectLinkInfo info;
    info.link(text("a"), dateOfYear(10000));
    info.link(text("b"), dateOfYear(-1));
    info.link(text("c"), dateOfYear(9999));
    info.link(text("d"), dateOfYear(1));
    const auto again = as<PKC_ProjectLinkInfo>(readBack(info));
    ASSERT_TRUE(again);
    EXPECT_EQ(linksOf(*again), "a@ b@ c@9999-01-02T12:00:01Z d@0001-01-02T12:00:01Z");
}

TEST(ProjectLinkInfo, DumpsNothing)
{
    EXPECT_EQ(dumpOf(threeLinks()), "");
}

TEST(ProjectLinkInfo, ReadsAMissingOrBadDateAsNone)
{
    for (const char *bad : {"", "date=''", "date='x'", "date='2030-02-30T00:00:00'"}) {
        PKC_ProjectLinkInfo info;
        readPayload(info, QStringLiteral("<projectLinkInfo><link project='p' %1/></projectLinkInfo>").arg(text(bad)));
        EXPECT_EQ(linksOf(info), "p@") << bad;
        EXPECT_FALSE(info.links().begin()->second.isValid()) << bad;
    }
    PKC_ProjectLinkInfo info;
    readPayload(info, text("<link project='p'/>"));
    EXPECT_TRUE(info.links().begin()->second.isNull());
}

TEST(ProjectLinkInfo, ReadsAMissingProjectAsTheEmptyOne)
{
    PKC_ProjectLinkInfo info;
    readPayload(info, text("<link date='2030-01-01T12:00:01Z'/><link project='' date='2030-01-02T12:00:01Z'/>"));
    EXPECT_EQ(linksOf(info), "@2030-01-02T12:00:01Z");
}

TEST(ProjectLinkInfo, ReadsOnWhateverCloses)
{
    PKC_ProjectLinkInfo info = threeLinks();
    readPayload(info,
        text("<other project='x'/><projectLinkInfo project='x'><x><link project='a' date='2030-01-05T12:00:01Z'/></x>"
             "<Link project='x'/></projectLinkInfo><link project='z'/>"));
    EXPECT_EQ(linksOf(info), "B & <c>@2030-01-03T12:00:01Z a@2030-01-05T12:00:01Z b/%1@2030-01-02T12:00:01Z z@");
}

TEST(ProjectLinkInfo, KeepsAForeignCreatorAndAnOlderVersion)
{
    const auto info = loaded<PKC_ProjectLinkInfo>(text("<projectLinkInfo><link project='a'/></projectLinkInfo>"));
    ASSERT_TRUE(info);
    EXPECT_EQ(textsOf(*info), "projectLinkInfo 'inside' 'elsewhere' '0.7'");
    EXPECT_EQ(textsOf(*cloneOf(*info)), textsOf(*info));
    EXPECT_EQ(linksOf(*info), "a@");
}
