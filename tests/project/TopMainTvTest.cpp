#include "support/Printers.h"
#include "support/Storyboard.h"

#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/AT_TransitionSeq.h"
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

namespace
{

/// What questions are asked about: something placed in one of the timelines.
struct Subject {
    SC_Id id;
    const SC_SceneCommon *scene = nullptr; ///< null for a transition
};

/// Everything that is remembered, asked for by frame, id, scene and count. Answers are ids or numbers.
struct Question {
    const char *name;
    qint64 (*ask)(const PKC_PlotkaProject &project, const Subject &subject);
};

constexpr auto atFirst = PKC_PlotkaProject::ResolveBackward;

const Question questions[] = {
    {"shot at frame",
        [](const auto &project, const Subject &) {
            return project.getShotAt(1, atFirst, /*nearest*/ false, /*forward*/ true).id().value();
        }},
    {"panel at frame",
        [](const auto &project, const Subject &) {
            return project.getPanelAt(1, atFirst, /*nearest*/ false, /*forward*/ true).id().value();
        }},
    {"transition at frame", [](const auto &project, const Subject &) { return project.getTransAt(4).id().value(); }},
    {"shot by id", [](const auto &project, const Subject &of) { return project.getShotByID(of.id).id().value(); }},
    {"panel by id", [](const auto &project, const Subject &of) { return project.getPanelByID(of.id).id().value(); }},
    {"transition by id",
        [](const auto &project, const Subject &of) { return project.getTransByID(of.id).id().value(); }},
    {"panel or transition by id",
        [](const auto &project, const Subject &of) { return project.getPanelTransById(of.id).id().value(); }},
    {"shots", [](const auto &project, const Subject &) { return qint64(project.shotCount()); }},
    {"panels", [](const auto &project, const Subject &) { return qint64(project.panelCount()); }},
    {"transitions", [](const auto &project, const Subject &) { return qint64(project.transCount()); }},
    {"frames", [](const auto &project, const Subject &) { return qint64(project.getNumOfFrames()); }},
    {"panel of scene",
        [](const auto &project, const Subject &of) { return project.sceneCommonToPanel(of.scene).id().value(); }},
    {"shot of scene",
        [](const auto &project, const Subject &of) { return project.sceneCommonToShot(of.scene).id().value(); }},
};

/// A top scene with two timelines of two shots each, the first with more panels. A transition lies over frames 4 and 5
/// of either.
struct TwoTimelines {
    TwoTimelines() : scenes(new SC_Project(QStringLiteral("/nowhere"), QStringLiteral("two timelines")))
    {
        top = scenes->addScene();
        chosen = add(2);
        add(1);
    }

    TUSeqTimedValue *add(unsigned int panelsOfShot)
    {
        TUSeqTimedValue *const timeline = top->addSeqTimedValue(QStringLiteral("timeline"));
        for (const unsigned int fromFrame : {1u, 6u}) {
            TUSeqTimedValue *const track = addScene()->addSeqTimedValue(QStringLiteral("panels"));
            const TUScene *const shot = m_newest;
            for (unsigned int i = 0; i < panelsOfShot; ++i)
                EXPECT_TRUE(track->insertBlock(1 + 3 * i, 3, new AT_TimeWarpSeq(addScene(), 1.0, 3.0)));
            EXPECT_TRUE(timeline->insertBlock(fromFrame, 5, new AT_TimeWarpSeq(shot, 1.0, 5.0)));
        }
        const SC_Id transition = scenes->projectCommon()->createId();
        EXPECT_TRUE(timeline->insertTransition(6, 2, 0, new AT_TransitionSeq(transition, AT_TransitionSeq::Dissolve)));
        subjects.push_back({transition, nullptr});
        return timeline;
    }

    UT_SharedPtr<SC_Project> scenes;
    TUScene *top;
    TUSeqTimedValue *chosen;
    std::vector<Subject> subjects;

private:
    TUScene *addScene()
    {
        m_newest = scenes->addScene();
        subjects.push_back({m_newest->objectId(), m_newest->sceneCommon()});
        return m_newest;
    }

