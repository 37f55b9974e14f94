#pragma once

#include <QSizeF>

class DataModel;

/// Samples at or beyond the edge of the picture: gaze that left the stimulus, or tracking that slipped.
///
/// A picture without a sensible size (negative, or larger than the canvas) counts as canvas-sized in that direction.
/// The margin is 1 % of the size at each edge; validity plays no part.

/// Takes the examinations as imported and drops every sample of the three streams that lies within the margin or beyond
/// it. The fixations and clusters of the streams go too: they rested on the dropped samples.
void cutOutliers(DataModel &model, QSizeF pictureSizePx);

/// Brings back the examinations as imported, with all samples and without results.
void restoreOutliers(DataModel &model);
