// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/charts/ChartDrawing.h"

#include "base/TextFormat.h"
#include "base/Truncation.h"
#include "visualization/charts/ChartBins.h"
#include "visualization/charts/CurveShape.h"

#include <algorithm>

namespace {

constexpr QRectF ground(2560, 0, 2401, 1000);
constexpr double axisLeft = 2760;
constexpr double axisRight = 4761;
constexpr double firstColumn = 2761;
constexpr double baseLine = 800; ///< y; the height of the chart, too

constexpr int axisSteps = 10;

QFont labelFont()
{
    constexpr int points = 30;
    return {QStringLiteral("Times New Roman"), points};
}

QPen gridPen()
{
    constexpr double width = 3.0;
    return {Qt::black, width, Qt::DashDotLine, Qt::RoundCap, Qt::RoundJoin};
}

// ---- curves

/// The points of a curve that stands on other ones; without any below on the base line.
QPolygonF pointsOf(const QList<double> &heights)
{
    QPolygonF points;
    for (qsizetype i = 0; i < heights.size(); ++i)
        points << QPointF(firstColumn + static_cast<double>(i), baseLine - heights[i]);
    return points;
}

QPolygonF shaped(QPolygonF points, const ChartStyle &style)
{
    if (style.curves)
        points = smoothed(points);
    return style.splines ? splined(points) : points;
}

QPolygonF closedBelow(const QPolygonF &points)
{
    return QPolygonF{QPointF(firstColumn, baseLine)} + points + QPolygonF{QPointF(axisRight, baseLine)};
}

QList<double> scaled(const QList<double> &values, double top)
{
    QList<double> heights;
    for (const double value : values)
        heights << value / top * baseLine;
    return heights;
}

QPolygonF deviationBand(const QList<double> &heights, const QList<double> &deviations, const ChartStyle &style)
{
    QList<double> upper;
    QList<double> lower;
    for (qsizetype i = 0; i < heights.size(); ++i) {
        upper << heights[i] + deviations[i];
        lower << heights[i] - deviations[i];
    }
    QPolygonF back = shaped(pointsOf(lower), style);
    std::reverse(back.begin(), back.end());
    return shaped(pointsOf(upper), style) + back;
}

QPolygonF polygonOf(const ChartCurve &curve, double top, const ChartStyle &style)
{
    const QList<double> heights = scaled(curve.bins, top);
    if (!style.linesOnly)
        return closedBelow(shaped(pointsOf(heights), style));
    if (curve.deviations.isEmpty())
        return outlined(shaped(pointsOf(heights), style));
    return deviationBand(heights, scaled(curve.deviations, top), style);
}

/// Each curve with all that lie behind it in the list: drawn first to last, each leaves its own part in sight.
QList<ChartCurve> stacked(QList<ChartCurve> curves)
{
    for (qsizetype i = curves.size() - 2; i >= 0; --i)
        std::transform(curves[i].bins.cbegin(), curves[i].bins.cend(), curves[i + 1].bins.cbegin(),
                       curves[i].bins.begin(), std::plus<>());
    return curves;
}

Drawing curveShapes(const Chart &chart, const ChartStyle &style)
{
    Drawing drawing;
    if (!(chart.top > 0))
        return drawing;
    for (const ChartCurve &curve : chart.isStacked && !style.linesOnly ? stacked(chart.curves) : chart.curves)
        drawing << PolygonShape{polygonOf(curve, chart.top, style), QPen(curve.color), QBrush(curve.color), curve.name};
    return drawing;
}

// ---- axes and labels

Drawing axes()
{
    return {LineShape{{axisLeft, baseLine, axisLeft, 0}, QPen(Qt::black)},
            LineShape{{axisLeft, baseLine, axisRight, baseLine}, QPen(Qt::black)}};
}

/// In two rows: neighbours would run into each other.
Drawing timeAxisLabels(TimeFrame frame)
{
    constexpr double secondRow = 850;
    Drawing drawing;
    for (int step = 0; step <= axisSteps; ++step) {
        const double fraction = step / double(axisSteps);
        const double x = axisLeft + fraction * chart::binCount;
        const double y = step % 2 == 0 ? baseLine : secondRow;
        const auto timeMs = static_cast<qint64>(fraction * static_cast<double>(frame.endMs));
        drawing << TextShape{{x, y}, text::timeText(timeMs), labelFont(), Qt::black, TextAnchor::Middle}
                << LineShape{{x, y, x, 0}, gridPen()};
    }
    return drawing;
}

Drawing valueLabels(const Chart &chart)
{
    constexpr double labelLeft = 4810;
    constexpr double gridRight = 4801;
    Drawing drawing;
    for (int step = 0; step <= axisSteps; ++step) {
        const double fraction = step / double(axisSteps);
        const double y = baseLine - fraction * baseLine;
        drawing << TextShape{{labelLeft, y},
                             text::general6(fraction * std::max(0.0, chart.labelAtTop)) + chart.unit,
                             labelFont(),
                             Qt::black,
                             TextAnchor::Beside}
                << LineShape{{axisLeft, y, gridRight, y}, gridPen()};
    }
    return drawing;
}

// ---- legend

constexpr int legendColumns = 4;
constexpr double legendTop = 900; // px
constexpr double rowHeight = 50;

/// A name that would run into the next column loses its end.
QString shortened(const QString &name)
{
    constexpr qsizetype longest = 30;
    return name.size() <= longest ? name : name.left(longest - 1) + u'…';
}

Drawing legend(const QList<ChartCurve> &curves)
{
    constexpr double columnWidth = 600;
    constexpr double patchSize = 30;
    constexpr double gap = 10;
    Drawing drawing;
    for (qsizetype i = 0; i < curves.size(); ++i) {
        const double x = ground.left() + gap + static_cast<double>(i % legendColumns) * columnWidth;
        const qsizetype row = i / legendColumns;
        const double y = legendTop + static_cast<double>(row) * rowHeight;
        const QPolygonF patch(QRectF(x, y + gap, patchSize, patchSize));
        drawing << PolygonShape{patch, QPen(Qt::black), QBrush(curves[i].color)}
                << TextShape{{x + patchSize + gap, y}, shortened(curves[i].name), labelFont(), Qt::black};
    }
    return drawing;
}

/// Rows of the legend that the ground does not hold have ground of their own.
Drawing groundFor(qsizetype names)
{
    const qsizetype rows = (names + legendColumns - 1) / legendColumns;
    const double bottom = std::max(ground.bottom(), legendTop + static_cast<double>(rows) * rowHeight);
    const QPen white(Qt::white);
    Drawing drawing{PolygonShape{QPolygonF(ground), white, QBrush(Qt::white)}};
    if (bottom > ground.bottom())
        drawing << PolygonShape{
            QPolygonF(QRectF(ground.left(), ground.bottom(), ground.width(), bottom - ground.bottom())), white,
            QBrush(Qt::white)};
    return drawing;
}

} // namespace

Drawing chartDrawing(const Chart &chart, const ChartStyle &style)
{
    const QList<ChartCurve> named = style.legend && chart.curves.size() > 1 ? chart.curves : QList<ChartCurve>();
    return groundFor(named.size()) + curveShapes(chart, style) + axes() + timeAxisLabels(chart.frame) +
           valueLabels(chart) + legend(named);
}
