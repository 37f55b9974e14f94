// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/GradientSearch.h"
#include "aoi/generation/RegionSearch.h"
#include "aoi/generation/RegionSteps.h"
#include "aoi/PlainRegions.h"
#include "density/GazePointDensity.h"

#include <benchmark/benchmark.h>

#include <ctime>
#include <random>

// Both searches over a density of the whole canvas, and flood and erosion by work lists beside whole passes until
// nothing changes. Processor time, since each runs in one thread.

namespace {

double processorMs()
{
    return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

template <class Work>
double bestMs(int times, Work work)
{
    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < times; ++i) {
        const double start = processorMs();
        work();
        best = std::min(best, processorMs() - start);
    }
    return best;
}

/// Heaps of gaze points and some everywhere, so that no cell of the canvas is empty.
RegionDensity fullDensity()
{
    std::mt19937 random(1);
    std::uniform_int_distribution<int> x(0, canvas::width - 1);
    std::uniform_int_distribution<int> y(0, canvas::height - 1);
    std::normal_distribution<double> heap(0, 40);
    std::vector<GazePointEvent> events;
    for (int n = 0; n < 400; ++n) {
        const GazePointEvent center{x(random), y(random)};
        for (int i = 0; i < 250; ++i)
            events.push_back({center.x + int(heap(random)), center.y + int(heap(random))});
        for (int i = 0; i < 100; ++i)
            events.push_back({x(random), y(random)});
    }
    const Density density = gazePointDensity(events, {.width = 100, .sigma = 50}, 2);
    RegionDensity made{.cells = Grid<double>(canvas::width, canvas::height),
                       .highest = density.peak().value,
                       .unit = {},
                       .remark = {}};
    std::copy_n(density.column(0), canvas::pixels, made.cells.data());
    return made;
}

void search(benchmark::State &state, RegionMethod method)
{
    const RegionDensity density = fullDensity();
    const RegionParameters parameters{.method = method};
    std::size_t regions = 0;
    for (auto _ : state)
        regions = static_cast<std::size_t>(searchRegions(density, parameters)->seeds.size());
    state.counters["regions"] = static_cast<double>(regions);
}
BENCHMARK_CAPTURE(search, standard, RegionMethod::Standard)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, gradient, RegionMethod::Gradient)->Unit(benchmark::kMillisecond);

/// What flood and erosion begin with.
struct Start {
    Grid<int> labels;
    Grid<gradientsearch::Direction> ways;
};

Start startOfFlood(const RegionDensity &density)
{
    using namespace gradientsearch;
    Smoothed smooth = smoothed(density.cells);
    const Grid<double> values = regionsteps::aboveThreshold(std::move(smooth.values), smooth.highest * 0.01);
    Start start{{}, ascents(values)};
    start.labels = peaks(values, start.ways, 50).labels;
    return start;
}

void flood(benchmark::State &state)
{
    const Start start = startOfFlood(fullDensity());
    const auto fast = [&] { return gradientsearch::flooded(start.labels, start.ways); };
    Grid<int> labels;
    for (auto _ : state)
        labels = fast();
    plain::Regions regions{Grid<double>(canvas::width, canvas::height)};
    regions.labels = plain::tableOf(start.labels);
    for (int x = 0; x < canvas::width; ++x) {
        for (int y = 0; y < canvas::height; ++y) {
            regions.directionX[std::size_t(x)][std::size_t(y)] = start.ways.at(x, y).x;
            regions.directionY[std::size_t(x)][std::size_t(y)] = start.ways.at(x, y).y;
        }
    }
    const double plainMs = bestMs(1, [&] { regions.flood(); });
    if (plain::tableOf(labels) != regions.labels)
        state.SkipWithError("not the same labels");
    state.counters["plain_ms"] = plainMs;
    state.counters["plain_ratio"] = plainMs / bestMs(5, fast);
}
BENCHMARK(flood)->Unit(benchmark::kMillisecond);

/// Combs of thin teeth, which are eaten up tooth by tooth from their ends.
Grid<int> combs()
{
    Grid<int> labels(canvas::width, canvas::height);
    for (int x = 1; x < canvas::width - 1; ++x) {
        for (int y = 1; y < canvas::height - 1; ++y)
            labels.at(x, y) = y % 8 < 2 || x % 640 < 320 ? 1 + x / 640 : 0;
    }
    return labels;
}

void erosion(benchmark::State &state)
{
    const Grid<int> start = combs();
    const auto fast = [&] { return gradientsearch::eroded(start); };
    Grid<int> labels;
    for (auto _ : state)
        labels = fast();
    plain::Regions regions{Grid<double>(canvas::width, canvas::height)};
    regions.labels = plain::tableOf(start);
    const double plainMs = bestMs(1, [&] { regions.erode(); });
    if (plain::tableOf(labels) != regions.labels)
        state.SkipWithError("not the same labels");
    state.counters["plain_ms"] = plainMs;
    state.counters["plain_ratio"] = plainMs / bestMs(5, fast);
}
BENCHMARK(erosion)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
