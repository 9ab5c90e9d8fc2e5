#include "metadata/PKC_ProjectCompatibility.h"

#include "support/Golden.h"
#include "support/Payloads.h"
#include "support/Records.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <utility>

namespace
{

using Issue = PKC_ProjectCompatibility::CompatiblityIssue_s;

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

Issue issueOf(const char *id, const char *product, const char *version)
{
    return Issue{text(id), text(product), text(version)};
}

/// "id/product/version" of each issue, in order.
std::string issuesOf(const PKC_ProjectCompatibility &compatibility)
{
    QStringList issues;
    for (const Issue &issue : compatibility.compatiblityIssueList())
        issues += QStringList({issue.id, issue.product, issue.version}).join(QLatin1Char('/'));
    return issues.join(QLatin1Char(' ')).toStdString();
}

PKC_ProjectCompatibility threeIssues()
{
    PKC_ProjectCompatibility compatibility(text("inside"), text("elsewhere"), text("0.7"));
    compatibility.addCompatibilityIssue(issueOf("b", "%1", "2"));
    compatibility.addCompatibilityIssue(issueOf("b", "%1", "10"));
    compatibility.addCompatibilityIssue(issueOf("B", "<z>", "3"));
    return compatibility;
}

const std::string allIssues = "B/<z>/3 b/%1/10 b/%1/2";

} // namespace

TEST(ProjectCompatibility, StartsEmptyAndIsAlwaysValid)
{
    const PKC_ProjectCompatibility compatibility;
    EXPECT_EQ(textsOf(compatibility), "projectCompatibilityIssue '' 'plotka-tests' '1.0'");
    EXPECT_EQ(PKC_ProjectCompatibility::kPIO_PKMETA_Keyword, text("projectCompatibilityIssue"));
    EXPECT_EQ(PKC_ProjectCompatibility::kPIO_PKMETA_Version, text("1.0"));
    EXPECT_TRUE(compatibility.isValid());
    EXPECT_TRUE(threeIssues().isValid());
    EXPECT_TRUE(compatibility.compatiblityIssueList().empty());
}

TEST(ProjectCompatibility, OrdersIssuesByIdThenProductThenVersion)
{
    const Issue issue = issueOf("b", "b", "b");
    for (const Issue &less : {issueOf("a", "c", "c"), issueOf("b", "a", "c"), issueOf("b", "b", "a"),
             issueOf("B", "c", "c"), issueOf("b", "B", "c"), issueOf("b", "b", "B")}) {
        EXPECT_TRUE(less < issue);
        EXPECT_FALSE(issue < less);
    }
    EXPECT_FALSE(issue < issueOf("b", "b", "b"));
}

TEST(ProjectCompatibility, AddsAnIssueOnce)
{
    PKC_ProjectCompatibility compatibility = threeIssues();
    compatibility.addCompatibilityIssue(issueOf("b", "%1", "2"));
    EXPECT_EQ(issuesOf(compatibility), allIssues);
    compatibility.addCompatibilityIssue(std::set<Issue>{issueOf("b", "%1", "2"), issueOf("a", "p", "v")});
    EXPECT_EQ(issuesOf(compatibility), "B/<z>/3 a/p/v b/%1/10 b/%1/2");
    compatibility.addCompatibilityIssue(compatibility.compatiblityIssueList());
    compatibility.addCompatibilityIssue(*compatibility.compatiblityIssueList().begin());
    EXPECT_EQ(issuesOf(compatibility), "B/<z>/3 a/p/v b/%1/10 b/%1/2");
    compatibility.compatiblityIssueList().erase(issueOf("a", "p", "v"));
    EXPECT_EQ(std::as_const(compatibility).compatiblityIssueList().size(), 3U);
    compatibility.clear();
    EXPECT_EQ(issuesOf(compatibility), "");
}

