#include "property/TimelineQuestions.h"
#include "support/Printers.h"
#include "support/Problems.h"
#include "support/RandomTimeline.h"
#include "support/Storyboard.h"

#include "scene/project/SC_ProjectCommon.h"

#include <gtest/gtest.h>

namespace
{

using Memory = TimelineQuestions::Memory;

TimelineOracle oracleOf(const Storyboard &board)
{
    return TimelineOracle(plainTimelineOf(board.timeline(), *board.sceneProject().projectCommon()->sceneManager()));
}

/// The first answer that differs, or an empty string.
std::string disagreement(const TimelineText &timeline)
{
    Storyboard board(timeline);
    const TimelineOracle oracle = oracleOf(board);
    const struct {
        PKC_PlotkaProject &project;
        Memory memory;
        const char *told;
    } roads[] = {{board.project(), Memory::Kept, "as remembered: "}, {board.project(), Memory::Dropped, "asked anew: "},
        {board.forgetful(), Memory::SwitchedOff, "with caches off: "}};
    for (const auto &road : roads) {
        road.project.invalidate();
        TimelineQuestions questions(road.project, oracle, road.memory);
        questions.askAll();
        if (!questions.disagreement().empty())
            return road.told + questions.disagreement();
    }
    return problemsOf(board.project());
}

/// Runs over seeds; each stands for a number of timelines.
class RandomTimelines : public ::testing::TestWithParam<unsigned int>
{
};

} // namespace

TEST_P(RandomTimelines, AreAnsweredLikeAPlainCountOfBlocks)
{
    std::mt19937 random(GetParam());
    for (int i = 0; i < 60; ++i) {
        const TimelineText timeline = randomTimeline(random);
        if (disagreement(timeline).empty())
            continue;
        const TimelineText small =
            shrink(timeline, [](const TimelineText &candidate) { return !disagreement(candidate).empty(); });
        FAIL() << "seed " << GetParam() << ", timeline " << i << ": " << toString(timeline) << "\nshortest: \""
               << toString(small) << "\"\n"
               << disagreement(small);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomTimelines, ::testing::Range(1u, 21u));
