// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Progress.h"
#include "clustering/ClusterSamples.h"
#include "clustering/MeanShiftClustering.h"
#include "clustering/OverlapClusters.h"
#include "clustering/PlainClusters.h"
#include "clustering/StandardClusterBuilder.h"

#include <benchmark/benchmark.h>

#include <ctime>
#include <functional>
#include <string>

namespace {

/// One task for a method and its plain form.
struct Task {
    std::string name;
    EyeData stream;
    std::function<void(EyeData &)> run;
    std::function<void(EyeData &)> plain;
};

/// Measures for how long nothing is shown, in processor time: a window stands still for as long.
class Gaps : public Progress::IDisplay {
public:
    explicit Gaps(double &longestMs) : m_longestMs(longestMs) {}
    void open(const QString &, int) override { note(); }
    void show(int) override { note(); }
    void close() override { note(); }

private:
    void note()
    {
        const std::clock_t now = std::clock();
        m_longestMs = std::max(m_longestMs, 1e3 * static_cast<double>(now - m_last) / CLOCKS_PER_SEC);
        m_last = now;
    }

    double &m_longestMs;
    std::clock_t m_last = std::clock();
};

/// In the progress of a caller, as in a calculation.
double longestGapMs(EyeData stream, const std::function<void(EyeData &)> &run)
{
    double longestMs = 0;
    auto before = Progress::install(std::make_unique<Gaps>(longestMs));
    {
        const Progress progress(QStringLiteral("all"), 1);
        run(stream);
    }
    Progress::install(std::move(before));
    return longestMs;
}

double seconds(EyeData stream, const std::function<void(EyeData &)> &run)
{
    const std::clock_t start = std::clock(); // processor time: other programs on the machine take no part in it
    run(stream);
    const std::clock_t elapsed = std::clock() - start;
    benchmark::DoNotOptimize(stream);
    return static_cast<double>(elapsed) / CLOCKS_PER_SEC;
}

/// Places of interest with fixations normally spread about them, over a picture of the usual size.
EyeData placesOfInterest(int count, int places, double spreadPx, unsigned seed = 3)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> uniform;
    std::normal_distribution<double> normal(0, spreadPx);
    std::vector<QPointF> centres;
    for (int i = 0; i < places; ++i)
        centres.emplace_back(uniform(random) * 1920, uniform(random) * 1080);
    EyeData made;
    for (int i = 0; i < count; ++i) {
        const QPointF centre = centres[static_cast<size_t>(uniform(random) * places)];
        const QPoint mean(static_cast<int>(centre.x() + normal(random)), static_cast<int>(centre.y() + normal(random)));
        made.scanpath << samples::fixation(mean, 8, {6, 2}, {-1, 3}, 200 * i);
    }
    return made;
}

Task standard(const std::string &name, const EyeData &stream, const StandardClusterParameters &parameters)
{
    return {"standard/" + name, stream,
            [=](EyeData &eye) {
                StandardClusterBuilder(parameters).buildClusters(eye, StandardClusterBuilder::FinalSort::No);
            },
            [=](EyeData &eye) { plain::standardClusters(eye, parameters); }};
}

Task overlap(const std::string &name, const EyeData &stream)
{
    return {"overlap/" + name, stream,
            [](EyeData &eye) {
                buildOverlapClusters(eye, {3, std::nullopt});
            },
            [](EyeData &eye) { plain::overlapClusters(eye, 3); }};
}

Task meanShift(const std::string &name, const EyeData &stream)
{
    const auto centroids = [](const EyeData &eye) {
        std::vector<double> data;
        for (const Fixation &each : eye.scanpath) {
            data.push_back(each.mean.x());
            data.push_back(each.mean.y());
        }
        return data;
    };
    return {"meanShift/" + name, stream,
            [=](EyeData &eye) {
                MeanShiftClustering clustering;
                clustering.arrived = [] { Progress::refresh(); };
                clustering.cluster(centroids(eye), 100, 0.25, 50, 0);
                eye.fixationClusters.resize(static_cast<qsizetype>(clustering.labels.back()));
            },
            [=](EyeData &eye) { benchmark::DoNotOptimize(plain::meanShiftLabels(centroids(eye), {})); }};
}

std::vector<Task> tasks()
{
    return {
        standard("places/1000", placesOfInterest(1000, 12, 40), {5, 0, 100}),
        standard("places/5000", placesOfInterest(5000, 12, 40), {5, 0, 100}),
        standard("spread/2000", samples::randomStream({.count = 2000, .widthPx = 1900}, 1), {5, 0, 100}),
        standard("tooFewForAnyCluster/2000", placesOfInterest(2000, 12, 40), {2000, 0, 100}),
        overlap("places/500", placesOfInterest(500, 12, 40)),
        overlap("places/3000", placesOfInterest(3000, 12, 40)),
        overlap("spread/500", samples::randomStream({.count = 500, .widthPx = 1900}, 1)),
        meanShift("places/1000", placesOfInterest(1000, 12, 40)),
        meanShift("places/5000", placesOfInterest(5000, 12, 40)),
        meanShift("spread/5000", samples::randomStream({.count = 5000, .widthPx = 1900}, 1)),
    };
}

void measure(benchmark::State &state, const Task &task)
{
    double fastest = 1e9;
    for (auto _ : state)
        fastest = std::min(fastest, seconds(task.stream, task.run));
    EyeData result = task.stream;
    task.run(result);
    const double plain = seconds(task.stream, task.plain);
    state.counters["clusters"] = static_cast<double>(result.fixationClusters.size());
    state.counters["ms"] = 1e3 * fastest;
    state.counters["plain_ms"] = 1e3 * plain;
    state.counters["gap_ms"] = longestGapMs(task.stream, task.run);
    state.counters["ratio"] = plain / fastest;
}

} // namespace

int main(int argc, char **argv)
{
    for (const Task &task : tasks())
        benchmark::RegisterBenchmark(task.name.c_str(), measure, task)->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
