// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/AngleStar.h"

#include "base/TextFormat.h"
#include "base/Truncation.h"
#include "model/Canvas.h"
#include "visualization/shapes/ShapeStyle.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using V = VisualizationParameters;

// Rounded as they are, they make whole degrees a little less, which tells where these are cut: a third of a bin of 9
// degrees is a shift of 2 degrees.
constexpr double degreesPerRadian = 57.29577951;
constexpr double radiansPerDegree = 0.017453293;
constexpr double fullTurn = 2 * std::numbers::pi;

constexpr QPointF center(canvas::width / 2.0, canvas::height / 2.0);
constexpr double longestBar = 500;    // px
constexpr double spokeLength = 600;   // px
constexpr double labelDistance = 675; // px

struct StarMeasure {
    bool V::*isShown;
    QList<double> AngleStarBins::*values;
    Qt::PenStyle line;
    int thirds; ///< of a bin's width, by which the bars stand beside the middle
};

constexpr StarMeasure measures[] = {
    {&V::showQuantityArcs, &AngleStarBins::quantity, Qt::SolidLine, -1},
    {&V::showDurationArcs, &AngleStarBins::meanDuration, Qt::DotLine, 0},
    {&V::showLenghtArcs, &AngleStarBins::meanLength, Qt::DashLine, 1},
};

double binDegrees(qsizetype count)
{
    return fullTurn / static_cast<double>(count) * degreesPerRadian;
}

/// Counter-clockwise from the right.
QPointF pointAt(double degrees, double distance)
{
    const double angle = fullTurn - degrees * radiansPerDegree;
    return center + distance * QPointF(std::cos(angle), std::sin(angle));
}

Drawing discs()
{
    constexpr int largest = 1000; // px, diameter
    constexpr int stepSize = 100;
    const QColor light(200, 200, 200);
    const QColor dark(100, 100, 100);
    Drawing drawing;
    for (int diameter = largest; diameter > 0; diameter -= stepSize) {
        const QColor &grey = diameter / stepSize % 2 == 0 ? light : dark;
        const double radius = diameter / 2.0;
        drawing << OvalShape{{center.x() - radius, center.y() - radius, 2 * radius, 2 * radius},
                             QPen(grey),
                             QBrush(grey, Qt::SolidPattern),
                             {}};
    }
    return drawing;
}

/// The first spoke reads "0°" whatever the offset: its label names the bins' zero.
QString spokeLabel(qsizetype bin, double degrees)
{
    return (bin == 0 ? QStringLiteral("0") : text::general6(degrees)) + u'°';
}

Drawing spokes(qsizetype count, int offset)
{
    const QFont font(QStringLiteral("font: Arial"), 30, -1, false); // sic
    Drawing drawing;
    for (qsizetype bin = 0; bin < count; ++bin) {
        const double degrees = static_cast<double>(bin) * binDegrees(count) + offset;
        drawing << LineShape{{center, pointAt(degrees, spokeLength)}, QPen(Qt::black)};
        drawing << TextShape{pointAt(degrees, labelDistance), spokeLabel(bin, degrees), font, Qt::black};
    }
    return drawing;
}

Drawing bars(const QList<double> &values, int shift, int offset, const QPen &pen)
{
    const double maximum = std::max(0.0, *std::max_element(values.cbegin(), values.cend()));
    const double width = binDegrees(values.size());
    Drawing drawing;
    for (qsizetype bin = 0; bin < values.size(); ++bin) {
        const double length = maximum > 0 ? values[bin] / maximum * longestBar : 0;
        const double degrees = static_cast<double>(bin) * width + offset;
        drawing << LineShape{{center, pointAt(shift + degrees + width * 0.5, length)}, pen};
    }
    return drawing;
}

/// Bars of the mean of both eyes are black.
QColor barColor(EyeMode mode, const VisualizationParameters &parameters)
{
    return mode == EyeMode::showMean ? QColor() : fillColorOf(parameters, colorEyeOf(mode));
}

/// That of a pass before this one, unless it has no saccades.
StarFrame frameFor(Eye eye, const DrawingContext &context)
{
    const auto hasSaccades = [&](const ExaminationEye &each) {
        return !saccadeVectors(each.stream(), context.frame).isEmpty();
    };
    for (const QList<ExaminationEye> &pass : passesToDraw(context.model.checkedExaminations(), context.eyeMode)) {
        if (pass.first().eye == eye)
            break;
        if (std::any_of(pass.cbegin(), pass.cend(), hasSaccades))
            return StarFrame::Below;
    }
    return StarFrame::Drawn;
}

} // namespace

Drawing angleStarChart(const AngleStarBins &bins, const QColor &color, const VisualizationParameters &parameters,
                       StarFrame frame)
{
    constexpr int opaque = 255;
    QColor translucent = color;
    translucent.setAlpha(std::clamp(parameters.fillOpacity, 0, opaque)); // the number itself, not a percentage
    const qsizetype count = bins.quantity.size();
    Drawing drawing;
    for (const StarMeasure &measure : measures) {
        if (!(parameters.*measure.isShown))
            continue;
        if (drawing.isEmpty() && frame == StarFrame::Drawn)
            drawing << discs() << spokes(count, parameters.angleOffset);
        const int shift = truncated(measure.thirds * binDegrees(count) / 3);
        const QPen pen(translucent, std::max(0, parameters.borderWidth), measure.line);
        drawing << bars(bins.*measure.values, shift, parameters.angleOffset, pen);
    }
    return drawing;
}

Drawing angleStarOfPass(const QList<ExaminationEye> &pass, const DrawingContext &context)
{
    QList<double> triples;
    for (const ExaminationEye &each : pass)
        triples << saccadeVectors(each.stream(), context.frame);
    if (triples.isEmpty())
        return {};
    const VisualizationParameters &parameters = context.of(DataKind::Saccades);
    return angleStarChart(angleStarBins(triples, parameters.numberOfHistogramBins),
                          barColor(context.eyeMode, parameters), parameters, frameFor(pass.first().eye, context));
}
