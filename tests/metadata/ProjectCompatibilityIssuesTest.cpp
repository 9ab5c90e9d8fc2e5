#include "metadata/PKC_ProjectCompatibilityIssues.h"

#include "support/Storyboard.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <cstdlib>
#include <type_traits>

namespace
{

using CompatibilityIssue = PKC_ProjectCompatibility::CompatiblityIssue_s;

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/// Says whether a project has it, and that it was deleted. The registry outlives a test: what is left
/// there says no.
class TestIssue : public PKC_ProjectCompatibilityIssues::Issue
{
public:
    TestIssue(const char *id, const bool &found, int *deletions = nullptr) :
        m_id(text(id)), m_found(found), m_deletions(deletions)
    {
    }
    ~TestIssue() override
    {
        if (m_deletions)
            ++*m_deletions;
    }

    QString id() const override { return m_id; }
    QString product() const override { return text("test product"); }
    QString version() const override { return text("0.1"); }
    bool isIn(PKC_PlotkaProject *) const override { return m_found; }

private:
    QString m_id;
    const bool &m_found;
    int *m_deletions;
};

const bool never = false;
const bool always = true;
bool now = false;

/// A registry apart from the one that is asked.
class OwnRegistry : public PKC_ProjectCompatibilityIssues
{
};

bool knows(const char *id)
{
    return !PKC_ProjectCompatibilityIssues::hasUnknowsIssue({{text(id), QString(), QString()}});
}

bool registerBeforeMain()
{
    PKC_ProjectCompatibilityIssues::registerIssue(new TestIssue("before main", never));
    return knows("before main") && knows("space-between-panels");
}

const bool worksBeforeMain = registerBeforeMain();

std::string found(PKC_PlotkaProject *project)
{
    QStringList issues;
    for (const CompatibilityIssue &issue : PKC_ProjectCompatibilityIssues::analyseProject(project))
        issues += QStringList({issue.id, issue.product, issue.version}).join(QLatin1Char('/'));
    return issues.join(QLatin1Char(' ')).toStdString();
}

std::string foundIn(const char *notation)
{
    const Storyboard board(notation);
    return found(&board.project());
}

const std::string space = "space-between-panels/Plotka Pro/7.0.0";

/// Ends the process, with 0 when the issue that is always there was replaced by another.
[[noreturn]] void replaceTheBuiltInIssue()
{
    int deletions = 0;
    auto *const other = new TestIssue("space-between-panels", always, &deletions);
    PKC_ProjectCompatibilityIssues::registerIssue(other);
    PKC_ProjectCompatibilityIssues::registerIssue(other);
    const bool replaced = deletions == 0 && found(nullptr) == "space-between-panels/test product/0.1";
    PKC_ProjectCompatibilityIssues::registerIssue(new TestIssue("space-between-panels", never));
    std::_Exit(replaced && deletions == 1 && found(nullptr).empty() ? 0 : 1);
}

} // namespace

TEST(ProjectCompatibilityIssues, FindSpaceBeforeTheFirstPanel)
{
    EXPECT_EQ(foundIn("-1- A(10)"), space);
    EXPECT_EQ(foundIn("-100- A(10) B(10)"), space);
    EXPECT_EQ(foundIn("A(-3,10)"), space);
    EXPECT_EQ(foundIn("A(10)"), "");
}

TEST(ProjectCompatibilityIssues, FindSpaceBetweenPanels)
{
    EXPECT_EQ(foundIn("A(10) B(10)"), "");
    EXPECT_EQ(foundIn("A(10,4,6) B(1) C(1,1)"), "");
    EXPECT_EQ(foundIn("A(10) -1- B(10)"), space);
    EXPECT_EQ(foundIn("A(10) B(10) C(3) -50- D(1)"), space);
    EXPECT_EQ(foundIn("A(10,-2,6)"), space);
}

TEST(ProjectCompatibilityIssues, FindNoSpaceWherePanelsOverlapOrThereAreNone)
{
    EXPECT_EQ(foundIn("A(20) ~2+3~ B(10)"), "");
    EXPECT_EQ(foundIn("A(20) ~2+3~ B(10) -1- C(5)"), space);
    EXPECT_EQ(foundIn(""), "");
    EXPECT_EQ(found(nullptr), "");
}

// A gap that reaches the end of a shot ends a walk by panels, and what comes after is not seen.
TEST(ProjectCompatibilityIssues, MissSpaceAtTheEndOfAShot)
{
    EXPECT_EQ(foundIn("A(10,-5) B(10)"), "");
    EXPECT_EQ(foundIn("A(10,-5) B(10) -9- C(10)"), "");
    EXPECT_EQ(foundIn("A(10) -1- B(10,-5) C(10)"), space);
}

TEST(ProjectCompatibilityIssues, FollowAnEdit)
{
    Storyboard board("A(10) B(10)");
    EXPECT_EQ(found(&board.project()), "");
    ASSERT_TRUE(board.moveShots(1, 1));
    board.notify();
    EXPECT_EQ(found(&board.project()), space);
}

