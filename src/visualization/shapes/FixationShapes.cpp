// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/FixationShapes.h"

#include "base/Truncation.h"
#include "visualization/selection/DataSelection.h"
#include "visualization/shapes/ToolTipText.h"

#include <cmath>

namespace {

constexpr double dotSize = 5.0; ///< px
constexpr QLatin1StringView toolTipTitle("Fixation ID");

/// The fixation as the frame shows it. One that begins inside the frame and is cut by its end stays whole.
Fixation frameCopy(const Fixation &fixation, TimeFrame frame)
{
    if (frame.startMs < fixation.firstTime() && frame.endMs < fixation.lastTime())
        return fixation;
    QList<GazePoint> inside;
    for (const GazePoint &sample : fixation.samples) {
        if (frame.contains(sample.time))
            inside << sample;
    }
    return {inside, fixation.type, fixation.mean, fixation.number};
}

QList<QPointF> positionsInFrame(std::span<const GazePoint> samples, TimeFrame frame)
{
    QList<QPointF> positions;
    for (const GazePoint &sample : samples) {
        if (isDrawn(sample, frame))
            positions << QPointF(sample.x, sample.y);
    }
    return positions;
}

/// A dot for each position within twice the axes around the fixation's mean, as if these lay along x and y. An axis of
/// length zero takes in nothing.
void appendDots(Drawing &drawing, const Fixation &fixation, const QList<QPointF> &positions)
{
    const double reachX = 2 * double(fixation.majorAxis.length());
    const double reachY = 2 * double(fixation.minorAxis.length());
    for (const QPointF &position : positions) {
        const double dx = position.x() - fixation.mean.x();
        const double dy = position.y() - fixation.mean.y();
        if (dx * dx / (reachX * reachX) + dy * dy / (reachY * reachY) <= 1)
            drawing << OvalShape{{position.x(), position.y(), dotSize, dotSize}, {}, {}, {}};
    }
}

/// Adds `shapeOf(fixation, index)` and, if they are wanted, its sample dots for each fixation of the frame.
template <class ShapeOf>
Drawing shapesInFrame(const EyeData &eye, TimeFrame frame, bool withDots, ShapeOf shapeOf)
{
    Drawing drawing;
    const QList<QPointF> positions = withDots ? positionsInFrame(eye.gazePoints, frame) : QList<QPointF>();
    const SectionRange range = sectionsInFrame(eye.scanpath, frame);
    for (qsizetype i = range.begin; i < range.end; ++i) {
        const Fixation &fixation = eye.scanpath[i];
        if (fixation.mean.x() < 0 || fixation.mean.y() < 0)
            continue;
        drawing << shapeOf(fixation, i);
        appendDots(drawing, fixation, positions);
    }
    return drawing;
}

} // namespace

Drawing fixationEllipses(const EyeData &eye, TimeFrame frame, const ShapeStyle &style,
                         const VisualizationParameters &parameters)
{
    const float factor = parameters.showOriginalSize ? 1 : 2;
    return shapesInFrame(eye, frame, parameters.showGazePoints, [&](const Fixation &fixation, qsizetype index) {
        const Fixation shown = frameCopy(fixation, frame);
        return EllipseShape{fixation.mean,
                            shown.majorAxis * factor,
                            shown.minorAxis * factor,
                            style.pen,
                            style.brush,
                            fixationToolTip(toolTipTitle, index, fixation, axisRatioLine(fixation))};
    });
}

int circleDiameter(const Fixation &fixation, TimeFrame frame, const VisualizationParameters &parameters)
{
    if (parameters.showOriginalSize)
        return truncated(2 * double(fixation.majorAxis.length()));
    const double size = parameters.size;
    if (!parameters.durationDependent)
        return truncated((size * 5 + 5) * 4);
    const auto inside = std::count_if(fixation.samples.cbegin(), fixation.samples.cend(), [&](const GazePoint &sample) {
        return frame.startMs < sample.time && sample.time < frame.endMs;
    });
    const auto count = static_cast<double>(inside);
    return truncated(std::trunc(count + 15 + count * (size / 100)) * size);
}

Drawing fixationCircles(const EyeData &eye, TimeFrame frame, const ShapeStyle &style,
                        const VisualizationParameters &parameters)
{
    return shapesInFrame(eye, frame, parameters.showGazePoints, [&](const Fixation &fixation, qsizetype index) {
        return OvalShape{squareAround(fixation.mean, circleDiameter(fixation, frame, parameters)), style.pen,
                         style.brush, fixationToolTip(toolTipTitle, index, fixation)};
    });
}

Drawing paintedFixations(FixationPainter paint, const ExaminationEye &stream, const DrawingContext &context)
{
    const VisualizationParameters &parameters = context.of(DataKind::Fixations);
    const ShapeStyle style = shapeStyle(*stream.examination, stream.eye, context.model, parameters);
    Drawing drawing = paint(stream.stream(), context.frame, style, parameters);
    addToolTipLine(drawing, sourceLines(stream));
    return drawing;
}
