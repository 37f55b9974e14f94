// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/charts/Chart.h"
#include "visualization/shapes/Drawing.h"

/// A chart to the right of the canvas: white ground, curves, axes, scale, and names of the curves below. The labels of
/// time are parts of the frame's end: its start plays no part in them, which is kept; the usual form would name the
/// times of the bins. Without events there is no curve.
///
/// Where deviations are known, outlines are bands from one deviation above the curve to one below.
Drawing chartDrawing(const Chart &chart, const ChartStyle &style);
