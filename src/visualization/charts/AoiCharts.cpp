// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/charts/AoiCharts.h"

#include "base/Truncation.h"
#include "statistics/AoiTransitions.h"
#include "visualization/charts/ChartBins.h"
#include "visualization/selection/DataSelection.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

constexpr double percent = 100;

chart::BinScale areaScale(const DrawingContext &context)
{
    return chart::binScale(context.frame, context.areas.timeWindowMs);
}

/// For each area the bins in which one examination looked into it: 1 or 0.
QList<QList<double>> looksOf(const Examination &examination, const QList<AreaOfInterest> &areas,
                             const DrawingContext &context)
{
    const chart::BinScale scale = areaScale(context);
    QList<QList<double>> looks(areas.size(), chart::emptyBins());
    for (const ExaminationEye &each : eyesToDraw(examination, context.eyeMode)) {
        const QList<Fixation> &scanpath = each.stream().scanpath;
        const auto [begin, end] = sectionsInFrame(scanpath, context.frame);
        for (qsizetype i = begin; i < end; ++i) {
            const chart::BinRange range = chart::binsOf(scale, scanpath[i].firstTime(), scanpath[i].duration());
            for (qsizetype area = 0; area < areas.size(); ++area) {
                if (range.first <= range.last && areas[area].contains(scanpath[i].mean, Qt::WindingFill))
                    std::fill(looks[area].begin() + range.first, looks[area].begin() + range.last + 1, 1.0);
            }
        }
    }
    return looks;
}

/// Sum over the examinations, for each area.
QList<QList<double>> lookers(const QList<AreaOfInterest> &areas, const DrawingContext &context)
{
    QList<QList<double>> sums(areas.size(), chart::emptyBins());
    for (const Examination *examination : context.model.checkedExaminations()) {
        const QList<QList<double>> looks = looksOf(*examination, areas, context);
        for (qsizetype area = 0; area < areas.size(); ++area)
            std::transform(sums[area].cbegin(), sums[area].cend(), looks[area].cbegin(), sums[area].begin(),
                           std::plus<>());
    }
    return sums;
}

/// Of n examinations `count` looked: ones and zeros have known squares about their mean.
double deviationOf(double count, double examinations)
{
    const double mean = count / examinations;
    const double squares = count * (1 - mean) * (1 - mean) + (examinations - count) * mean * mean;
    return std::sqrt(squares) / examinations;
}

/// A mixture in which the way back has its share, too.
QColor mixedByCount(const QColor &own, double there, const QColor &other, double back)
{
    const double both = there + back > 0 ? there + back : 1;
    const auto channel = [&](int ofOwn, int ofOther) { return truncated((ofOwn * there + ofOther * back) / both); };
    return {channel(own.red(), other.red()), channel(own.green(), other.green()), channel(own.blue(), other.blue())};
}

QColor opaque(QColor color)
{
    color.setAlphaF(1);
    return color;
}

struct AreaStep {
    qsizetype from;
    qsizetype to;
    chart::BinRange bins;
};

/// The transitions between different areas.
QList<AreaStep> stepsBetween(const QList<AreaOfInterest> &areas, const DrawingContext &context)
{
    const chart::BinScale scale = areaScale(context);
    const auto type = static_cast<TransitionType>(context.areas.transitionType);
    QList<AreaStep> steps;
    const auto take = [&](const GazeStay &stay, const Fixation &next, const Places &places) {
        const qint64 startMs = stay.last->lastTime();
        const auto durationMs = static_cast<double>(elapsedMs(startMs, next.firstTime()));
        for (const qsizetype from : stay.places) {
            for (const qsizetype to : places) {
                if (from != to)
                    steps << AreaStep{from, to, chart::binsOf(scale, startMs, durationMs)};
            }
        }
    };
    const auto placesOf = [&](const Fixation &fixation) { return areasOf(fixation, areas, type); };
    for (const GazeWalk &walk : walksOf(context.model.checkedExaminations(), context.eyeMode))
        followGaze(walk, context.frame, type, placesOf, take);
    return steps;
}

QString pairName(const AreaOfInterest &from, const AreaOfInterest &to)
{
    return from.name + QStringLiteral(" → ") + to.name;
}

