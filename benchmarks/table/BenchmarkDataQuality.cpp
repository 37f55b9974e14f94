// SPDX-License-Identifier: GPL-3.0-or-later
// Speed of measuring data quality, beside the plain form and beside the import of the same recording, which it must not
// slow down.

#include "detection/FixationCalculation.h"
#include "gaze-simulator/RecordingWriter.h"
#include "import/DataImporter.h"
#include "model/DataModel.h"
#include "table/DataQuality.h"
#include "table/PlainQuality.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>

namespace {

const QSizeF screen(1280, 1024);
constexpr TimeFrame whole{0, 1'000'000'000};

/// Both eyes at 500 Hz.
QByteArray recorded(int samples)
{
    SimulationParameters person;
    person.rateHz = 500;
    person.durationS = samples / person.rateHz;
    person.lossesPerMin = 10;
    GazeSimulator simulator(person, plainSaliency({1280, 1024}));
    QByteArray text = recording::header();
    for (qint64 i = 0; i < simulator.sampleCount(); ++i)
        recording::appendLine(text, simulator.next());
    return text;
}

Examination imported(const QByteArray &text)
{
    Examination examination;
    if (!DataImporter({}, &examination, nullptr).readBytes(text))
        qFatal("a simulated recording was not read");
    return examination;
}

Examination withFixations(const QByteArray &text)
{
    DataModel model;
    model.examinations() << imported(text);
    calculateFixations(model, StandardParameters{.minimumDurationMs = 80, .maximumRadiusPx = 40, .allowedOutliers = 1},
                       nullptr, 1);
    return std::as_const(model).examinations()[0];
}

double seconds(const std::function<void()> &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Quality through both eyes; beside it how often as long the plain form and the import take.
void quality(benchmark::State &state)
{
    const QByteArray text = recorded(static_cast<int>(state.range(0)));
    const Examination examination = withFixations(text);
    const auto ours = [&] {
        benchmark::DoNotOptimize(dataQuality(examination, {Eye::Left, Eye::Right}, {whole, screen, {}}));
    };
    for (auto _ : state)
        ours();
    const double oursS = seconds(ours);
    const double plainS = seconds([&] {
        for (const Eye eye : {Eye::Left, Eye::Right})
            benchmark::DoNotOptimize(plain::quality(examination, eye, whole, screen));
    });
    const double importS = seconds([&] { benchmark::DoNotOptimize(imported(text)); });
    state.counters["plain/ours"] = plainS / oursS;
    state.counters["import/ours"] = importS / oursS;
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(quality)->Name("dataQuality")->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
