#pragma once

#include "visualization/selection/DataSelection.h"
#include "visualization/shapes/Drawing.h"
#include "visualization/selection/DrawingContext.h"

/// The way in which the saccades of one pass are drawn: of one stream of each examination, see `passesToDraw`.
using SaccadeBuild = Drawing (*)(const QList<ExaminationEye> &pass, const DrawingContext &context);

/// Arrows from fixation to fixation of one stream, as far as the frame shows them. With a `stepSize` of 2 to 99 they
/// link every second to 99th fixation. One whose mean has a negative coordinate is passed over; at (0,0) no arrow
/// begins. `size` is the line's width in pixels.
///
/// @param color  of line and tip; painted opaque.
Drawing saccadeArrows(const EyeData &eye, TimeFrame frame, const QColor &color,
                      const VisualizationParameters &parameters);

/// Mode "arrows": those of each stream of the pass in the fill colour of its eye and group.
Drawing arrowsOfPass(const QList<ExaminationEye> &pass, const DrawingContext &context);

/// The saccades of the checked examinations in the mode of `context.saccades`, pass after pass.
Drawing drawSaccades(const DrawingContext &context);
