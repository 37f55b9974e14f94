// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/GeneratedGaze.h"
#include "detection/PlainStandardScanpathBuilder.h"
#include "detection/StandardScanpathBuilder.h"

#include <benchmark/benchmark.h>

#include <ctime>
#include <functional>

namespace {

/// One input for both forms. The plain form gets its first `plainCount` samples, where it would not end in reasonable
/// time on all: it costs more a sample the longer the windows get, so that this speaks for the plain form.
struct Task {
    std::string name;
    std::function<QList<GazePoint>()> recording;
    StandardParameters parameters;
    qsizetype plainCount;
};

QList<GazePoint> normalGaze(double rateHz)
{
    return generatedGaze({.count = 1000000, .rateHz = rateHz});
}

/// A rest of a minute at 1000 Hz.
QList<GazePoint> minuteGaze(double noisePx, double driftPx)
{
    std::mt19937 random(7);
    std::normal_distribution<double> noise(0, noisePx);
    QList<GazePoint> samples;
    constexpr int count = 60000;
    for (int i = 0; i < count; ++i) {
        const double drift = driftPx * i / count;
        samples << GazePoint(i, 1000 + drift + noise(random), 700 + noise(random), 0, 0, 1);
    }
    return samples;
}

/// The worst case: two thirds of the samples stand at just the radius on either side of a median point that flips to
/// and fro, and still all of it is one fixation. Every sample has to be measured every time.
QList<GazePoint> flippingGaze(int count)
{
    constexpr double flip = 0.25;
    constexpr double x[] = {950 + flip, 1000 - flip, 1050 - flip, 950 + flip, 1000 + flip, 1050 - flip};
    QList<GazePoint> samples;
    for (int i = 0; i < count; ++i)
        samples << GazePoint(i, x[i % 6], 700, 0, 0, 1);
    return samples;
}

const std::vector<Task> &tasks()
{
    static const StandardParameters usual{100, 50, 4};
    static const std::vector<Task> all = {
        {"normalFixations/60Hz/1000000", [] { return normalGaze(60); }, usual, 1000000},
        {"normalFixations/500Hz/1000000", [] { return normalGaze(500); }, usual, 1000000},
        {"normalFixations/1250Hz/1000000", [] { return normalGaze(1250); }, usual, 500000},
        {"oneFixation/1000Hz/60000", [] { return minuteGaze(2, 0); }, usual, 10000},
        {"oneFixationDrifting/1000Hz/60000", [] { return minuteGaze(4, 60); }, usual, 10000},
        {"oneFixationWide/1000Hz/60000", [] { return minuteGaze(10, 0); }, {100, 50, 20}, 10000},
        {"noise/500Hz/200000", [] { return generatedGaze({.count = 200000, .noisePx = 40, .spikeShare = 0.05}); },
         usual, 50000},
        {"borderNoise/500Hz/200000", [] { return generatedGaze({.count = 200000, .noisePx = 20}); }, usual, 50000},
        {"worstCase/1000Hz/2000", [] { return flippingGaze(2000); }, {100, 50, 4}, 2000},
        {"worstCase/1000Hz/8000", [] { return flippingGaze(8000); }, {100, 50, 4}, 8000},
        {"worstCase/1000Hz/32000", [] { return flippingGaze(32000); }, {100, 50, 4}, 8000},
    };
    return all;
}

template <class Builder>
double secondsPerSample(const QList<GazePoint> &samples, Builder build)
{
    EyeData eye;
    eye.gazePoints = samples;
    const std::clock_t start = std::clock(); // processor time: other programs on the machine take no part in it
    build(eye);
    const std::clock_t elapsed = std::clock() - start;
    return static_cast<double>(elapsed) / CLOCKS_PER_SEC / static_cast<double>(samples.size());
}

void detect(benchmark::State &state, const Task &task)
{
    const QList<GazePoint> samples = task.recording();
    qsizetype fixations = 0;
    double fastest = 1e9;
    for (auto _ : state) {
        fastest = std::min(fastest, secondsPerSample(samples, [&](EyeData &eye) {
                               const StandardScanpathBuilder builder(eye, task.parameters, nullptr);
                               fixations = eye.scanpath.size();
                               benchmark::DoNotOptimize(builder.report());
                           }));
    }
    const double plain = secondsPerSample(samples.first(task.plainCount), [&](EyeData &eye) {
        const PlainStandardScanpathBuilder builder(eye, task.parameters);
        benchmark::DoNotOptimize(builder.report());
    });
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
