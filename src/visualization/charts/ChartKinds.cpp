// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/charts/ChartKinds.h"

#include "visualization/charts/AoiCharts.h"
#include "visualization/charts/ChartDrawing.h"
#include "visualization/charts/EventCharts.h"

#include <algorithm>

namespace {

using Text = QLatin1StringView;
using Owner = ChartOwner;

constexpr ChartKind kinds[] = {
    {Text("saccades"), Text("Saccade histogram"), saccadeChart, Owner::Saccades, drawnChart<saccadeChart>},
    {Text("saccades-by-eye"), Text("Saccade histogram separated"), saccadesByEyeChart, Owner::Saccades,
     drawnChart<saccadesByEyeChart>},
    {Text("saccades-and-fixations"), Text("Saccade and fixation histogram"), saccadesAndFixationsChart, Owner::Saccades,
     drawnChart<saccadesAndFixationsChart>},
    {Text("fixations"), Text("Fixation histogram"), fixationChart, Owner::Fixations, drawnChart<fixationChart>},
    {Text("fixations-by-eye"), Text("Fixation histogram separated"), fixationsByEyeChart, Owner::Fixations,
     drawnChart<fixationsByEyeChart>},
    {Text("aoi-transitions"), Text("Time dependent transitions"), aoiTransitionChart, Owner::Areas,
     drawnChart<aoiTransitionChart>},
    {Text("aoi-fixations"), Text("Fixations over time"), aoiFixationChart, Owner::Areas, drawnChart<aoiFixationChart>},
    {Text("aoi-transitions-by-pair"), Text("Transitions over time"), aoiTransitionPairChart, Owner::Areas,
     drawnChart<aoiTransitionPairChart>},
    {Text("aoi-fixation-shares"), Text("Fixations relative to time window"), aoiFixationShareChart, Owner::Areas,
     drawnChart<aoiFixationShareChart>},
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
