// SPDX-License-Identifier: GPL-3.0-or-later
// Time of all measures over all pairs of recordings.

#include "base/SideBySide.h"
#include "comparison/ScanpathSamples.h"
#include "comparison/ScanpathSimilarity.h"

#include <benchmark/benchmark.h>

namespace {

/// @param state  recordings, fixations of each, threads.
void allPairs(benchmark::State &state)
{
    DataModel model;
    addRecordings(model,
                  randomScanpaths(static_cast<int>(state.range(0)), static_cast<std::size_t>(state.range(1)), 1));
    for (auto _ : state)
        benchmark::DoNotOptimize(
            compareScanpaths(model, {.eyes = EyeMode::showLeft, .threads = static_cast<int>(state.range(2))}, {}));
}

} // namespace

BENCHMARK(allPairs)->Args({100, 100, 1})->Args({100, 100, coreCount()})->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_MAIN();
