// SPDX-License-Identifier: GPL-3.0-or-later
// Speed of reading recordings in millimetres, beside the plain form of the same reader.

#include "import/ilmenau/MillimetreText.h"
#include "import/PlainMillimetreText.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <random>

namespace {

constexpr StimulusSize size{1920, 1080, 531, 299};

QByteArray recording(qsizetype samples)
{
    std::mt19937 random(1);
    std::normal_distribution<double> place(0, 100);
    QByteArray bytes = "frame\tsits\tLspx\tLspy\tRspx\tRspy\tLpupil\tRpupil\n";
    for (qsizetype i = 0; i < samples; ++i) {
        const qsizetype second = i / 500;
        bytes += QByteArray::number(i) + '\t' + QByteArray::number(10 + second / 3600) + ':' +
                 QByteArray::number(second / 60 % 60) + ':' + QByteArray::number(second % 60) + '.' +
                 QByteArray::number(i % 500 * 2).rightJustified(3, '0');
        for (int field = 0; field < 6; ++field)
            bytes += '\t' + QByteArray::number(place(random), 'f', 2);
        bytes += '\n';
    }
    return bytes;
}

void parse(benchmark::State &state)
{
    const QByteArray bytes = recording(state.range(0));
    const auto clock = [] { return std::chrono::steady_clock::now(); };
    double ours = 0;
    for (auto _ : state) {
        const auto begin = clock();
        benchmark::DoNotOptimize(readMillimetreText(bytes, size));
        ours += std::chrono::duration<double>(clock() - begin).count();
    }
    ours /= static_cast<double>(state.iterations());
    const auto begin = clock();
    benchmark::DoNotOptimize(plainMillimetres(bytes, size));
    const double plain = std::chrono::duration<double>(clock() - begin).count();
    state.counters["MB/s"] = static_cast<double>(bytes.size()) / 1e6 / ours;
    state.counters["plain_MB/s"] = static_cast<double>(bytes.size()) / 1e6 / plain;
    state.counters["ratio"] = plain / ours;
}

} // namespace

BENCHMARK(parse)->Arg(500'000)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
