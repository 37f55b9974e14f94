// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/heatmap/Heatmap.h"

#include "visualization/heatmap/ColorTable.h"
#include "visualization/heatmap/HeatmapColoring.h"
#include "visualization/heatmap/HeatmapScale.h"

namespace {

/// How the cells are coloured, and what the colours stand for.
struct Coloring {
    DensityColoring cells;
    std::optional<HeatmapFigures> figures = std::nullopt;
};

/// The density that counts as the full one. A peak can be too faint to be seen as more than 0.
double maximumOf(DataKind kind, const HeatmapDensity &density)
{
    constexpr ByDataKind<double> ofEmpty{{1, 1e-16, 1e-16, 1}};
    const double peak = density.cells.peak().value;
    return peak > 0 ? peak : ofEmpty[kind];
}

DensityColoring absoluteColoring(const AbsoluteScale &scale, const VisualizationParameters &parameters)
{
    DensityColoring coloring{.gain = scale.gain, .limit = scale.limit, .unit = scale.unit};
    coloring.colors = colorsOf(colorTable(parameters));
    coloring.below = coloring.colors[0];
    return coloring;
}

Coloring countColoring(DataKind kind, const AbsoluteScale &scale, const VisualizationParameters &parameters)
{
    return {absoluteColoring(scale, parameters), HeatmapFigures{kind, scale.maximum}};
}

/// Fixations, other than clusters, are counted in classes, too.
Coloring sectionColoring(DataKind kind, const HeatmapDensity &density, const DrawingContext &context)
{
    const VisualizationParameters &parameters = context.of(kind);
    const auto examinations = static_cast<int>(context.model.checkedExaminations().size());
    const FixationScale scale = fixationScale(density.cells.peak().value, density.eventsAtPeak,
                                              context.frame.perMinute(), examinations, parameters);
    Coloring coloring = countColoring(kind, scale.colors, parameters);
    if (kind == DataKind::Fixations)
        coloring.figures->classPercentages = classPercentages(density.cells, density.sections, scale.top, scale.lower);
    return coloring;
}

Coloring absoluteColoring(DataKind kind, const HeatmapDensity &density, const DrawingContext &context)
{
    const VisualizationParameters &parameters = context.of(kind);
    const double peak = density.cells.peak().value;
    switch (kind) {
    case DataKind::GazePoints:
        return countColoring(kind, gazePointScale(peak, density.eventsAtPeak, context.frame.perMinute(), parameters),
                             parameters);
    case DataKind::Saccades:
        return countColoring(kind, saccadeScale(peak, density.eventsAtPeak, density.events, parameters), parameters);
    case DataKind::Fixations:
    case DataKind::Clusters:
        break;
    }
    return sectionColoring(kind, density, context);
}

/// Other than with the pooled kernels, the faint ends of saccade marks get the first colour.
Coloring relativeColoring(DataKind kind, const HeatmapDensity &density, const VisualizationParameters &parameters)
{
    DensityColoring coloring{.unit = maximumOf(kind, density), .colors = colorsOf(colorTable(parameters))};
    if (kind == DataKind::Saccades)
        coloring.lowest = 0;
    return {coloring};
}

/// The veil opens where the density is above a share of the maximum.
DensityColoring veilByShare(double maximum, const VisualizationParameters &parameters)
{
    constexpr double percent = 0.01;
    constexpr int steps = 255;
    const int alpha = shadowAlpha(parameters);
    return {.limit = maximum * (parameters.heatmapThreashold * percent),
            .unit = maximum,
            .colors = shadowVeil(steps, alpha, shadowPower(parameters)),
            .below = qRgba(0, 0, 0, alpha)};
}

/// The shadow map of saccades has as many steps as its veil has levels, and its threshold is one of lengths.
DensityColoring veilOfSaccades(double maximum, const VisualizationParameters &parameters)
{
    const int alpha = shadowAlpha(parameters);
    return {.unit = maximum,
            .steps = static_cast<double>(alpha),
            .lowest = 0,
            .colors = shadowVeil(alpha, alpha, shadowPower(parameters)),
            .below = qRgba(0, 0, 0, alpha)};
}

Coloring coloringOf(DataKind kind, HeatmapLook look, const HeatmapDensity &density, const DrawingContext &context)
{
    switch (look) {
    case HeatmapLook::AbsoluteScale:
        break;
    case HeatmapLook::RelativeScale:
        return relativeColoring(kind, density, context.of(kind));
    case HeatmapLook::ShadowMap: {
        const auto veil = kind == DataKind::Saccades ? veilOfSaccades : veilByShare;
        return {veil(maximumOf(kind, density), context.of(kind))};
    }
    }
    return absoluteColoring(kind, density, context);
}

} // namespace

Heatmap heatmapOf(DataKind kind, const DrawingContext &context, HeatmapLook look)
{
    const std::optional<HeatmapDensity> density = heatmapDensity(kind, context, look);
    if (!density)
        return {};
    const Coloring coloring = coloringOf(kind, look, *density, context);
    return {coloredDensity(density->cells, coloring.cells, density->workers), coloring.figures};
}
