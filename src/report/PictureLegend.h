// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/heatmap/HeatmapFigures.h"
#include "visualization/selection/DrawingContext.h"
#include "visualization/shapes/Drawing.h"

/// What the colours and sizes of a picture stand for, black on white below it.
struct PictureLegend {
    Drawing drawing;
    double height = 0; ///< px; 0 where nothing needs words
};

/// The colours of eyes and groups of each kind of data that is drawn in them, the colours of heatmaps with their units
/// and, where circles grow with time, circles of some durations.
///
/// @param picture  above the legend, px; the legend is as wide.
PictureLegend pictureLegend(const QList<HeatmapFigures> &figures, const DrawingContext &context, const QRectF &picture);
