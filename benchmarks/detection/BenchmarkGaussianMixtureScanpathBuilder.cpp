// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/GaussianMixtureScanpathBuilder.h"
#include "detection/GeneratedGaze.h"
#include "detection/PlainTwoGaussians.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <ctime>

namespace {

double seconds(auto run)
{
    const std::clock_t start = std::clock(); // processor time, of all threads
    run();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

std::vector<float> stepsOf(const QList<GazePoint> &samples)
{
    std::vector<float> lengths;
    for (qsizetype i = 0; i + 1 < samples.size(); ++i)
        lengths.push_back(
            static_cast<float>(std::hypot(samples[i + 1].x - samples[i].x, samples[i + 1].y - samples[i].y)));
    return lengths;
}

/// The fit beside that of the library for any number of components and dimensions.
void fit(benchmark::State &state)
{
    const std::vector<float> steps =
        stepsOf(generatedGaze({.count = static_cast<int>(state.range(0)), .lossShare = 0}));
    double fastest = 1e9;
    for (auto _ : state) {
        cv::theRNG() = cv::RNG(1);
        fastest = std::min(fastest, seconds([&] { benchmark::DoNotOptimize(fitTwoGaussians(steps)); }));
    }
    cv::theRNG() = cv::RNG(1);
    const double plain = seconds([&] { benchmark::DoNotOptimize(plainTwoGaussians(steps)); });
    state.counters["Msteps/s"] = 1e-6 * static_cast<double>(steps.size()) / fastest;
    state.counters["ratio"] = plain / fastest;
}

/// The whole detector, and beside it what the fit takes of it.
void detect(benchmark::State &state, bool merges)
{
    const QList<GazePoint> samples = generatedGaze({.count = static_cast<int>(state.range(0)), .lossShare = 0});
    qsizetype fixations = 0;
    double fastest = 1e9;
    double fit = 1e9;
    for (auto _ : state) {
        QList<Fixation> scanpath;
        fastest = std::min(fastest, seconds([&] {
                               scanpath = std::get<QList<Fixation>>(mixtureFixations(samples, {100, merges}, {}));
                           }));
        fit = std::min(fit, seconds([&] { benchmark::DoNotOptimize(labelSteps(samples)); }));
        fixations = scanpath.size();
    }
    state.counters["fixations"] = static_cast<double>(fixations);
    state.counters["Msamples/s"] = 1e-6 * static_cast<double>(samples.size()) / fastest;
    state.counters["share_of_fit"] = fit / fastest;
}

/// The walk alone over known labels.
void walk(benchmark::State &state)
{
    const QList<GazePoint> samples = generatedGaze({.count = static_cast<int>(state.range(0)), .lossShare = 0});
    const auto steps = std::get<StepLabels>(labelSteps(samples));
    double fastest = 1e9;
    for (auto _ : state) {
        QList<Fixation> scanpath;
        fastest = std::min(fastest, seconds([&] { appendRestingRuns(samples, steps, {100, true}, scanpath); }));
    }
    state.counters["Msamples/s"] = 1e-6 * static_cast<double>(samples.size()) / fastest;
}

} // namespace

BENCHMARK(fit)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detect, apart, false)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detect, merging, true)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(walk)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
