// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Canvas.h"
#include "model/PolygonIndex.h"

#include <benchmark/benchmark.h>

#include <ctime>
#include <limits>
#include <numbers>
#include <random>

// The hit test of all samples of a study in all of its areas, beside QPolygon::containsPoint.

namespace {

constexpr int areaCount = 20;
constexpr int vertexCount = 50;

/// Stars about random centres.
std::vector<QPolygon> areas()
{
    std::mt19937 random(1);
    std::uniform_int_distribution<int> x(0, canvas::width - 1);
    std::uniform_int_distribution<int> y(0, canvas::height - 1);
    std::uniform_real_distribution<double> radius(100, 400);
    std::vector<QPolygon> polygons(areaCount);
    for (QPolygon &polygon : polygons) {
        const QPoint center(x(random), y(random));
        for (int i = 0; i < vertexCount; ++i) {
            const double angle = 2 * std::numbers::pi * i / vertexCount;
            polygon << (QPointF(center) + radius(random) * QPointF(std::cos(angle), std::sin(angle))).toPoint();
        }
    }
    return polygons;
}

/// Everywhere, without any order: the worst for a table of rows.
std::vector<QPoint> samples(int count)
{
    std::mt19937 random(2);
    std::uniform_int_distribution<int> x(0, canvas::width - 1);
    std::uniform_int_distribution<int> y(0, canvas::height - 1);
    std::vector<QPoint> positions;
    for (int i = 0; i < count; ++i)
        positions.emplace_back(x(random), y(random));
    return positions;
}

int hitsByIndex(const std::vector<QPolygon> &polygons, const std::vector<QPoint> &positions)
{
    int hits = 0;
    for (const QPolygon &polygon : polygons) {
        const PolygonIndex index(polygon, Qt::WindingFill);
        for (const QPoint position : positions)
            hits += index.contains(position) ? 1 : 0;
    }
    return hits;
}

int hitsByPolygon(const std::vector<QPolygon> &polygons, const std::vector<QPoint> &positions)
{
    int hits = 0;
    for (const QPolygon &polygon : polygons) {
        for (const QPoint position : positions)
            hits += polygon.containsPoint(position, Qt::WindingFill) ? 1 : 0;
    }
    return hits;
}

double processorMs()
{
    return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void hitTests(benchmark::State &state)
{
    const std::vector<QPolygon> polygons = areas();
    const std::vector<QPoint> positions = samples(static_cast<int>(state.range(0)));
    int hits = 0;
    double fastestMs = std::numeric_limits<double>::max();
    for (auto _ : state) {
        const double startMs = processorMs();
        hits = hitsByIndex(polygons, positions);
        fastestMs = std::min(fastestMs, processorMs() - startMs);
    }
    const double startMs = processorMs();
    if (hitsByPolygon(polygons, positions) != hits)
        state.SkipWithError("other hits than QPolygon's");
    const double plainMs = processorMs() - startMs;
    state.counters["hits"] = hits;
    state.counters["plain_ms"] = plainMs;
    state.counters["plain_ratio"] = plainMs / fastestMs;
}
BENCHMARK(hitTests)->Arg(1000000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