    TUScene *m_newest = nullptr;
};

/// The question is the first one after the death of the timeline that was chosen, of which no news has come.
void expectTheAnswerOfANewProject(const Question &question, std::size_t subject, bool cacheOn)
{
    TwoTimelines two;
    PKC_PlotkaProject project(two.scenes.get());
    project.setCacheEnabled(cacheOn);
    ASSERT_EQ(project.topMainTv(), two.chosen);
    for (const Subject &of : two.subjects) // what can be remembered is
        question.ask(project, of);
    two.top->removeTimedValue(two.chosen);
    const PKC_PlotkaProject fresh(two.scenes.get());
    const qint64 expected = question.ask(fresh, two.subjects[subject]);
    EXPECT_EQ(question.ask(project, two.subjects[subject]), expected)
        << question.name << ", subject " << subject << ", caches " << (cacheOn ? "on" : "off");
    EXPECT_NE(project.topMainTv(), nullptr);
}

} // namespace

TEST(TimelineThatDied, IsForgottenBeforeTheNextAnswer)
{
    const std::size_t subjects = TwoTimelines().subjects.size();
    for (const Question &question : questions) {
        for (std::size_t subject = 0; subject < subjects; ++subject) {
            expectTheAnswerOfANewProject(question, subject, /*cacheOn*/ true);
            expectTheAnswerOfANewProject(question, subject, /*cacheOn*/ false);
        }
    }
}

TEST(TimelineThatDied, LeavesNoAnswerWhenItWasTheOnlyOne)
{
    for (const Question &question : questions) {
        Storyboard board("A(2,3) ~1+1~ B(6)");
        const std::vector<Subject> subjects = {{board.shotId(0), board.shotScene(0)->sceneCommon()},
            {board.panelId(0, 1), board.panelScene(0, 1)->sceneCommon()}, {board.transitionId(0), nullptr}};
        for (const Subject &of : subjects)
            question.ask(board.project(), of);
        board.topScene().removeTimedValue(&board.timeline());
        for (const Subject &of : subjects)
            EXPECT_EQ(question.ask(board.project(), of), 0) << question.name;
        EXPECT_EQ(board->topMainTv(), nullptr);
    }
}

/// Answers of before may be given until the news comes, but they are safe to ask further.
TEST(TimelineThatChanged, IsReadSafelyBeforeItsNews)
{
    using Edit = bool (*)(Storyboard &);
    constexpr Edit edits[] = {
        [](Storyboard &board) { return board.removeTransition(0); },
        [](Storyboard &board) { return board.liftShot(2); },
        [](Storyboard &board) { return board.liftPanel(0, 1); },
        [](Storyboard &board) { return board.removePanel(2, 0); },
        [](Storyboard &board) { return board.deleteShotScene(0); },
        [](Storyboard &board) { return board.deletePanelScene(0, 1); },
        [](Storyboard &board) { return board.deletePanelTrack(1); },
        [](Storyboard &board) { return board.moveShots(2, 5); },
    };
    for (const Edit edit : edits) {
        Storyboard board("A(10,10) ~2+2~ B(14) -3- C(4,5)");
        std::vector<Subject> subjects;
        for (unsigned int shot = 0; shot < 3; ++shot) {
            subjects.push_back({board.shotId(shot), board.shotScene(shot)->sceneCommon()});
            subjects.push_back({board.panelId(shot, 0), board.panelScene(shot, 0)->sceneCommon()});
        }
        subjects.push_back({board.transitionId(0), nullptr});
        const auto askAll = [&] {
            std::vector<qint64> answers;
            for (const Question &question : questions) {
                for (const Subject &of : subjects)
                    answers.push_back(question.ask(board.project(), of));
            }
            for (unsigned int frame = 0; frame < 50; ++frame) {
                answers.push_back(board->getTransAt(frame).id().value());
                answers.push_back(board->getPanelAt(frame, atFirst, /*nearest*/ true, /*forward*/ false).lastFrame());
            }
            return answers;
        };
        askAll();
        const Panel_t panel = board->getPanelByNdx(1);
        const Trans_t transition = board->getTransByNdx(0);
        ASSERT_TRUE(edit(board));
        askAll();
        board->next(panel);
        board->prev(panel);
        board->next(transition);

        board.notify();
        const std::vector<qint64> after = askAll();
        board->setCacheEnabled(false);
        EXPECT_EQ(after, askAll());
    }
}
