// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/FixationPrecision.h"

#include "base/Averages.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr qint64 fewestSamples = 3;

/// Sums over the usable samples of one fixation, places taken from the first of them, so that squares stay small.
struct Sums {
    qint64 count = 0;
    double x = 0;
    double y = 0;
    double xx = 0;
    double yy = 0;
    double xy = 0;
    qint64 pairs = 0;
    double squaredPx = 0;
};

Sums sumsOf(std::span<const GazePoint> samples, double gapAfterMs)
{
    Sums sums;
    const GazePoint *first = nullptr;
    const GazePoint *before = nullptr;
    for (const GazePoint &sample : samples) {
        if (!isUsable(sample)) {
            before = nullptr;
            continue;
        }
        first = first ? first : &sample;
        const double x = sample.x - first->x;
        const double y = sample.y - first->y;
        ++sums.count;
        sums.x += x;
        sums.y += y;
        sums.xx += x * x;
        sums.yy += y * y;
        sums.xy += x * y;
        const qint64 stepMs = before ? elapsedMs(before->time, sample.time) : -1;
        if (stepMs >= 0 && static_cast<double>(stepMs) <= gapAfterMs) {
            const double dx = sample.x - before->x;
            const double dy = sample.y - before->y;
            ++sums.pairs;
            sums.squaredPx += dx * dx + dy * dy;
        }
        before = &sample;
    }
    return sums;
}

} // namespace

double bceaOf(double xx, double yy, double xy)
{
    constexpr double share = 0.682;
    const double k = -std::log(1 - share);
    return 2 * k * std::numbers::pi * std::sqrt(std::max(0.0, xx * yy - xy * xy));
}

FixationPrecision fixationPrecision(const QList<Fixation> &fixations, TimeFrame frame, double gapAfterMs)
{
    FixationPrecision precision;
    std::vector<double> rms;
    std::vector<double> deviations;
    std::vector<double> areas;
    for (const Fixation &fixation : fixations) {
        if (!frame.holds(fixation))
            continue;
        const Sums sums = sumsOf(fixation.samples, gapAfterMs);
        if (sums.count < fewestSamples)
            continue;
        const auto n = static_cast<double>(sums.count);
        const double xx = std::max(0.0, (sums.xx - sums.x * sums.x / n) / (n - 1));
        const double yy = std::max(0.0, (sums.yy - sums.y * sums.y / n) / (n - 1));
        ++precision.fixations;
        deviations.push_back(std::sqrt(xx + yy));
        areas.push_back(bceaOf(xx, yy, (sums.xy - sums.x * sums.y / n) / (n - 1)));
        if (sums.pairs > 0)
            rms.push_back(std::sqrt(sums.squaredPx / static_cast<double>(sums.pairs)));
    }
    precision.rmsPx = medianOf(rms);
    precision.deviationPx = medianOf(deviations);
    precision.bceaPx2 = medianOf(areas);
    return precision;
}
