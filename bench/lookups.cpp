#include "BigProject.h"
#include "RandomPlaces.h"
#include "sizes.h"

#include "metadata/PKC_ClipInfo.h"

#include <vector>

namespace
{

Plotka::Panel_t panelAt(const PKC_PlotkaProject &project, unsigned int frame)
{
    return project.getPanelAt(frame, PKC_PlotkaProject::ResolveBackward, /*nearest*/ false, /*forward*/ true);
}

std::vector<Plotka::Shot_t> shotsOf(const BigProject &big)
{
    big.warmUp();
    std::vector<Plotka::Shot_t> shots;
    for (auto shot = big.project().beginShot(); shot != big.project().endShot(); ++shot)
        shots.push_back(*shot);
    return shots;
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

/// Questions of one shot, which a longer project does not make longer.
void panelsOfShot(benchmark::State &state, BigProject::Joints joints)
{
    const BigProject &big = BigProject::ofSize(panelsOf(state), joints);
    const std::vector<Plotka::Shot_t> shots = shotsOf(big);
    RandomPlaces places(static_cast<std::uint32_t>(shots.size()));
    for (auto _ : state)
        benchmark::DoNotOptimize(big.project().panelsIdIn(shots[places.next()]));
}
PLOTKA_BENCH_CAPTURED(panelsOfShot, "panels of a shot", BigProject::Joints::Cuts);
PLOTKA_BENCH_CAPTURED(panelsOfShot, "panels of a shot, transitions", BigProject::Joints::Transitions);

/// The counterpart is looked for by id and then by name, and there is none: all panels of the shot are met twice.
void counterpartInShot(benchmark::State &state, BigProject::Joints joints)
{
    const BigProject &big = BigProject::ofSize(panelsOf(state), joints);
    const std::vector<Plotka::Shot_t> shots = shotsOf(big);
    const Plotka::Panel_t other = big.project().first(Plotka::Panel_t());
    other.clipInfo()->name().setValue(QStringLiteral("nowhere else"));
    other.clipInfo()->name().setFlag(PKC_ObjectName::customBit);
    RandomPlaces places(static_cast<std::uint32_t>(shots.size() - 1));
    for (auto _ : state)
        benchmark::DoNotOptimize(big.project().getPanelIn(shots[places.next() + 1], other, /*lockedOnly*/ false));
}
PLOTKA_BENCH_CAPTURED(counterpartInShot, "counterpart in a shot", BigProject::Joints::Cuts);
PLOTKA_BENCH_CAPTURED(counterpartInShot, "counterpart in a shot, transitions", BigProject::Joints::Transitions);

} // namespace
