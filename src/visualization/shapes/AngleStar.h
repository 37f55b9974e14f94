// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "statistics/SaccadeVectors.h"
#include "visualization/shapes/SaccadeShapes.h"

/// Whether a chart has its discs and spokes, or stands on those of another one.
enum class StarFrame { Drawn, Below };

/// A polar chart of saccades by direction around the centre of the canvas: discs, a spoke with its angle for each bin,
/// and for each measure that the record shows (quantity, mean duration, mean length) a bar for each bin. A measure's
/// largest bin has a bar of 500 px; a measure of zeros has bars without length. No measure shown, no chart.
///
/// The record's options for solid bars change nothing: bars are lines and have no filling.
///
/// @param bins  from `angleStarBins`, at least one.
/// @param color  of the bars, painted at an opacity of `fillOpacity` of 255. An invalid colour paints black.
Drawing angleStarChart(const AngleStarBins &bins, const QColor &color, const VisualizationParameters &parameters,
                       StarFrame frame = StarFrame::Drawn);

/// Mode "anglestar": one chart of all saccades of the pass, in the record's colours; nothing without saccades. Groups
/// do not show. With both eyes drawn, the right eye's bars stand over those of the left one: discs of its own would
/// cover them.
Drawing angleStarOfPass(const QList<ExaminationEye> &pass, const DrawingContext &context);
