#include "support/Printers.h"
#include "support/Storyboard.h"

#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/TUSoundTimedValue.h"

#include <gtest/gtest.h>

#include <memory>

using namespace Plotka;

namespace
{

/// A project made of a top scene whose timed values hold so many panels each, all in one shot.
class Timelines : public ::testing::Test
{
protected:
    Timelines() : m_scenes(new SC_Project(QStringLiteral("/nowhere"), QStringLiteral("timelines")))
    {
        m_top = m_scenes->addScene();
    }

    TUSeqTimedValue *add(unsigned int panels)
    {
        TUSeqTimedValue *const timeline = m_top->addSeqTimedValue(QStringLiteral("timeline"));
        if (panels == 0)
            return timeline;
        TUScene *const shot = m_scenes->addScene();
        TUSeqTimedValue *const track = shot->addSeqTimedValue(QStringLiteral("panels"));
        for (unsigned int i = 0; i < panels; ++i)
            track->insertBlock(1 + 2 * i, 2, new AT_TimeWarpSeq(m_scenes->addScene(), 1.0, 2.0));
        timeline->insertBlock(1, 2 * panels, new AT_TimeWarpSeq(shot, 1.0, 2.0 * panels));
        return timeline;
    }
    PKC_PlotkaProject &project()
    {
        if (!m_project)
            m_project = std::make_unique<PKC_PlotkaProject>(m_scenes.get());
        return *m_project;
    }
    SC_Project &scenes() { return *m_scenes; }
    TUScene &top() { return *m_top; }

private:
    UT_SharedPtr<SC_Project> m_scenes;
    TUScene *m_top;
    std::unique_ptr<PKC_PlotkaProject> m_project;
};

} // namespace

TEST_F(Timelines, AreChosenByTheirNumberOfPanels)
{
    add(5);
    TUSeqTimedValue *const longer = add(7);
    EXPECT_EQ(project().topMainTv(), longer);
    EXPECT_EQ(project().panelCount(), 7u);
}

TEST_F(Timelines, AreChosenEarlierFirstAmongEquals)
{
    TUSeqTimedValue *const first = add(5);
    add(5);
    EXPECT_EQ(project().topMainTv(), first);
}

TEST_F(Timelines, AreChosenEarlierFirstWhenNoneHasPanels)
{
    TUSeqTimedValue *const first = add(0);
    add(0);
    EXPECT_EQ(project().topMainTv(), first);
    EXPECT_EQ(project().panelCount(), 0u);
}

TEST_F(Timelines, WithoutPanelsGiveWayToOneWithSome)
{
    add(0);
    TUSeqTimedValue *const filled = add(1);
    add(0);
    EXPECT_EQ(project().topMainTv(), filled);
}

TEST_F(Timelines, AreSequencesAndNoSounds)
{
    top().addSoundTimedValue(QStringLiteral("sound"));
    EXPECT_EQ(project().topMainTv(), nullptr);
    TUSeqTimedValue *const late = add(2);
    EXPECT_EQ(project().topMainTv(), late); // nothing had been chosen yet
}

TEST_F(Timelines, PassOverSoundsThatStandBeforeThem)
{
    top().addSoundTimedValue(QStringLiteral("sound"));
    TUSeqTimedValue *const timeline = add(0);
    EXPECT_EQ(project().topMainTv(), timeline);
}

TEST_F(Timelines, OfOtherScenesDoNotCount)
{
    TUScene *const other = scenes().addScene();
    other->addSeqTimedValue(QStringLiteral("drawings"));
    EXPECT_EQ(project().topMainTv(), nullptr);
}

TEST_F(Timelines, StayChosenWhateverBecomesOfThem)
{
    TUSeqTimedValue *const chosen = add(2);
    ASSERT_EQ(project().topMainTv(), chosen);
    add(9);
    project().invalidate();
    EXPECT_EQ(project().topMainTv(), chosen);
    project().setCacheEnabled(false);
    EXPECT_EQ(project().topMainTv(), chosen);
    chosen->removeBlock(chosen->firstBlock().key);
    EXPECT_EQ(project().topMainTv(), chosen);
    EXPECT_EQ(project().panelCount(), 0u);
}

TEST_F(Timelines, AreChosenAnewWhenTheOneInUseHasDied)
{
    TUSeqTimedValue *const first = add(3);
    TUSeqTimedValue *const second = add(1);
    TUSeqTimedValue *const third = add(2);
    ASSERT_EQ(project().topMainTv(), first);
    top().removeTimedValue(first);
    EXPECT_EQ(project().topMainTv(), third);
    top().removeTimedValue(third);
    EXPECT_EQ(project().topMainTv(), second);
    top().removeTimedValue(second);
    EXPECT_EQ(project().topMainTv(), nullptr);
}

TEST_F(Timelines, AreChosenWithoutASwitchOfTheCachesThatLasts)
{
    TUSeqTimedValue *const first = add(3);
    TUSeqTimedValue *const second = add(1);
    ASSERT_EQ(project().topMainTv(), first);
    for (const bool on : {true, false}) {
        project().setCacheEnabled(on);
        top().removeTimedValue(project().topMainTv());
        add(1);
        EXPECT_EQ(project().topMainTv(), on ? second : project().topMainTv());
        EXPECT_EQ(project().cacheEnabled(), on);
    }
}

TEST_F(Timelines, AnswerByFrameForTheNewChoice)
{
    const auto shotAt = [this] {
        return project().getShotAt(1, PKC_PlotkaProject::ResolveBackward, /*nearest*/ false, /*forward*/ true);
    };
    add(3);
    add(2);
    const Shot_t before = shotAt();
    ASSERT_EQ(shotAt(), before); // asked twice: it is remembered
    top().removeTimedValue(project().topMainTv());
    const Shot_t after = shotAt(); // the first question, without any news
    EXPECT_TRUE(after.isValid());
    EXPECT_NE(after, before);
    EXPECT_EQ(after.lastFrame(), 4u);
}

TEST_F(Timelines, AnswerAtOnceForTheNewChoice)
{
    add(3);
    add(2);
    ASSERT_EQ(project().panelCount(), 3u);
    const Panel_t before = project().last(Panel_t());
    top().removeTimedValue(project().topMainTv());
    // No news has come: the choice alone drops what was remembered of the one that died.
    ASSERT_NE(project().topMainTv(), nullptr);
    EXPECT_EQ(project().panelCount(), 2u);
    EXPECT_NE(project().last(Panel_t()), before);
    EXPECT_TRUE(project().getPanelByID(before.id()).isInvalid());
}
