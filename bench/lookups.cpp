#include "BigProject.h"
#include "RandomPlaces.h"
#include "sizes.h"

namespace
{

Plotka::Panel_t panelAt(const PKC_PlotkaProject &project, unsigned int frame)
{
    return project.getPanelAt(frame, PKC_PlotkaProject::ResolveBackward, /*nearest*/ false, /*forward*/ true);
}

void frameToPanelWarm(benchmark::State &state)
{
    const BigProject &big = BigProject::ofSize(panelsOf(state));
    big.warmUp();
    RandomPlaces frames(big.frameCount());
    for (auto _ : state)
        benchmark::DoNotOptimize(panelAt(big.project(), frames.next() + 1));
}
PLOTKA_BENCH_SIZES(frameToPanelWarm, "frame to panel, warm");

/// The time includes that of forgetting the one answer before.
void frameToPanelCold(benchmark::State &state)
{
    const BigProject &big = BigProject::ofSize(panelsOf(state));
    big.project().invalidate();
    RandomPlaces frames(big.frameCount());
    for (auto _ : state) {
        big.project().invalidate();
        benchmark::DoNotOptimize(panelAt(big.project(), frames.next() + 1));
    }
}
PLOTKA_BENCH_SIZES(frameToPanelCold, "frame to panel, cold");

void byId(benchmark::State &state)
{
    const BigProject &big = BigProject::ofSize(panelsOf(state));
    big.warmUp();
    RandomPlaces places(big.panelCount());
    for (auto _ : state)
        benchmark::DoNotOptimize(big.project().getPanelByID(big.panelIds()[places.next()]));
}
PLOTKA_BENCH_SIZES(byId, "panel by id");

void shotByName(benchmark::State &state)
{
    const BigProject &big = BigProject::ofSize(panelsOf(state));
    big.warmUp();
    RandomPlaces places(static_cast<std::uint32_t>(big.shotNames().size()));
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            big.project().getShotByName(big.shotNames()[places.next()], QString(), /*upperCase*/ false));
    }
}
PLOTKA_BENCH_SIZES(shotByName, "shot by name");

} // namespace
