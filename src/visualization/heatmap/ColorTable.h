// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/parameters/VisualizationParameters.h"

#include <QImage>

/// The colours of a heatmap, from no density (left) to the full one (right), for the colour map `heatmapColormap`:
/// 0 "RED GREEN", 1 "BLUE", 2 "FOCAL POINT", 3 "SUNRISE", 4 "CLOUD", 5 "CUSTOM" (the active stops of the adjustable
/// colour map). Any other number is another red and green.
///
/// @return 256 x 1, Format_ARGB32.
QImage colorTable(const VisualizationParameters &parameters);
