// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/heatmap/HeatmapFigures.h"

#include <QStringList>

/// Text of "max_val_heat" for gaze points, clusters and saccades; a negative maximum reads as 0.
QString maximumText(const HeatmapFigures &figures);

/// Texts of "fixmin1" to "fixmin5": fixations per minute over the fifths of the colour range.
QStringList colorRangeTexts(const HeatmapFigures &figures);

/// Texts of "perc1" to "perc5": percentage of fixations in each fifth; none without classes.
QStringList classPercentageTexts(const HeatmapFigures &figures);
