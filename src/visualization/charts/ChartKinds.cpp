// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/charts/ChartKinds.h"

#include "visualization/charts/AoiCharts.h"
#include "visualization/charts/ChartDrawing.h"
#include "visualization/charts/EventCharts.h"

#include <algorithm>

namespace {

using Text = QLatin1StringView;
using Owner = ChartOwner;

template <Chart (*Build)(const DrawingContext &)>
constexpr ChartKind rowOf(Text word, Text title, Owner owner)
{
    return {word, title, Build, owner, drawnChart<Build>};
}

constexpr ChartKind kinds[] = {
    rowOf<saccadeChart>(Text("saccades"), Text("Saccade histogram"), Owner::Saccades),
    rowOf<saccadesByEyeChart>(Text("saccades-by-eye"), Text("Saccade histogram separated"), Owner::Saccades),
    rowOf<saccadesAndFixationsChart>(Text("saccades-and-fixations"), Text("Saccade and fixation histogram"),
                                     Owner::Saccades),
    rowOf<fixationChart>(Text("fixations"), Text("Fixation histogram"), Owner::Fixations),
    rowOf<fixationsByEyeChart>(Text("fixations-by-eye"), Text("Fixation histogram separated"), Owner::Fixations),
    rowOf<aoiTransitionChart>(Text("aoi-transitions"), Text("Time dependent transitions"), Owner::Areas),
    rowOf<aoiFixationChart>(Text("aoi-fixations"), Text("Fixations over time"), Owner::Areas),
    rowOf<aoiTransitionPairChart>(Text("aoi-transitions-by-pair"), Text("Transitions over time"), Owner::Areas),
    rowOf<aoiFixationShareChart>(Text("aoi-fixation-shares"), Text("Fixations relative to time window"), Owner::Areas),
};

ChartStyle styleOf(const VisualizationParameters &record)
{
    return {.curves = record.showOriginalSize, .splines = record.showGazePoints, .linesOnly = record.transitionsOnly};
}

} // namespace

std::span<const ChartKind> chartKinds()
{
    return kinds;
}

const ChartKind *chartKind(const QString &word)
{
    const auto *found =
        std::find_if(std::begin(kinds), std::end(kinds), [&](const ChartKind &kind) { return kind.word == word; });
    return found == std::end(kinds) ? nullptr : found;
}

ChartStyle chartStyle(ChartOwner owner, const DrawingContext &context)
{
    switch (owner) {
    case ChartOwner::Fixations:
        return styleOf(context.of(DataKind::Fixations));
    case ChartOwner::Saccades:
        return styleOf(context.of(DataKind::Saccades));
    case ChartOwner::Areas:
        break;
    }
    return {.linesOnly = context.areas.outlines, .legend = context.areas.displayNames};
}

Drawing chartDrawing(const ChartKind &kind, const DrawingContext &context)
{
    return chartDrawing(kind.build(context), chartStyle(kind.owner, context));
}
