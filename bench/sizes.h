#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>

/// Registers a benchmark at the sizes that growth is read from, in panels.
#define PLOTKA_BENCH_SIZES(function, name) BENCHMARK(function)->Name(name)->Arg(1000)->Arg(10000)->Arg(100000)

/// The same of a benchmark that is told more than the size.
#define PLOTKA_BENCH_CAPTURED(function, name, ...)                                                                     \
    BENCHMARK_CAPTURE(function, , __VA_ARGS__)->Name(name)->Arg(1000)->Arg(10000)->Arg(100000)

inline unsigned int panelsOf(const benchmark::State &state)
{
    return static_cast<unsigned int>(state.range(0));
}
