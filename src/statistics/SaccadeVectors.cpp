// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/SaccadeVectors.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr qsizetype numbersPerTriple = 3;
constexpr double fullTurn = 2 * std::numbers::pi;

bool liesInside(const Fixation &fixation, TimeFrame frame)
{
    return frame.contains(fixation.firstTime()) && frame.contains(fixation.lastTime());
}

/// Straight to the right is a full turn, not 0, so that it counts among the directions a little below the horizontal:
/// in the last bin. That is kept; the usual form puts it at 0, in the first bin.
double direction(double dx, double dy, double length)
{
    return dy / length < 0 ? std::acos(dx / length) : std::acos(-dx / length) + std::numbers::pi;
}

/// Calls `take` with the fixation that each saccade leaves, its way on both axes and along it, and its duration.
template <class Take>
void forEachSaccade(const EyeData &eye, TimeFrame frame, const Take &take)
{
    const QList<Fixation> &scanpath = eye.scanpath;
    for (qsizetype i = 1; i < scanpath.size(); ++i) {
        const Fixation &from = scanpath[i - 1];
        const Fixation &to = scanpath[i];
        if (!liesInside(from, frame) || !liesInside(to, frame) || from.mean == to.mean)
            continue;
        const double dx = double(to.mean.x()) - from.mean.x();
        const double dy = double(to.mean.y()) - from.mean.y();
        const double length = std::sqrt(dx * dx + dy * dy); // never rounded below |dx|, as std::acos needs it
        take(from, dx, dy, length, static_cast<double>(elapsedMs(from.lastTime(), to.firstTime())));
    }
}

} // namespace

qsizetype tripleCount(const QList<double> &triples)
{
    return triples.size() / numbersPerTriple;
}

SaccadeTriple tripleAt(const QList<double> &triples, qsizetype index)
{
    const qsizetype first = index * numbersPerTriple;
    return {triples[first], triples[first + 1], triples[first + 2]};
}

QList<double> saccadeVectors(const EyeData &eye, TimeFrame frame)
{
    QList<double> triples;
    forEachSaccade(eye, frame, [&](const Fixation &, double dx, double dy, double length, double durationMs) {
        triples << direction(dx, dy, length) << length << durationMs;
    });
    return triples;
}

QList<TimedSaccade> timedSaccades(const EyeData &eye, TimeFrame frame)
{
    QList<TimedSaccade> saccades;
    forEachSaccade(eye, frame, [&](const Fixation &from, double, double, double length, double durationMs) {
        saccades << TimedSaccade{from.lastTime(), length, durationMs};
    });
    return saccades;
}

AngleStarBins angleStarBins(const QList<double> &triples, int bins)
{
    constexpr int mostBins = 360;
    const int count = std::clamp(bins, 1, mostBins);
    const double binWidth = fullTurn / count;
    AngleStarBins star{QList<double>(count), QList<double>(count), QList<double>(count)};
    for (qsizetype i = 0; i < tripleCount(triples); ++i) {
        const SaccadeTriple saccade = tripleAt(triples, i);
        const int bin = std::min(static_cast<int>(saccade.angle / binWidth), count - 1);
        star.quantity[bin] += 1;
        star.meanLength[bin] += saccade.length;
        star.meanDuration[bin] += saccade.duration;
    }
    for (int bin = 0; bin < count; ++bin) {
        if (star.quantity[bin] > 0) {
            star.meanLength[bin] /= star.quantity[bin];
            star.meanDuration[bin] /= star.quantity[bin];
        }
    }
    return star;
}
