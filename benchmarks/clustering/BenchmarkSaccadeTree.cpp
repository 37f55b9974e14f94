// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Progress.h"
#include "clustering/PlainSaccadeTree.h"
#include "clustering/SaccadeSamples.h"

#include <benchmark/benchmark.h>

#include <ctime>
#include <functional>
#include <string>

namespace {

using Matrix = std::function<DistanceMatrix(int)>;

DistanceMatrix directions(int count)
{
    return samples::matrixOf(samples::randomSaccades(count, 1, 5),
                             [](auto &a, auto &b) { return angleDistance(a, b, Direction::Counts); });
}

DistanceMatrix places(int count)
{
    return samples::matrixOf(samples::randomSaccades(count, 1, 5),
                             [](auto &a, auto &b) { return segmentDistance(a, b, DistanceAlgorithm::Euclidean); });
}

/// Few distances give many ties.
DistanceMatrix ties(int count)
{
    return plain::randomDistances(static_cast<size_t>(count), 20, 5);
}

double seconds(const std::function<void()> &work)
{
    const std::clock_t start = std::clock(); // processor time: other programs on the machine take no part in it
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void tree(benchmark::State &state, const Matrix &matrix, Linkage linkage)
{
    constexpr int largestPlain = 1000;
    const DistanceMatrix distances = matrix(static_cast<int>(state.range(0)));
    Progress progress(QString(), 0);
    double spent = 0;
    for (auto _ : state)
        spent += seconds([&] { benchmark::DoNotOptimize(agglomerate(distances, linkage, progress)); });
    if (state.range(0) <= largestPlain) {
        const double plainSpent = seconds([&] { benchmark::DoNotOptimize(plain::agglomerate(distances, linkage)); });
        state.counters["ratio to plain"] = plainSpent * static_cast<double>(state.iterations()) / spent;
    }
}

void add(const std::string &name, const Matrix &matrix, Linkage linkage)
{
    auto *added = benchmark::RegisterBenchmark(("saccadeTree/" + name).c_str(),
                                               [=](benchmark::State &state) { tree(state, matrix, linkage); });
    for (const int count : {500, 1000, 2000, 4000})
        added->Arg(count);
    added->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char **argv)
{
    const std::pair<Linkage, std::string> linkages[] = {
        {Linkage::Average, "average"}, {Linkage::Maximum, "maximum"}, {Linkage::Minimum, "minimum"}};
    for (const auto &[linkage, name] : linkages) {
        add("directions/" + name, directions, linkage);
        add("places/" + name, places, linkage);
        add("ties/" + name, ties, linkage);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