TEST(ProjectCompatibilityIssues, AskEveryRegisteredIssueInOrderOfIds)
{
    PKC_ProjectCompatibilityIssues::registerIssue(new TestIssue("zz test", now));
    PKC_ProjectCompatibilityIssues::registerIssue(new TestIssue("a test", now));
    PKC_ProjectCompatibilityIssues::registerIssue(nullptr);
    EXPECT_EQ(found(nullptr), "");
    now = true;
    EXPECT_EQ(found(nullptr), "a test/test product/0.1 zz test/test product/0.1");
    EXPECT_EQ(foundIn("-1- A(10)"), "a test/test product/0.1 " + space + " zz test/test product/0.1");
    now = false;
}

TEST(ProjectCompatibilityIssues, ReplaceAnIssueOfTheSameId)
{
    int deletions = 0;
    auto *first = new TestIssue("replaced", never, &deletions);
    PKC_ProjectCompatibilityIssues::registerIssue(first);
    PKC_ProjectCompatibilityIssues::registerIssue(first);
    EXPECT_EQ(deletions, 0);
    PKC_ProjectCompatibilityIssues::registerIssue(new TestIssue("replaced", now));
    EXPECT_EQ(deletions, 1);
    now = true;
    EXPECT_NE(found(nullptr).find("replaced/"), std::string::npos);
    now = false;
}

TEST(ProjectCompatibilityIssues, MayReplaceThemselvesWhileAProjectIsAnalysed)
{
    int deletions = 0;
    bool isAsked = true;
    class Replacing : public TestIssue
    {
    public:
        Replacing(const bool &found, int &deletions) : TestIssue("replacing itself", found, &deletions) {}
        bool isIn(PKC_PlotkaProject *project) const override
        {
            PKC_ProjectCompatibilityIssues::registerIssue(new TestIssue("replacing itself", never));
            PKC_ProjectCompatibilityIssues::registerIssue(new TestIssue("zz registered meanwhile", never));
            return TestIssue::isIn(project);
        }
    };
    PKC_ProjectCompatibilityIssues::registerIssue(new Replacing(isAsked, deletions));
    EXPECT_EQ(found(nullptr), "replacing itself/test product/0.1");
    EXPECT_EQ(deletions, 1);
    EXPECT_EQ(found(nullptr), "");
    EXPECT_TRUE(knows("zz registered meanwhile"));
}

TEST(ProjectCompatibilityIssues, KnowIssuesByTheirIdAlone)
{
    const auto hasUnknown = PKC_ProjectCompatibilityIssues::hasUnknowsIssue;
    EXPECT_FALSE(hasUnknown({}));
    EXPECT_FALSE(hasUnknown({{text("space-between-panels"), text("other"), text("1")}}));
    EXPECT_TRUE(hasUnknown({{text("Space-between-panels"), text("Plotka Pro"), text("7.0.0")}}));
    EXPECT_TRUE(hasUnknown({{text("space-between-panels"), QString(), QString()}, {QString(), QString(), QString()}}));
    EXPECT_TRUE(hasUnknown({{text("known later"), QString(), QString()}}));
    PKC_ProjectCompatibilityIssues::registerIssue(new TestIssue("known later", never));
    EXPECT_FALSE(hasUnknown({{text("known later"), QString(), QString()}}));
}

// In a process of its own: other tests need the issue.
TEST(ProjectCompatibilityIssuesDeathTest, ReplaceTheIssueThatIsAlwaysThere)
{
    EXPECT_EXIT(replaceTheBuiltInIssue(), testing::ExitedWithCode(0), "");
    EXPECT_EQ(foundIn("-1- A(10)"), space);
}

TEST(ProjectCompatibilityIssues, AreThereBeforeMain)
{
    EXPECT_TRUE(worksBeforeMain);
    EXPECT_TRUE(knows("before main"));
}

// The check for leaks tells of an issue that would be made for it and lost.
TEST(ProjectCompatibilityIssues, BelongToTheOneRegistry)
{
    {
        const OwnRegistry own;
    }
    EXPECT_TRUE(knows("space-between-panels"));
    EXPECT_EQ(foundIn("-1- A(10)"), space);
}

TEST(ProjectCompatibilityIssues, AreOneRegistry)
{
    EXPECT_FALSE(std::is_default_constructible_v<PKC_ProjectCompatibilityIssues>);
    EXPECT_FALSE(std::is_copy_constructible_v<PKC_ProjectCompatibilityIssues>);
    EXPECT_TRUE(std::has_virtual_destructor_v<PKC_ProjectCompatibilityIssues>);
    EXPECT_TRUE(std::has_virtual_destructor_v<PKC_ProjectCompatibilityIssues::Issue>);
    EXPECT_TRUE(std::is_abstract_v<PKC_ProjectCompatibilityIssues::Issue>);
}
