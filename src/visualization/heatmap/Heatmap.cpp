#include "visualization/heatmap/Heatmap.h"

#include "visualization/heatmap/ColorTable.h"
#include "density/FixationDensity.h"
#include "density/GazePointDensity.h"
#include "visualization/heatmap/HeatmapColoring.h"
#include "visualization/heatmap/HeatmapScale.h"
#include "density/SaccadeDensity.h"

namespace {

constexpr double opaqueSteps = 255;

/// Few events are not worth the threads.
int workersFor(std::size_t events, std::size_t enoughForAll = 4)
{
    constexpr int all = 4;
    return events < enoughForAll ? 1 : all;
}

int saccadeWorkersFor(std::size_t events)
{
    constexpr std::size_t enoughForAll = 40;
    return workersFor(events, enoughForAll);
}

/// `showDurationArcs` is an option of the angle stars; the heatmaps of fixations and clusters show its box as
/// "Duration" and store it under the same key.
FixationMass massOf(const VisualizationParameters &parameters)
{
    return parameters.showDurationArcs ? FixationMass::Duration : FixationMass::One;
}

DensityColoring absoluteColoring(const AbsoluteScale &scale, const VisualizationParameters &parameters)
{
    DensityColoring coloring{.gain = scale.gain, .limit = scale.limit, .unit = scale.unit};
    coloring.colors = colorsOf(colorTable(parameters));
    coloring.below = coloring.colors[0];
    return coloring;
}

/// @param maximum  the largest density, not 0.
DensityColoring relativeColoring(double maximum, const VisualizationParameters &parameters)
{
    return {.unit = maximum, .colors = colorsOf(colorTable(parameters))};
}

/// The veil opens where the density is above a share of the maximum.
DensityColoring shadowColoring(double maximum, const VisualizationParameters &parameters)
{
    constexpr double percent = 0.01;
    const int alpha = shadowAlpha(parameters);
    return {.limit = maximum * (parameters.heatmapThreashold * percent),
            .unit = maximum,
            .colors = shadowVeil(static_cast<int>(opaqueSteps), alpha, shadowPower(parameters)),
            .below = qRgba(0, 0, 0, alpha)};
}

/// The shadow map of saccades has as many steps as its veil has levels, and its threshold is one of lengths.
DensityColoring saccadeShadowColoring(double maximum, const VisualizationParameters &parameters)
{
    const int alpha = shadowAlpha(parameters);
    return {.unit = maximum,
            .steps = static_cast<double>(alpha),
            .lowest = 0,
            .colors = shadowVeil(alpha, alpha, shadowPower(parameters)),
            .below = qRgba(0, 0, 0, alpha)};
}

double positiveOr(double maximum, double otherwise)
{
    return maximum > 0 ? maximum : otherwise;
}

/// Fixations and clusters differ in their events, their parameters and their label.
Heatmap sectionHeatmap(std::span<const FixationEvent> events, const VisualizationParameters &parameters,
                       const DrawingContext &context, HeatmapKind kind, HeatmapLook look)
{
    constexpr double emptyMaximum = 1e-16;
    if (events.empty())
        return {};
    const int workers = workersFor(events.size());
    const NormalDistribution kernel = normalDistribution(parameters);
    const Density density = fixationDensity(events, kernel, massOf(parameters), workers);
    const DensityPeak &peak = density.peak();
    const double maximum = positiveOr(peak.value, emptyMaximum);
    if (look == HeatmapLook::ShadowMap)
        return {coloredDensity(density, shadowColoring(maximum, parameters), workers), {}};
    if (look == HeatmapLook::RelativeScale)
        return {coloredDensity(density, relativeColoring(maximum, parameters), workers), {}};
    const auto examinations = static_cast<int>(context.model.checkedExaminations().size());
    const FixationScale scale = fixationScale(peak.value, eventsAround(peak, events, kernel.width),
                                              context.frame.perMinute(), examinations, parameters);
    HeatmapFigures figures{kind, scale.colors.maximum};
    if (kind == HeatmapKind::Fixations)
        figures.classPercentages = classPercentages(density, events, scale.top, scale.lower);
    return {coloredDensity(density, absoluteColoring(scale.colors, parameters), workers), figures};
}

SaccadeMarkStyle markStyle(const VisualizationParameters &parameters, HeatmapLook look)
{
    constexpr double percent = 0.01;
    return {.kernel = normalDistribution(parameters),
            .shape = parameters.gaussianSaccades ? SaccadeShape::Gaussian : SaccadeShape::Tube,
            .lengthDependent = parameters.lengthDependent,
            .durationDependent = parameters.fixationDurationDependent,
            .lengthThresholdPx = look == HeatmapLook::ShadowMap ? parameters.heatmapThreashold * percent : 0};
}

std::optional<NamedDensity> sectionDensity(const std::vector<FixationEvent> &events,
                                           const VisualizationParameters &parameters, const QString &name)
{
    if (events.empty())
        return {};
    const NormalDistribution kernel = normalDistribution(parameters);
    const FixationMass mass = massOf(parameters);
    return NamedDensity{
        fixationDensity(events, kernel, mass, workersFor(events.size())), kernel,
        (mass == FixationMass::Duration ? QStringLiteral("ms of %1 per px^2") : QStringLiteral("%1 per px^2"))
            .arg(name)};
}

} // namespace

