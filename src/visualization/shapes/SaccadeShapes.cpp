// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/SaccadeShapes.h"

#include "visualization/shapes/ShapeStyle.h"
#include "visualization/shapes/ToolTipText.h"

namespace {

int stepOf(const VisualizationParameters &parameters)
{
    constexpr int largestStep = 99;
    return parameters.stepSize < 1 || parameters.stepSize > largestStep ? 1 : parameters.stepSize;
}

} // namespace

Drawing saccadeArrows(const EyeData &eye, TimeFrame frame, const QColor &color,
                      const VisualizationParameters &parameters)
{
    QColor opaque = color;
    opaque.setAlpha(255);
    const QBrush brush(opaque, Qt::SolidPattern);
    const QPen pen(opaque, std::max(0, parameters.size));
    const QList<Fixation> &scanpath = eye.scanpath;
    const int step = stepOf(parameters);
    Drawing drawing;
    QPoint previous;
    // Only the fixations that are stepped on decide where the walk stops.
    for (qsizetype i = sectionsInFrame(scanpath, frame).begin;
         i < scanpath.size() && scanpath[i].firstTime() <= frame.endMs; i += step)
    {
        const QPoint mean = scanpath[i].mean;
        if (mean.x() < 0 || mean.y() < 0)
            continue;
        if (!previous.isNull()) {
            drawing << ArrowShape{previous, mean,  parameters.showArrowTip,
                                  pen,      brush, fixationToolTip(QLatin1StringView("Saccade ID"), i, scanpath[i])};
        }
        previous = mean;
    }
    return drawing;
}

Drawing arrowsOfPass(const QList<ExaminationEye> &pass, const DrawingContext &context)
{
    const VisualizationParameters &parameters = context.of(DataKind::Saccades);
    Drawing drawing;
    for (const ExaminationEye &each : pass) {
        const ShapeStyle style = shapeStyle(*each.examination, each.eye, context.model, parameters);
        Drawing arrows = saccadeArrows(each.stream(), context.frame, style.brush.color(), parameters);
        addToolTipLine(arrows, sourceLines(each));
        drawing << arrows;
    }
    return drawing;
}
