// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/heatmap/HeatmapDensity.h"
#include "visualization/heatmap/HeatmapFigures.h"

#include <QImage>

struct Heatmap {
    QImage image;                          ///< 2560 x 1600, Format_ARGB32; null without events
    std::optional<HeatmapFigures> figures; ///< on the absolute scale only
};

/// What the context shows of a kind, coloured in the style of its record.
Heatmap heatmapOf(DataKind kind, const DrawingContext &context, HeatmapLook look);
