#include "BigProject.h"
#include "FilledPanels.h"
#include "sizes.h"

#include <malloc.h>

namespace
{

std::size_t bytesInUse()
{
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

void measure(benchmark::State &state, bool isFilled)
{
    double bytes = 0;
    for (auto _ : state) {
        const std::size_t before = bytesInUse();
        BigProject big(panelsOf(state));
        if (isFilled)
            fillRecords(big);
        big.warmUp();
        bytes = double(bytesInUse() - before);
    }
    state.counters["bytes_per_panel"] = bytes / panelsOf(state);
}

/// What a project with its project object keeps on the heap once every panel has been asked for.
void memory(benchmark::State &state)
{
    measure(state, /*isFilled*/ false);
}
BENCHMARK(memory)->Name("memory")->Arg(1000)->Arg(10000)->Arg(100000)->Iterations(1);

/// The same with something in all records of the panels.
void memoryFilled(benchmark::State &state)
{
    measure(state, /*isFilled*/ true);
}
BENCHMARK(memoryFilled)->Name("memory, records filled")->Arg(1000)->Arg(10000)->Iterations(1);

} // namespace
