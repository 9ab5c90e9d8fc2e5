#include "BigProject.h"
#include "sizes.h"

namespace
{

Plotka::Panel_t panelAt(const PKC_PlotkaProject &project, unsigned int frame)
{
    return project.getPanelAt(frame, PKC_PlotkaProject::ResolveBackward, /*nearest*/ false, /*forward*/ true);
}

/// Little was asked between the edits, so little is forgotten.
void rollAndQuery(benchmark::State &state)
{
    BigProject &big = BigProject::ofSize(panelsOf(state));
    big.project().invalidate();
    for (auto _ : state)
        benchmark::DoNotOptimize(panelAt(big.project(), big.roll()));
}
PLOTKA_BENCH_SIZES(rollAndQuery, "roll and query");

/// The same with every panel remembered before the edit, and forgotten by it.
void rollAndQueryAfterWalk(benchmark::State &state)
{
    BigProject &big = BigProject::ofSize(panelsOf(state));
    for (auto _ : state) {
        state.PauseTiming();
        big.warmUp();
        state.ResumeTiming();
        benchmark::DoNotOptimize(panelAt(big.project(), big.roll()));
    }
}
PLOTKA_BENCH_SIZES(rollAndQueryAfterWalk, "roll and query after a walk");

void rollAndCount(benchmark::State &state)
{
    BigProject &big = BigProject::ofSize(panelsOf(state));
    for (auto _ : state) {
        big.roll();
        benchmark::DoNotOptimize(big.project().panelCount());
    }
}
PLOTKA_BENCH_SIZES(rollAndCount, "count after an edit");

} // namespace
