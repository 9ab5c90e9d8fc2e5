#include "StorageRuns.h"
#include "sizes.h"

namespace
{

const SavedProject &project(const benchmark::State &state)
{
    return SavedProject::ofSize(panelsOf(state));
}

void open(benchmark::State &state)
{
    runOpen(state, project(state));
}
PLOTKA_BENCH_SIZES(open, "open");

void save(benchmark::State &state)
{
    runSave(state, project(state));
}
PLOTKA_BENCH_SIZES(save, "save");

void xmlPass(benchmark::State &state)
{
    runXmlPass(state, project(state));
}
PLOTKA_BENCH_SIZES(xmlPass, "floor: XML pass");

} // namespace