std::optional<NamedDensity> heatmapDensity(const DrawingContext &context, HeatmapKind kind)
{
    if (kind == HeatmapKind::Fixations)
        return sectionDensity(fixationEvents(context), context.fixations, QStringLiteral("fixations"));
    if (kind == HeatmapKind::Clusters)
        return sectionDensity(clusterEvents(context), context.clusters, QStringLiteral("clusters"));
    if (kind == HeatmapKind::Saccades) {
        const std::vector<SaccadeEvent> events = saccadeEvents(context);
        if (events.empty())
            return {};
        const SaccadeMarkStyle style = markStyle(context.saccades, HeatmapLook::AbsoluteScale);
        return NamedDensity{saccadeDensity(events, style, saccadeWorkersFor(events.size())), style.kernel,
                            QStringLiteral("sum of the heights of saccade marks")};
    }
    const std::vector<GazePointEvent> events = gazePointEvents(context);
    if (events.empty())
        return {};
    const NormalDistribution kernel = normalDistribution(context.gazePoints);
    return NamedDensity{gazePointDensity(events, kernel, workersFor(events.size())), kernel,
                        QStringLiteral("gaze points per px^2")};
}

Heatmap drawGazeHeatmap(const DrawingContext &context, HeatmapLook look)
{
    const VisualizationParameters &parameters = context.gazePoints;
    const std::vector<GazePointEvent> events = gazePointEvents(context);
    if (events.empty())
        return {};
    const int workers = workersFor(events.size());
    const NormalDistribution kernel = normalDistribution(parameters);
    const Density density = gazePointDensity(events, kernel, workers);
    const DensityPeak &peak = density.peak();
    const double maximum = positiveOr(peak.value, 1.0);
    if (look == HeatmapLook::ShadowMap)
        return {coloredDensity(density, shadowColoring(maximum, parameters), workers), {}};
    if (look == HeatmapLook::RelativeScale)
        return {coloredDensity(density, relativeColoring(maximum, parameters), workers), {}};
    const int around = eventsAround<GazePointEvent>(peak, events, kernel.width);
    const AbsoluteScale scale = gazePointScale(peak.value, around, context.frame.perMinute(), parameters);
    return {coloredDensity(density, absoluteColoring(scale, parameters), workers),
            HeatmapFigures{HeatmapKind::GazePoints, scale.maximum}};
}

Heatmap drawFixationHeatmap(const DrawingContext &context, HeatmapLook look)
{
    return sectionHeatmap(fixationEvents(context), context.fixations, context, HeatmapKind::Fixations, look);
}

Heatmap drawClusterHeatmap(const DrawingContext &context, HeatmapLook look)
{
    return sectionHeatmap(clusterEvents(context), context.clusters, context, HeatmapKind::Clusters, look);
}

Heatmap drawSaccadeHeatmap(const DrawingContext &context, HeatmapLook look)
{
    const VisualizationParameters &parameters = context.saccades;
    const std::vector<SaccadeEvent> events = saccadeEvents(context);
    if (events.empty())
        return {};
    const int workers = saccadeWorkersFor(events.size());
    const Density density = saccadeDensity(events, markStyle(parameters, look), workers);
    const DensityPeak &peak = density.peak();
    const double maximum = positiveOr(peak.value, 1.0);
    if (look == HeatmapLook::ShadowMap)
        return {coloredDensity(density, saccadeShadowColoring(maximum, parameters), workers), {}};
    if (look == HeatmapLook::RelativeScale) {
        DensityColoring coloring = relativeColoring(maximum, parameters);
        coloring.lowest = 0; // other than with the pooled kernels, the faint ends of marks get the first colour
        return {coloredDensity(density, coloring, workers), {}};
    }
    const int around = eventsAround<SaccadeEvent>(peak, events, normalDistribution(parameters).width);
    const AbsoluteScale scale = saccadeScale(peak.value, around, events.size(), parameters);
    return {coloredDensity(density, absoluteColoring(scale, parameters), workers),
            HeatmapFigures{HeatmapKind::Saccades, scale.maximum}};
}