/// Turns the counts of a bin into those of a minute.
double perMinuteOf(const chart::BinScale &scale)
{
    constexpr double msPerMinute = 60000;
    return msPerMinute / ((2 * scale.half + 1) * scale.msPerBin);
}

double highest(const QList<ChartCurve> &curves)
{
    double top = 0;
    for (const ChartCurve &curve : curves)
        top = std::max(top, chart::largest(curve.bins));
    return top;
}

} // namespace

Chart aoiFixationChart(const DrawingContext &context)
{
    const QList<AreaOfInterest> areas = context.model.checkedAois();
    const auto examinations = static_cast<double>(context.model.checkedExaminations().size());
    const QList<QList<double>> counts = lookers(areas, context);
    Chart chart{.frame = context.frame, .unit = QStringLiteral(" %")};
    for (qsizetype area = 0; area < areas.size() && examinations > 0; ++area) {
        ChartCurve curve{areas[area].name, opaque(areas[area].color), counts[area]};
        for (const double count : counts[area])
            curve.deviations << deviationOf(count, examinations);
        for (double &bin : curve.bins)
            bin /= examinations;
        chart.curves << curve;
    }
    chart.top = highest(chart.curves);
    chart.labelAtTop = chart.top * percent;
    return chart;
}

Chart aoiFixationShareChart(const DrawingContext &context)
{
    const QList<AreaOfInterest> areas = context.model.checkedAois();
    QList<QList<double>> shares = lookers(areas, context);
    for (int bin = 0; bin < chart::binCount; ++bin) {
        double sum = 0;
        for (const QList<double> &share : std::as_const(shares))
            sum += share[bin];
        for (QList<double> &share : shares)
            share[bin] = sum > 0 ? share[bin] / sum : 0;
    }
    Chart chart{.frame = context.frame, .labelAtTop = percent, .unit = QStringLiteral(" %"), .isStacked = true};
    for (qsizetype area = 0; area < areas.size(); ++area)
        chart.curves << ChartCurve{areas[area].name, opaque(areas[area].color), shares[area]};
    chart.top = highest(chart.curves) > 0 ? 1 : 0;
    return chart;
}

Chart aoiTransitionChart(const DrawingContext &context)
{
    const QList<AreaOfInterest> areas = context.model.checkedAois();
    Chart chart{.frame = context.frame};
    for (const AreaOfInterest &area : areas)
        chart.curves << ChartCurve{area.name, opaque(area.color), chart::emptyBins()};
    for (const AreaStep &step : stepsBetween(areas, context))
        chart::addEvent(chart.curves[step.from].bins, step.bins, 1);
    chart.top = chart.labelAtTop = highest(chart.curves);
    return chart;
}

Chart aoiTransitionPairChart(const DrawingContext &context)
{
    const QList<AreaOfInterest> areas = context.model.checkedAois();
    QMap<std::pair<qsizetype, qsizetype>, QList<AreaStep>> pairs;
    for (const AreaStep &step : stepsBetween(areas, context))
        pairs[{step.from, step.to}] << step;
    const double perMinute = perMinuteOf(areaScale(context));
    Chart chart{.frame = context.frame, .unit = QStringLiteral(" trans/min")};
    for (auto pair = pairs.cbegin(); pair != pairs.cend(); ++pair) {
        const auto [from, to] = pair.key();
        const auto there = static_cast<double>(pair->size());
        const auto back = static_cast<double>(pairs.value({to, from}).size());
        const QColor own = opaque(areas[from].color);
        ChartCurve curve{pairName(areas[from], areas[to]),
                         context.areas.mixColor ? mixedByCount(own, there, areas[to].color, back) : own,
                         chart::emptyBins()};
        for (const AreaStep &step : *pair)
            chart::addEvent(curve.bins, step.bins, 1);
        for (double &bin : curve.bins)
            bin *= perMinute;
        chart.curves << curve;
    }
    chart.top = chart.labelAtTop = highest(chart.curves);
    return chart;
}

std::optional<QString> emptyAoiChart(const DataModel &model)
{
    if (model.checkedAois().isEmpty())
        return QStringLiteral("No AOIs available");
    for (const Examination *examination : model.checkedExaminations()) {
        for (const EyeData *stream : examination->streams()) {
            if (!stream->scanpath.isEmpty())
                return std::nullopt;
        }
    }
    return QStringLiteral("No fixations available");
}