TEST(ProjectCompatibility, CopiesEveryField)
{
    PKC_ProjectCompatibility compatibility = threeIssues();
    const PKC_ProjectCompatibility copied(compatibility);
    PKC_ProjectCompatibility assigned;
    assigned.addCompatibilityIssue(issueOf("old", "", ""));
    assigned = compatibility;
    const PKC_ProjectCompatibility &self = assigned;
    assigned = self;
    const auto clone = cloneOf(compatibility);
    ASSERT_TRUE(clone);
    compatibility.clear();
    for (const PKC_ProjectCompatibility &copy : {copied, assigned, *clone}) {
        EXPECT_EQ(textsOf(copy), "projectCompatibilityIssue 'inside' 'elsewhere' '0.7'");
        EXPECT_EQ(issuesOf(copy), allIssues);
    }
}

TEST(ProjectCompatibility, WritesItsElementAlsoWhenEmpty)
{
    expectGolden("project_compatibility.xml", markupOf(PKC_ProjectCompatibility()) + markupOf(threeIssues()));
}

// Files in use count on it: every other load gives what was meant.
TEST(ProjectCompatibility, ExchangesProductAndVersionAtEachLoad)
{
    const auto once = as<PKC_ProjectCompatibility>(readBack(threeIssues()));
    ASSERT_TRUE(once);
    EXPECT_EQ(issuesOf(*once), "B/3/<z> b/10/%1 b/2/%1");
    const auto twice = as<PKC_ProjectCompatibility>(readBack(*once));
    ASSERT_TRUE(twice);
    EXPECT_EQ(issuesOf(*twice), allIssues);
    EXPECT_EQ(markupOf(*twice), markupOf(threeIssues()));
}

TEST(ProjectCompatibility, DumpsItsIssuesForDebugging)
{
    QString base;
    threeIssues().PIO_Metadata::dumpToString(base);
    EXPECT_EQ(dumpOf(threeIssues()),
        base.toStdString()
            + "id: B, product: <z>, version: 3\nid: b, product: %1, version: 10\nid: b, product: %1, version: 2\n");
    QString emptyBase;
    PKC_ProjectCompatibility().PIO_Metadata::dumpToString(emptyBase);
    EXPECT_EQ(dumpOf(PKC_ProjectCompatibility()), emptyBase.toStdString());
}

TEST(ProjectCompatibility, ReadsMissingTextsAsEmpty)
{
    PKC_ProjectCompatibility compatibility;
    readPayload(compatibility,
        text("<projectCompatibilityIssue><CompatibilityIssue id='i'/><CompatibilityIssue product='p'/>"
             "<CompatibilityIssue version='v'/><CompatibilityIssue id='' product='' version=''/>"
             "<CompatibilityIssue/></projectCompatibilityIssue>"));
    EXPECT_EQ(issuesOf(compatibility), "// //p /v/ i//");
}

TEST(ProjectCompatibility, ReadsOnWhateverCloses)
{
    PKC_ProjectCompatibility compatibility;
    readPayload(compatibility,
        text("<other id='x'/><projectCompatibilityIssue id='x'><x><CompatibilityIssue id='a'/></x>"
             "<compatibilityIssue id='x'/></projectCompatibilityIssue><CompatibilityIssue id='b'/>"));
    EXPECT_EQ(issuesOf(compatibility), "a// b//");
}

TEST(ProjectCompatibility, KeepsAForeignCreatorAndAnOlderVersion)
{
    const auto compatibility = loaded<PKC_ProjectCompatibility>(text("<CompatibilityIssue id='a'/>"));
    ASSERT_TRUE(compatibility);
    EXPECT_EQ(textsOf(*compatibility), "projectCompatibilityIssue 'inside' 'elsewhere' '0.7'");
    EXPECT_EQ(textsOf(*cloneOf(*compatibility)), textsOf(*compatibility));
    EXPECT_EQ(issuesOf(*compatibility), "a//");
}
