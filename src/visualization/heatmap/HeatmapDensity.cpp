// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/heatmap/HeatmapDensity.h"

#include "density/FixationDensity.h"
#include "density/GazePointDensity.h"
#include "density/SaccadeDensity.h"
#include "visualization/heatmap/HeatmapEvents.h"
#include "visualization/heatmap/HeatmapOptions.h"
#include "visualization/heatmap/HeatmapScale.h"

namespace {

/// Few events are not worth the threads.
int workersFor(std::size_t events, std::size_t enoughForAll)
{
    constexpr int all = 4;
    return events < enoughForAll ? 1 : all;
}

constexpr std::size_t enoughEvents = 4;
constexpr std::size_t enoughSaccades = 40;

/// `showDurationArcs` is an option of the angle stars; the heatmaps of fixations and clusters show its box as
/// "Duration" and store it under the same key.
FixationMass massOf(const VisualizationParameters &parameters)
{
    return parameters.showDurationArcs ? FixationMass::Duration : FixationMass::One;
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

template <class Event>
HeatmapDensity countedDensity(Density cells, const std::vector<Event> &events, NormalDistribution kernel, int workers,
                              const QString &unit)
{
    const int atPeak = eventsAround<Event>(cells.peak(), events, kernel.width);
    return {.cells = std::move(cells),
            .kernel = kernel,
            .unit = unit,
            .events = events.size(),
            .eventsAtPeak = atPeak,
            .sections = {},
            .workers = workers};
}

std::optional<HeatmapDensity> densityOfGazePoints(const DrawingContext &context)
{
    const std::vector<GazePointEvent> events = gazePointEvents(context);
    if (events.empty())
        return std::nullopt;
    const int workers = workersFor(events.size(), enoughEvents);
    const NormalDistribution kernel = normalDistribution(context.of(DataKind::GazePoints));
    return countedDensity(gazePointDensity(events, kernel, workers), events, kernel, workers,
                          QStringLiteral("gaze points per px^2"));
}

/// Fixations and clusters differ in their events, their parameters and their name.
std::optional<HeatmapDensity> densityOfSections(std::vector<FixationEvent> events,
                                                const VisualizationParameters &parameters, QLatin1StringView name)
{
    if (events.empty())
        return std::nullopt;
    const int workers = workersFor(events.size(), enoughEvents);
    const NormalDistribution kernel = normalDistribution(parameters);
    const FixationMass mass = massOf(parameters);
    const QString unit =
        mass == FixationMass::Duration ? QStringLiteral("ms of %1 per px^2") : QStringLiteral("%1 per px^2");
    HeatmapDensity density =
        countedDensity(fixationDensity(events, kernel, mass, workers), events, kernel, workers, unit.arg(name));
    density.sections = std::move(events);
    return density;
}

std::optional<HeatmapDensity> densityOfSaccades(const DrawingContext &context, HeatmapLook look)
{
    const std::vector<SaccadeEvent> events = saccadeEvents(context);
    if (events.empty())
        return std::nullopt;
    const int workers = workersFor(events.size(), enoughSaccades);
    const SaccadeMarkStyle style = markStyle(context.of(DataKind::Saccades), look);
    return countedDensity(saccadeDensity(events, style, workers), events, style.kernel, workers,
                          QStringLiteral("sum of the heights of saccade marks"));
}

} // namespace

std::optional<HeatmapDensity> heatmapDensity(DataKind kind, const DrawingContext &context, HeatmapLook look)
{
    switch (kind) {
    case DataKind::GazePoints:
        break;
    case DataKind::Fixations:
        return densityOfSections(fixationEvents(context), context.of(kind), QLatin1StringView("fixations"));
    case DataKind::Clusters:
        return densityOfSections(clusterEvents(context), context.of(kind), QLatin1StringView("clusters"));
    case DataKind::Saccades:
        return densityOfSaccades(context, look);
    }
    return densityOfGazePoints(context);
}
