// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/GeneratedGaze.h"
#include "detection/PlainVelocityScanpathBuilder.h"
#include "detection/VelocityScanpathBuilder.h"

#include <benchmark/benchmark.h>

#include <ctime>
#include <functional>

namespace {

struct Task {
    std::string name;
    GazeRecipe recipe;
    VelocityParameters parameters;
};

VelocityParameters parametersOf(VelocityUnit unit, double threshold, int minimumDurationMs)
{
    return {.minimumDurationMs = minimumDurationMs,
            .threshold = threshold,
            .unit = unit,
            .screenDistanceM = 0.6,
            .imageSizeM = 0.4,
            .imageWidthPx = 2560};
}

/// Half an hour and more each; far larger than the caches.
const std::vector<Task> &tasks()
{
    using Unit = VelocityUnit;
    constexpr int never = 1000000; // ms; what is long enough to be kept costs its copy and its statistics
    static const GazeRecipe fast{.count = 2000000, .rateHz = 1000, .noisePx = 1};
    static const GazeRecipe noisy{.count = 2000000, .rateHz = 1000, .noisePx = 3};
    static const GazeRecipe slow{.count = 2000000, .rateHz = 60, .noisePx = 1};
    static const std::vector<Task> all = {
        {"pixelsFewFixations/1000Hz/2000000", fast, parametersOf(Unit::PixelPerMs, 5, 500)},
        {"pixelsNoFixation/1000Hz/2000000", fast, parametersOf(Unit::PixelPerMs, 5, never)},
        {"pixelsNoiseAtThreshold/1000Hz/2000000", noisy, parametersOf(Unit::PixelPerMs, 5, 100)},
        {"pixelsManyFixations/1000Hz/2000000", fast, parametersOf(Unit::PixelPerMs, 5, 100)},
        {"pixelsManyFixations/60Hz/2000000", slow, parametersOf(Unit::PixelPerMs, 2, 100)},
        {"degreesFewFixations/1000Hz/2000000", fast, parametersOf(Unit::DegreePerS, 100, 500)},
        {"degreesManyFixations/1000Hz/2000000", fast, parametersOf(Unit::DegreePerS, 100, 100)},
        {"percentileFewFixations/1000Hz/2000000", fast, parametersOf(Unit::Percentile, 85, 500)},
    };
    return all;
}

template <class Builder>
double secondsPerSample(const QList<GazePoint> &samples, const VelocityParameters &parameters, qsizetype &fixations)
{
    QList<Fixation> scanpath;
    const std::clock_t start = std::clock(); // processor time: other programs on the machine take no part in it
    const Builder builder(samples, &scanpath, parameters);
    const std::clock_t elapsed = std::clock() - start;
    benchmark::DoNotOptimize(&builder);
    fixations = scanpath.size();
    return static_cast<double>(elapsed) / CLOCKS_PER_SEC / static_cast<double>(samples.size());
}

void detect(benchmark::State &state, const Task &task)
{
    const QList<GazePoint> samples = generatedGaze(task.recipe);
    qsizetype fixations = 0;
    double fastest = 1e9;
    double plain = 1e9;
    for (auto _ : state)
        fastest = std::min(fastest, secondsPerSample<VelocityScanpathBuilder>(samples, task.parameters, fixations));
    for (int i = 0; i < 3; ++i)
        plain = std::min(plain, secondsPerSample<PlainVelocityScanpathBuilder>(samples, task.parameters, fixations));
    state.counters["fixations"] = static_cast<double>(fixations);
    state.counters["Msamples/s"] = 1e-6 / fastest;
    state.counters["plain_Msamples/s"] = 1e-6 / plain;
    state.counters["ratio"] = plain / fastest;
}

} // namespace

int main(int argc, char **argv)
{
    for (const Task &task : tasks())
        benchmark::RegisterBenchmark(task.name.c_str(), detect, task)->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
