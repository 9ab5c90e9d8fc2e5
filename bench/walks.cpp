#include "BigProject.h"
#include "sizes.h"

namespace
{

/// One step of an endless walk; the time of starting again at an end is included.
void nextPanel(benchmark::State &state)
{
    const BigProject &big = BigProject::ofSize(panelsOf(state));
    big.warmUp();
    auto panel = big.project().beginPanel();
    for (auto _ : state) {
        ++panel;
        if (panel->isInvalid())
            panel = big.project().beginPanel();
    }
}
PLOTKA_BENCH_SIZES(nextPanel, "next panel");

void previousPanel(benchmark::State &state)
{
    const BigProject &big = BigProject::ofSize(panelsOf(state));
    big.warmUp();
    auto panel = big.project().rbeginPanel();
    for (auto _ : state) {
        ++panel;
        if (panel->isInvalid())
            panel = big.project().rbeginPanel();
    }
}
PLOTKA_BENCH_SIZES(previousPanel, "previous panel");

void fullWalk(benchmark::State &state)
{
    const BigProject &big = BigProject::ofSize(panelsOf(state));
    big.warmUp();
    for (auto _ : state) {
        for (auto panel = big.project().beginPanel(); panel != big.project().endPanel(); ++panel)
            benchmark::DoNotOptimize(panel->id());
    }
}
PLOTKA_BENCH_SIZES(fullWalk, "full walk");

} // namespace
