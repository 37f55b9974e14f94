// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/selection/DataSelection.h"
#include "visualization/selection/DrawingContext.h"
#include "visualization/shapes/Drawing.h"

/// Arrows from fixation to fixation of one stream, as far as the frame shows them. With a `stepSize` of 2 to 99 they
/// link every second to 99th fixation. One whose mean has a negative coordinate is passed over; at (0,0) no arrow
/// begins. `size` is the line's width in pixels.
///
/// @param color  of line and tip; painted opaque.
Drawing saccadeArrows(const EyeData &eye, TimeFrame frame, const QColor &color,
                      const VisualizationParameters &parameters);

/// Mode "arrows": those of each stream of the pass in the fill colour of its eye and group.
Drawing arrowsOfPass(const QList<ExaminationEye> &pass, const DrawingContext &context);
