// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/charts/ChartBins.h"

#include "base/Truncation.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace chart {

BinScale binScale(TimeFrame frame, int windowMs)
{
    constexpr int leastWindowMs = 10;
    constexpr double narrowing = 2; // bins
    const double durationMs = static_cast<double>(frame.endMs) - static_cast<double>(frame.startMs);
    const double msPerBin = durationMs > 0 ? durationMs / binCount : 1.0;
    const int window = windowMs < 1 ? leastWindowMs : windowMs;
    const double half = std::trunc(window / msPerBin + 0.5) - narrowing;
    return {static_cast<double>(frame.startMs), msPerBin, std::max(0.0, half)};
}

BinRange binsOf(const BinScale &scale, qint64 startMs, double durationMs)
{
    const auto binAt = [&](double timeMs) { return std::floor((timeMs - scale.startMs) / scale.msPerBin + 0.5); };
    const auto start = static_cast<double>(startMs);
    const int first = std::max(0, truncated(binAt(start) - scale.half));
    int last = std::min(binCount - 1, truncated(binAt(start + durationMs) + scale.half));
    if (last < first)
        last = truncated(first + scale.half);
    return {first, std::min(last, binCount - 1)};
}

void addEvent(QList<double> &bins, BinRange range, double weight)
{
    for (int bin = range.first; bin <= range.last; ++bin)
        bins[bin] += weight;
}

QList<double> emptyBins()
{
    return QList<double>(binCount, 0.0);
}

double largest(const QList<double> &bins)
{
    return std::accumulate(bins.cbegin(), bins.cend(), 0.0, [](double a, double b) { return std::max(a, b); });
}

} // namespace chart
