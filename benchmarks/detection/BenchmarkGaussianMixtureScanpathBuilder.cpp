#include "detection/GaussianMixtureScanpathBuilder.h"
#include "detection/GeneratedGaze.h"

#include <benchmark/benchmark.h>
#include <opencv2/ml.hpp>

#include <cmath>
#include <ctime>

namespace {

double seconds(auto run)
{
    const std::clock_t start = std::clock(); // processor time, of all threads
    run();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// What the plain form does on top: it asks a model for each single step, though the labels of the fit tell already.
double secondsOfPredictions(const QList<GazePoint> &samples)
{
    cv::Mat1f lengths(static_cast<int>(samples.size()) - 1, 1);
    for (int i = 0; i < lengths.rows; ++i)
        lengths(i) = static_cast<float>(std::hypot(samples[i + 1].x - samples[i].x, samples[i + 1].y - samples[i].y));
    const cv::Ptr<cv::ml::EM> model = cv::ml::EM::create();
    model->setClustersNumber(2);
    model->trainEM(lengths);
    return seconds([&] {
        for (int i = 0; i < lengths.rows; ++i)
            benchmark::DoNotOptimize(model->predict2(lengths.row(i), cv::noArray()));
    });
}

/// The whole detector, and beside it what the fit takes of it: that share should be nearly all.
void detect(benchmark::State &state, bool merges)
{
    const QList<GazePoint> samples = generatedGaze({.count = static_cast<int>(state.range(0)), .lossShare = 0});
    qsizetype fixations = 0;
    double fastest = 1e9;
    double fit = 1e9;
    for (auto _ : state) {
        QList<Fixation> scanpath;
        fastest = std::min(fastest, seconds([&] {
                               const GaussianMixtureScanpathBuilder builder(samples, &scanpath, {100, merges});
                               benchmark::DoNotOptimize(builder.failure());
                           }));
        fit = std::min(fit, seconds([&] { benchmark::DoNotOptimize(labelSteps(samples)); }));
        fixations = scanpath.size();
    }
    state.counters["fixations"] = static_cast<double>(fixations);
    state.counters["Msamples/s"] = 1e-6 * static_cast<double>(samples.size()) / fastest;
    state.counters["share_of_fit"] = fit / fastest;
    state.counters["ratio"] = (fastest + secondsOfPredictions(samples)) / fastest;
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

BENCHMARK_CAPTURE(detect, apart, false)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detect, merging, true)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(walk)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
