#include "property/TimelineQuestions.h"
#include "support/EditScript.h"
#include "support/Printers.h"
#include "support/Problems.h"

#include "scene/project/SC_ProjectCommon.h"

#include <gtest/gtest.h>

namespace
{

using Memory = TimelineQuestions::Memory;

std::string disagreementWith(
    PKC_PlotkaProject &project, const TimelineOracle &oracle, Memory memory, unsigned int furthest)
{
    TimelineQuestions questions(project, oracle, memory);
    questions.askWalks(); // first, so that every panel has been seen by frame
    questions.askIds(memory == Memory::Kept);
    questions.askFrames(furthest);
    questions.askCountsAndPlaces();
    questions.askNeighbours();
    questions.askScenes();
    return questions.disagreement();
}

/// The first answer that differs after any step, or an empty string.
std::string disagreement(const Script &script)
{
    Storyboard board("A(5,4) B(6)");
    unsigned int furthest = 0; // old answers linger where the timeline used to reach
    for (const Edit &edit : script) {
        apply(edit, board);
        board.notify();
        const TimelineOracle oracle(
            plainTimelineOf(board.timeline(), *board.sceneProject().projectCommon()->sceneManager()));
        furthest = std::max(furthest, oracle.lastCoveredFrame());
        const std::string remembered = disagreementWith(board.project(), oracle, Memory::Kept, furthest);
        if (!remembered.empty())
            return "as remembered: " + remembered;
        const std::string afresh = disagreementWith(board.forgetful(), oracle, Memory::SwitchedOff, furthest);
        if (!afresh.empty())
            return "with caches off: " + afresh;
        if (walksOf(board.project()) != walksOf(board.forgetful()))
            return "remembered: " + walksOf(board.project()) + "\nafresh:     " + walksOf(board.forgetful());
        const std::string problems = problemsOf(board.project());
        if (!problems.empty())
            return problems;
    }
    return {};
}

class RandomEdits : public ::testing::TestWithParam<unsigned int>
{
};

} // namespace

TEST_P(RandomEdits, LeaveNoOldAnswerBehind)
{
    const Script script = randomScript(GetParam(), 40);
    if (disagreement(script).empty())
        return;
    const Script small = shrink(script, [](const Script &candidate) { return !disagreement(candidate).empty(); });
    ADD_FAILURE() << "seed " << GetParam() << ": " << disagreement(small) << "\nafter\n" << toString(small);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEdits, ::testing::Range(1u, 41u));
