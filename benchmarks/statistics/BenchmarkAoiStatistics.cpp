// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Truncation.h"
#include "statistics/AoiMeasures.h"
#include "statistics/StatisticsCalculation.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <numbers>
#include <random>

// All statistics of 100 recordings of 60,000 samples with 20 areas of 50 vertices. The plain form asks
// QPolygon::containsPoint for each sample and area, by either rule, and does nothing with the answers.

namespace {

constexpr int samplesOfRecording = 60000;
constexpr TimeFrame allTime{0, 1000000};

/// Fixations of 60 samples, each in a place of its own, with a little jitter.
QList<GazePoint> recording(unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> x(0, 2560);
    std::uniform_real_distribution<double> y(0, 1600);
    std::normal_distribution<double> jitter(0, 8);
    QList<GazePoint> samples;
    samples.reserve(samplesOfRecording);
    QPointF place;
    for (int i = 0; i < samplesOfRecording; ++i) {
        if (i % 60 == 0)
            place = {x(random), y(random)};
        samples << GazePoint(i * 4, place.x() + jitter(random), place.y() + jitter(random), 0, 0, 1);
    }
    return samples;
}

/// Round areas with a wavy border in four rows of five.
QList<AreaOfInterest> areas()
{
    QList<AreaOfInterest> made;
    for (int number = 0; number < 20; ++number) {
        QPolygon polygon;
        for (int vertex = 0; vertex < 50; ++vertex) {
            const double angle = 2 * std::numbers::pi * vertex / 50;
            const double radius = 150 + 20 * std::sin(7 * angle);
            polygon << QPoint(256 + number % 5 * 512 + int(radius * std::cos(angle)),
                              200 + number / 5 * 400 + int(radius * std::sin(angle)));
        }
        made << AreaOfInterest(QString::number(number), polygon);
    }
    return made;
}

DataModel modelOf(int recordings)
{
    DataModel model;
    for (int i = 0; i < recordings; ++i) {
        Examination examination;
        examination.leftEye.gazePoints = recording(static_cast<unsigned>(i));
        model.examinations() << examination;
    }
    for (const AreaOfInterest &area : areas())
        model.insertAoi(area);
    model.setTimeFrame(allTime);
    return model;
}

void allStatistics(benchmark::State &state)
{
    DataModel model = modelOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        calculateGeneralStatistics(model, nullptr);
        calculateAoiStatistics(model, nullptr);
    }
}

void plainHitTests(benchmark::State &state)
{
    const DataModel model = modelOf(static_cast<int>(state.range(0)));
    const QList<AreaOfInterest> list = model.aoiList();
    for (auto _ : state) {
        qint64 inside = 0;
        for (const Examination &examination : model.examinations()) {
            for (const GazePoint &sample : examination.leftEye.gazePoints) {
                const QPoint pixel(truncated(sample.x), truncated(sample.y));
                for (const AreaOfInterest &area : list)
                    inside += area.contains(pixel, Qt::WindingFill) + area.contains(pixel, Qt::OddEvenFill);
            }
        }
        benchmark::DoNotOptimize(inside);
    }
}

/// The same on one core.
void oneStream(benchmark::State &state)
{
    EyeData stream;
    stream.gazePoints = recording(1);
    const QList<AreaOfInterest> list = areas();
    const AoiIndex index(list);
    for (auto _ : state)
        benchmark::DoNotOptimize(aoiStatistics(stream, list, index, allTime).size());
}

BENCHMARK(allStatistics)->Arg(100)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(plainHitTests)->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(oneStream)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
