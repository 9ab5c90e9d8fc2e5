#include "support/Printers.h"
#include "support/Records.h"
#include "support/Storyboard.h"

#include "metadata/PKC_DeletedPanels.h"
#include "metadata/PKC_ProjectCompatibility.h"
#include "metadata/PKC_ProjectLinkInfo.h"
#include "metadata/PKC_ReferenceToolData.h"
#include "naming/PKC_NamingRules.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "tracking/PKC_SceneChangeManager.h"

#include <QMetaMethod>

#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <iterator>
#include <memory>

using namespace Plotka;

namespace
{

SC_Project *newSceneProject(const char *name)
{
    return new SC_Project(QStringLiteral("/nowhere"), QString::fromLatin1(name));
}

} // namespace

TEST(ProjectContainer, HandsOutWhatItWraps)
{
    Storyboard board("A(4)");
    EXPECT_EQ(board->project(), &board.sceneProject());
    EXPECT_EQ(board->projectCommon(), board.sceneProject().projectCommon());
    EXPECT_EQ(board->changeManager(), board.session().changeManager());
    EXPECT_EQ(board->topScene(), &board.topScene());
    EXPECT_EQ(board->topMainTv(), &board.timeline());
    EXPECT_EQ(board->name(), QStringLiteral("storyboard"));
    EXPECT_EQ(board->parent(), nullptr);
}

TEST(ProjectContainer, AddsItsThreeRecordsWhenMadeAndTheOthersWhenAsked)
{
    Storyboard board("A(24)");
    const PIO_Metadatas &records = *board.sceneProject().metadatas();
    EXPECT_EQ(typesOf(records), "referenceToolData deletedPanels projectLinkInfo");
    const PIO_Metadata *const made[] = {board->referenceToolData(), board->deletedPanels(), board->projectLinkInfo()};
    EXPECT_TRUE(std::equal(std::begin(made), std::end(made), records.begin()));
    const PKC_PlotkaProject &project = board.project();
    PKC_NamingRules *const rules = project.namingRules();
    PKC_ProjectCompatibility *const compatibility = project.projectCompatibility();
    ASSERT_TRUE(rules && compatibility);
    EXPECT_TRUE(rules->metaName().isNull() && compatibility->metaName().isNull());
    EXPECT_EQ(project.namingRules(), rules);
    EXPECT_EQ(project.projectCompatibility(), compatibility);
    EXPECT_EQ(
        typesOf(records), "referenceToolData deletedPanels projectLinkInfo namingRules projectCompatibilityIssue");
    const PKC_PlotkaProject second(&board.sceneProject());
    EXPECT_EQ(second.deletedPanels(), board->deletedPanels());
    EXPECT_EQ(records.end() - records.begin(), 5);
}

TEST(ProjectContainer, HasNoRecordThatWasTakenAway)
{
    Storyboard board("A(24)");
    ASSERT_TRUE(board.sceneProject().metadatas()->remove(board->deletedPanels()));
    EXPECT_EQ(board->deletedPanels(), nullptr);
    EXPECT_NE(board->projectLinkInfo(), nullptr);
}

TEST(ProjectContainer, FollowsTheProjectsNewName)
{
    Storyboard board("A(4)");
    board.sceneProject().projectCommon()->dbSceneData()->setLocation(
        QStringLiteral("/elsewhere"), QStringLiteral("second draft"));
    EXPECT_EQ(board->name(), QStringLiteral("second draft"));
}

TEST(ProjectContainer, SharesInTheOwnershipOfTheSceneProject)
{
    SC_Project *const scenes = newSceneProject("held");
    const UT_SharedWeakPtr<TUScene> top(scenes->addScene());
    auto first = std::make_unique<PKC_PlotkaProject>(scenes);
    auto second = std::make_unique<PKC_PlotkaProject>(scenes);
    EXPECT_EQ(scenes->refCount, 2);
    first.reset();
    EXPECT_EQ(scenes->refCount, 1);
    EXPECT_EQ(second->topScene(), top.get());
    second.reset();
    EXPECT_EQ(top.get(), nullptr);
}

