// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/ScanpathMeasures.h"

#include "statistics/AoiEntropy.h"
#include "statistics/Quotient.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using M = ScanpathMeasures;
using Value = std::optional<double>;
using Text = QLatin1StringView;

template <auto Member>
Value scanpathValue(const M &measures)
{
    return measures.*Member;
}

constexpr Measure<M> columns[] = {
    {Text("fixations"), scanpathValue<&M::fixations>},
    {Text("saccades"), scanpathValue<&M::saccades>},
    {Text("mean_fixation_duration_ms"), scanpathValue<&M::fixationDurationMs>},
    {Text("mean_saccade_duration_ms"), scanpathValue<&M::saccadeDurationMs>},
    {Text("mean_saccade_amplitude_px"), scanpathValue<&M::amplitudePx>},
    {Text("mean_saccade_amplitude_deg"), scanpathValue<&M::amplitudeDegrees>},
    {Text("scanpath_length_px"), scanpathValue<&M::lengthPx>},
    {Text("transition_entropy_bit"), scanpathValue<&M::transitionEntropyBits>},
    {Text("stationary_entropy_bit"), scanpathValue<&M::stationaryEntropyBits>},
    {Text("gaze_entropy_bit"), scanpathValue<&M::gazeEntropyBits>},
    {Text("convex_hull_area_px2"), scanpathValue<&M::hullAreaPx2>},
    {Text("bcea_px2"), scanpathValue<&M::bceaPx2>},
    {Text("valid_sample_share"), scanpathValue<&M::validShare>},
};

void measureScanpath(M &measures, const QList<const Fixation *> &fixations, std::optional<double> pixelPerDistance)
{
    double fixationMs = 0;
    double saccadeMs = 0;
    double lengthPx = 0;
    double degrees = 0;
    for (qsizetype i = 0; i < fixations.size(); ++i) {
        fixationMs += fixations[i]->duration();
        if (i == 0)
            continue;
        const QPoint from = fixations[i - 1]->mean;
        const QPoint to = fixations[i]->mean;
        const double px = std::hypot(double(to.x()) - from.x(), double(to.y()) - from.y());
        lengthPx += px;
        degrees += std::atan(px * pixelPerDistance.value_or(0)) * 180 / std::numbers::pi;
        saccadeMs += static_cast<double>(elapsedMs(fixations[i - 1]->lastTime(), fixations[i]->firstTime()));
    }
    measures.fixations = static_cast<int>(fixations.size());
    measures.saccades = std::max(0, measures.fixations - 1);
    measures.fixationDurationMs = quotientOrNone(fixationMs, measures.fixations);
    measures.saccadeDurationMs = quotientOrNone(saccadeMs, measures.saccades);
    measures.amplitudePx = quotientOrNone(lengthPx, measures.saccades);
    if (pixelPerDistance)
        measures.amplitudeDegrees = quotientOrNone(degrees, measures.saccades);
    if (measures.saccades > 0)
        measures.lengthPx = lengthPx;
}

/// Of overlapping areas the first one has the fixation; fixations in no area are passed over.
QList<int> firstAreasOf(const QList<const Fixation *> &fixations, const AoiIndex &index)
{
    QList<int> areas;
    for (const Fixation *fixation : fixations) {
        for (qsizetype i = 0; i < index.size(); ++i) {
            if (index[i].winding.contains(fixation->mean)) {
                areas << static_cast<int>(i);
                break;
            }
        }
    }
    return areas;
}

/// Twice the signed area of the triangle; above 0 where c lies to one side of the line from a to b.
double doubledArea(QPoint a, QPoint b, QPoint c)
{
    return (double(b.x()) - a.x()) * (double(c.y()) - a.y()) - (double(b.y()) - a.y()) * (double(c.x()) - a.x());
}

/// By the monotone chain of Andrew (1979), IPL 9(5).
Value hullArea(QList<QPoint> points)
{
    constexpr qsizetype fewest = 3;
    if (points.size() < fewest)
        return {};
    std::sort(points.begin(), points.end(),
              [](QPoint a, QPoint b) { return std::pair(a.x(), a.y()) < std::pair(b.x(), b.y()); });
    QList<QPoint> hull;
    const auto go = [&hull](auto begin, auto end) {
        const qsizetype base = hull.size();
        for (auto point = begin; point != end; ++point) {
            while (hull.size() >= base + 2 && doubledArea(hull[hull.size() - 2], hull.last(), *point) <= 0)
                hull.removeLast();
            hull << *point;
        }
        hull.removeLast(); // the first of the other half
    };
    go(points.cbegin(), points.cend());
    go(points.crbegin(), points.crend());
    double doubled = 0;
    for (qsizetype i = 2; i < hull.size(); ++i)
        doubled += doubledArea(hull[0], hull[i - 1], hull[i]);
    return std::abs(doubled) / 2;
}

/// 2 k pi sx sy sqrt(1 - r^2) with the deviations of a sample (Crossland & Rubin 2002, OVS 79(11)).
Value bcea(const QList<QPointF> &places)
{
    constexpr double share = 0.682;
    const auto count = static_cast<double>(places.size());
    if (places.size() < 3)
        return {};
    QPointF mean;
    for (const QPointF &place : places)
        mean += place / count;
    double xx = 0;
    double yy = 0;
    double xy = 0;
    for (const QPointF &place : places) {
        const QPointF off = place - mean;
        xx += off.x() * off.x() / (count - 1);
        yy += off.y() * off.y() / (count - 1);
        xy += off.x() * off.y() / (count - 1);
    }
    const double k = -std::log(1 - share);
    return 2 * k * std::numbers::pi * std::sqrt(std::max(0.0, xx * yy - xy * xy));
}

void measureSamples(M &measures, const QList<GazePoint> &samples, TimeFrame frame)
{
    QList<QPointF> places;
    qsizetype inFrame = 0;
    for (const GazePoint &sample : samples) {
        if (!frame.contains(sample.time))
            continue;
        ++inFrame;
        if (sample.validFlag)
            places << QPointF(sample.x, sample.y);
    }
    measures.bceaPx2 = bcea(places);
    measures.validShare = quotientOrNone(static_cast<double>(places.size()), static_cast<double>(inFrame));
}

} // namespace

ScanpathMeasures scanpathMeasures(const EyeData &stream, const AoiIndex &index, TimeFrame frame,
                                  std::optional<double> pixelPerDistance)
{
    QList<const Fixation *> fixations;
    QList<QPoint> places;
    for (const Fixation &fixation : stream.scanpath) {
        if (frame.holds(fixation)) {
            fixations << &fixation;
            places << fixation.mean;
        }
    }
    ScanpathMeasures measures;
    measureScanpath(measures, fixations, pixelPerDistance);
    const AoiEntropy entropy = aoiEntropy(firstAreasOf(fixations, index));
    measures.transitionEntropyBits = entropy.transition;
    measures.stationaryEntropyBits = entropy.stationary;
    measures.gazeEntropyBits = entropy.gaze;
    measures.hullAreaPx2 = hullArea(places);
    measureSamples(measures, stream.gazePoints, frame);
    return measures;
}

std::span<const Measure<ScanpathMeasures>> scanpathMeasureColumns()
{
    return columns;
}
