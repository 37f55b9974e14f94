// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/ClusterTransitions.h"
#include "visualization/modes/Picture.h"

#include <benchmark/benchmark.h>

#include <limits>
#include <random>

namespace {

constexpr TimeFrame allTime{0, std::numeric_limits<qint64>::max()};
constexpr qsizetype fixationsOfCluster = 10;

/// Fixations of four samples, one each 250 ms, anywhere on the canvas.
QList<Fixation> scanpathOf(qint64 count, unsigned seed = 1)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> place(0, 1599);
    QList<Fixation> scanpath(count);
    for (qint64 i = 0; i < count; ++i) {
        scanpath[i].mean = {place(random), place(random)};
        for (qint64 time = i * 250; time < i * 250 + 200; time += 50)
            scanpath[i].samples << GazePoint(time, 0, 0, 0, 0, 1);
    }
    return scanpath;
}

/// Each fixation lies in a cluster; neighbours in time lie in different ones.
QList<FixationCluster> clustersOf(const QList<Fixation> &scanpath)
{
    QList<FixationCluster> clusters(std::max<qsizetype>(1, scanpath.size() / fixationsOfCluster));
    for (qsizetype i = 0; i < scanpath.size(); ++i)
        clusters[i % clusters.size()].fixations << scanpath[i];
    return clusters;
}

void byIndex(benchmark::State &state)
{
    const QList<Fixation> scanpath = scanpathOf(state.range(0));
    const QList<FixationCluster> clusters = clustersOf(scanpath);
    for (auto _ : state) {
        const ClusterIndex index(clusters);
        benchmark::DoNotOptimize(countTransitions(index, {{scanpath, nullptr}}, TransitionType::Scanpath, allTime).sum);
    }
}

/// The plain form: each fixation is looked for in all clusters.
void bySearch(benchmark::State &state)
{
    const QList<Fixation> scanpath = scanpathOf(state.range(0));
    const QList<FixationCluster> clusters = clustersOf(scanpath);
    const auto clusterOf = [&](const Fixation &fixation) {
        for (qsizetype i = 0; i < clusters.size(); ++i) {
            for (const Fixation &member : clusters[i].fixations) {
                if (member.mean == fixation.mean && member.samples == fixation.samples)
                    return i;
            }
        }
        return qsizetype(-1);
    };
    for (auto _ : state) {
        int sum = 0;
        qsizetype previous = -1;
        for (const Fixation &fixation : scanpath) {
            const qsizetype cluster = clusterOf(fixation);
            sum += cluster >= 0 && previous >= 0 && cluster != previous;
            previous = cluster;
        }
        benchmark::DoNotOptimize(sum);
    }
}

/// Cumulative transitions of that many examinations of 300 fixations each: drawn once for each of them.
void cumulative(benchmark::State &state)
{
    DataModel model;
    EyeData &pool = model.pooled(Eye::Left);
    for (int i = 0; i < state.range(0); ++i) {
        Examination examination;
        examination.leftEye.scanpath = scanpathOf(300, static_cast<unsigned>(i));
        model.examinations() << examination;
        for (Fixation fixation : std::as_const(examination.leftEye.scanpath)) {
            fixation.examination = i;
            pool.scanpath << fixation;
        }
    }
    pool.fixationClusters = clustersOf(pool.scanpath).first(30);
    VisualizationParameters parameters;
    setInitialValues(parameters, rows::visualization);
    parameters.visualizationMode = 8;
    const VisualizationParameters none;
    const AoiVisualizationParameters areas;
    const DrawingContext context{model, EyeMode::showLeft, allTime, {{&none, &none, &parameters, &none}}, areas};
    for (auto _ : state)
        benchmark::DoNotOptimize(pictureOf(context).drawing.size());
}

BENCHMARK(byIndex)->Arg(1000)->Arg(4000)->Arg(16000)->Unit(benchmark::kMillisecond);
BENCHMARK(bySearch)->Arg(1000)->Arg(4000)->Arg(16000)->Unit(benchmark::kMillisecond);
BENCHMARK(cumulative)->Arg(10)->Arg(40)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
