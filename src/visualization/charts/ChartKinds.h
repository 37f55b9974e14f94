// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/charts/Chart.h"
#include "visualization/selection/DrawingContext.h"
#include "visualization/shapes/Drawing.h"

#include <QLatin1StringView>

#include <span>

/// Whose record has the looks of a chart.
enum class ChartOwner { Fixations, Saccades, Areas };

/// One kind of chart; all that is known of it.
struct ChartKind {
    QLatin1StringView word;  ///< on the command line
    QLatin1StringView title; ///< of what the user is told
    Chart (*build)(const DrawingContext &);
    ChartOwner owner;
    Drawing (*draw)(const DrawingContext &); ///< as the records of the context want it
};

std::span<const ChartKind> chartKinds();

/// Null for a word that no kind has.
const ChartKind *chartKind(const QString &word);

/// The looks that the records of the context choose for a chart of this owner.
ChartStyle chartStyle(ChartOwner owner, const DrawingContext &context);

/// The kind's chart as the records of the context want it.
Drawing chartDrawing(const ChartKind &kind, const DrawingContext &context);

/// Mode of a panel that draws the chart which this function builds.
template <Chart (*Build)(const DrawingContext &)>
Drawing drawnChart(const DrawingContext &context)
{
    for (const ChartKind &kind : chartKinds()) {
        if (kind.build == Build)
            return chartDrawing(kind, context);
    }
    return {};
}
