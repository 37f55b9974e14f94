// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/charts/EventCharts.h"

#include "base/Truncation.h"
#include "statistics/SaccadeVectors.h"
#include "visualization/charts/ChartBins.h"
#include "visualization/selection/DataSelection.h"
#include "visualization/shapes/ShapeStyle.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

using Record = VisualizationParameters;
using Streams = QList<ExaminationEye>;

/// What of a stream goes into a curve.
struct Events {
    void (*add)(QList<double> &bins, const EyeData &stream, const DrawingContext &context, const chart::BinScale &);
    DataKind kind;
};

chart::BinScale eventScale(const DrawingContext &context, const Record &record)
{
    constexpr double msPerUnit = 100; // the field serves other modes as an exponent
    return chart::binScale(context.frame, truncated(std::ceil(record.power * msPerUnit)));
}

void addSaccadesWeighted(QList<double> &bins, const EyeData &stream, const DrawingContext &context,
                         const chart::BinScale &scale, bool byLength)
{
    for (const TimedSaccade &saccade : timedSaccades(stream, context.frame))
        chart::addEvent(bins, chart::binsOf(scale, saccade.startMs, saccade.duration), byLength ? saccade.length : 1.0);
}

void addFixationsWeighted(QList<double> &bins, const EyeData &stream, const DrawingContext &context,
                          const chart::BinScale &scale, bool byDuration)
{
    const auto [begin, end] = sectionsInFrame(stream.scanpath, context.frame);
    for (qsizetype i = begin; i < end; ++i) {
        const Fixation &fixation = stream.scanpath[i];
        if (!fixation.samples.isEmpty())
            chart::addEvent(bins, chart::binsOf(scale, fixation.firstTime(), fixation.duration()),
                            byDuration ? fixation.duration() : 1.0);
    }
}

constexpr Events saccades{
    [](QList<double> &bins, const EyeData &stream, const DrawingContext &context, const chart::BinScale &scale) {
        addSaccadesWeighted(bins, stream, context, scale, context.of(DataKind::Saccades).lengthDependent);
    },
    DataKind::Saccades};
constexpr Events saccadeLengths{
    [](QList<double> &bins, const EyeData &stream, const DrawingContext &context, const chart::BinScale &scale) {
        addSaccadesWeighted(bins, stream, context, scale, true);
    },
    DataKind::Saccades};
constexpr Events fixations{
    [](QList<double> &bins, const EyeData &stream, const DrawingContext &context, const chart::BinScale &scale) {
        addFixationsWeighted(bins, stream, context, scale, false);
    },
    DataKind::Fixations};
/// Beside saccades, and so with the window of their record.
constexpr Events fixationDurations{
    [](QList<double> &bins, const EyeData &stream, const DrawingContext &context, const chart::BinScale &scale) {
        addFixationsWeighted(bins, stream, context, scale, true);
    },
    DataKind::Saccades};

ChartCurve curveOf(const QString &name, const QColor &color, const Events &events, const Streams &streams,
                   const DrawingContext &context)
{
    ChartCurve curve{name, color, chart::emptyBins()};
    const chart::BinScale scale = eventScale(context, context.of(events.kind));
    for (const ExaminationEye &each : streams)
        events.add(curve.bins, each.stream(), context, scale);
    return curve;
}

Chart chartOf(const QList<ChartCurve> &curves, const DrawingContext &context, const QString &unit)
{
    double top = 0;
    for (const ChartCurve &curve : curves)
        top = std::max(top, chart::largest(curve.bins));
    return {.frame = context.frame, .curves = curves, .top = top, .labelAtTop = top, .unit = unit};
}

Streams allStreams(const DrawingContext &context)
{
    Streams streams;
    for (const Examination *examination : context.model.checkedExaminations())
        streams << eyesToDraw(*examination, context.eyeMode);
    return streams;
}

Streams streamsWhere(const DrawingContext &context, const std::function<bool(const ExaminationEye &)> &isWanted)
{
    Streams streams = allStreams(context);
    streams.removeIf([&](const ExaminationEye &stream) { return !isWanted(stream); });
    return streams;
}

QList<ChartCurve> curvesOfEyes(const Events &events, const DrawingContext &context)
{
    QList<ChartCurve> curves;
    for (const Eye eye : eyesOf(context.eyeMode)) {
        const auto isOfEye = [eye](const ExaminationEye &stream) { return stream.eye == eye; };
        curves << curveOf(eyeWord(eye), fillColorOf(context.of(events.kind), eye), events,
                          streamsWhere(context, isOfEye), context);
    }
    return curves;
}

/// Those in no group, or in one that the model does not know, have a curve where there are any.
QList<ChartCurve> curvesOfGroups(const Events &events, const DrawingContext &context)
{
    const Record &record = context.of(events.kind);
    const Eye eye = colorEyeOf(context.eyeMode);
    QList<ChartCurve> curves;
    for (const Group &group : context.model.groups()) {
        const auto isMember = [&](const ExaminationEye &stream) { return stream.examination->groupName == group.name; };
        curves << curveOf(group.name, fillColorOf(group, eye, record), events, streamsWhere(context, isMember),
                          context);
    }
    const Streams others = streamsWhere(context, [&](const ExaminationEye &stream) {
        const QString &name = stream.examination->groupName;
        return name == Group::none || !context.model.group(name);
    });
    if (!others.isEmpty())
        curves << curveOf(Group::none, record.fillColor, events, others, context);
    return curves;
}

QList<ChartCurve> separateCurves(const Events &events, const DrawingContext &context)
{
    return context.of(events.kind).lineSizeAbsolute ? curvesOfGroups(events, context) : curvesOfEyes(events, context);
}

QString saccadeUnit(const DrawingContext &context)
{
    return context.of(DataKind::Saccades).lengthDependent ? QStringLiteral(" sac length") : QStringLiteral(" sac");
}

} // namespace

Chart saccadeChart(const DrawingContext &context)
{
    const QColor color = context.of(DataKind::Saccades).fillColor;
    return chartOf({curveOf(QStringLiteral("Saccades"), color, saccades, allStreams(context), context)}, context,
                   saccadeUnit(context));
}

Chart saccadesByEyeChart(const DrawingContext &context)
{
    return chartOf(separateCurves(saccades, context), context, saccadeUnit(context));
}

Chart saccadesAndFixationsChart(const DrawingContext &context)
{
    const Record &record = context.of(DataKind::Saccades);
    const Streams streams = allStreams(context);
    return chartOf(
        {curveOf(QStringLiteral("Saccade length"), record.fillColor, saccadeLengths, streams, context),
         curveOf(QStringLiteral("Fixation duration"), record.fillColorLeft, fixationDurations, streams, context)},
        context, QStringLiteral(" sac length / fix in ms"));
}

Chart fixationChart(const DrawingContext &context)
{
    const QColor color = context.of(DataKind::Fixations).fillColor;
    return chartOf({curveOf(QStringLiteral("Fixations"), color, fixations, allStreams(context), context)}, context, {});
}

Chart fixationsByEyeChart(const DrawingContext &context)
{
    return chartOf(separateCurves(fixations, context), context, {});
}
