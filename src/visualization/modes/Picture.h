// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/heatmap/HeatmapFigures.h"
#include "visualization/selection/DrawingContext.h"
#include "visualization/shapes/Drawing.h"

/// Everything that a context shows, and what the colours of its heatmaps stand for.
struct Picture {
    Drawing drawing;               ///< back to front
    QList<HeatmapFigures> figures; ///< none of shadow maps and of what had no events
};

/// The checked examinations in the modes of the records: first examination by examination, then eye by eye, then what
/// pools them all, and the areas of interest on top.
Picture pictureOf(const DrawingContext &context);

/// Whether a chart is part of it, which stands beside the canvas.
bool hasChart(const DrawingContext &context);
