#include "BigProject.h"
#include "sizes.h"

#include <malloc.h>

namespace
{

std::size_t bytesInUse()
{
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

/// What a project with its project object keeps on the heap once every panel has been asked for.
void memory(benchmark::State &state)
{
    double bytes = 0;
    for (auto _ : state) {
        const std::size_t before = bytesInUse();
        const BigProject big(panelsOf(state));
        big.warmUp();
        bytes = double(bytesInUse() - before);
    }
    state.counters["bytes_per_panel"] = bytes / panelsOf(state);
}
BENCHMARK(memory)->Name("memory")->Arg(1000)->Arg(10000)->Arg(100000)->Iterations(1);

} // namespace
