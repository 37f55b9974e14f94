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
    {Text("saccades"), Text("Saccade histogram"), saccadeChart, Owner::Saccades},
    {Text("saccades-by-eye"), Text("Saccade histogram separated"), saccadesByEyeChart, Owner::Saccades},
    {Text("saccades-and-fixations"), Text("Saccade and fixation histogram"), saccadesAndFixationsChart,
     Owner::Saccades},
    {Text("fixations"), Text("Fixation histogram"), fixationChart, Owner::Fixations},
    {Text("fixations-by-eye"), Text("Fixation histogram separated"), fixationsByEyeChart, Owner::Fixations},
    {Text("aoi-transitions"), Text("Time dependent transitions"), aoiTransitionChart, Owner::Areas},
    {Text("aoi-fixations"), Text("Fixations over time"), aoiFixationChart, Owner::Areas},
    {Text("aoi-transitions-by-pair"), Text("Transitions over time"), aoiTransitionPairChart, Owner::Areas},
    {Text("aoi-fixation-shares"), Text("Fixations relative to time window"), aoiFixationShareChart, Owner::Areas},
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
