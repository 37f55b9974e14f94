// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/heatmap/HeatmapFigures.h"
#include "visualization/selection/DrawingContext.h"
#include "visualization/shapes/Drawing.h"

constexpr double legendRowHeight = 60; ///< px

/// The colours of each heatmap that was drawn and what they stand for, one below the other.
struct HeatmapLegend {
    Drawing drawing;
    double height = 0; ///< px, from the top; 0 without heatmaps
};

/// How a legend looks. As it is it is that of reports.
struct LegendLook {
    int widthPx = 2400; ///< of the colours
    QColor text{150, 150, 150};
    bool allUnits = false; ///< otherwise only figures of fixations have theirs
    bool classes = true;   ///< shares of the fixations in five classes, where they are known
};

/// @param figures  of the heatmaps, as drawing gave them.
/// @param top      upper left corner, px.
HeatmapLegend heatmapLegend(const QList<HeatmapFigures> &figures, const DrawingContext &context, QPointF top,
                            const LegendLook &look = {});