TEST(ProjectContainer, LivesWithoutAChangeManager)
{
    SC_Project *const scenes = newSceneProject("unheard");
    ASSERT_EQ(scenes->projectCommon()->changeManager(), nullptr);
    const PKC_PlotkaProject project(scenes);
    EXPECT_EQ(project.changeManager(), nullptr);
    EXPECT_EQ(project.topScene(), nullptr);
}

TEST(ProjectContainer, HasTwoSlotsAndNoSignals)
{
    const QMetaObject &meta = PKC_PlotkaProject::staticMetaObject;
    EXPECT_STREQ(meta.className(), "PKC_PlotkaProject");
    ASSERT_EQ(meta.methodCount() - meta.methodOffset(), 2);
    const QMetaMethod first = meta.method(meta.methodOffset());
    const QMetaMethod second = meta.method(meta.methodOffset() + 1);
    EXPECT_EQ(first.methodSignature(), QByteArray("onSceneChanged()"));
    EXPECT_EQ(second.methodSignature(), QByteArray("onTimedValuesChanged(TUTvSet)"));
    for (const QMetaMethod &method : {first, second}) {
        EXPECT_EQ(method.methodType(), QMetaMethod::Slot);
        EXPECT_EQ(method.access(), QMetaMethod::Protected);
    }
}

TEST(ProjectContainer, IsNotReachedByNewsOnceItIsGone)
{
    Storyboard board("A(4) B(5)");
    auto second = std::make_unique<PKC_PlotkaProject>(&board.sceneProject());
    EXPECT_EQ(second->panelCount(), 2u);
    second.reset();
    board.addPanel(0, 3);
    board.notify();
    EXPECT_EQ(board->panelCount(), 3u);
}

TEST(SavedPanels, AreThoseOfTheConstructionUntilTheyAreUpdated)
{
    Storyboard board("A(4,5) B(6)");
    for (const SC_Id &id : {board.panelId(0, 0), board.panelId(0, 1), board.panelId(1, 0)})
        EXPECT_FALSE(board->isNewPanelIds(id));
    EXPECT_TRUE(board->isNewPanelIds(board.shotId(0)));
    EXPECT_TRUE(board->isNewPanelIds(SC_Id()));

    board.addPanel(1, 3);
    board.notify();
    const SC_Id added = board.panelId(1, 1);
    EXPECT_TRUE(board->isNewPanelIds(added));
    board->invalidate();
    EXPECT_TRUE(board->isNewPanelIds(added));
    EXPECT_FALSE(board->isNewPanelIds(board.panelId(0, 0)));

    board->updateSavedPanelIds();
    EXPECT_FALSE(board->isNewPanelIds(added));
}

TEST(SavedPanels, ForgetAPanelThatHasGoneWhenUpdated)
{
    Storyboard board("A(4,5)");
    const SC_Id removed = board.panelId(0, 1);
    board.removePanel(0, 1);
    board.notify();
    EXPECT_FALSE(board->isNewPanelIds(removed));
    board->updateSavedPanelIds();
    EXPECT_TRUE(board->isNewPanelIds(removed));
    EXPECT_FALSE(board->isNewPanelIds(board.panelId(0, 0)));
}

TEST(ProjectLock, IsHeldForItsScope)
{
    Storyboard board;
    EXPECT_FALSE(PKC_PlotkaProject::LockHelper::isLocked(&board.project()));
    {
        const PKC_PlotkaProject::LockHelper lock(&board.project());
        EXPECT_TRUE(PKC_PlotkaProject::LockHelper::isLocked(&board.project()));
        EXPECT_EQ(board->shotCount(), 0u); // no question takes or checks it
    }
    EXPECT_FALSE(PKC_PlotkaProject::LockHelper::isLocked(&board.project()));
}

TEST(ProjectLock, IsWaitedForByAnotherThread)
{
    Storyboard board;
    std::future<bool> other;
    {
        const PKC_PlotkaProject::LockHelper lock(&board.project());
        other = std::async(std::launch::async, [&board] {
            const PKC_PlotkaProject::LockHelper second(&board.project());
            return PKC_PlotkaProject::LockHelper::isLocked(&board.project());
        });
        EXPECT_EQ(other.wait_for(std::chrono::milliseconds(20)), std::future_status::timeout);
    }
    EXPECT_TRUE(other.get());
    EXPECT_FALSE(PKC_PlotkaProject::LockHelper::isLocked(&board.project()));
}
