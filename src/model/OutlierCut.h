// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSizeF>

class DataModel;

/// Samples at or beyond the edge of the picture: gaze that left the stimulus, or tracking that slipped.
///
/// A picture without a sensible size (negative, or larger than the canvas) counts as canvas-sized in that direction.
/// The margin is 1 % of the size at each edge; validity plays no part.
///
/// Check marks and groups are the user's choices, not part of a recording: they stay as they are, whatever is cut or
/// brought back.

/// Takes the examinations as imported and drops every sample of the three streams that lies within the margin or beyond
/// it. The fixations and clusters of the streams go too: they rested on the dropped samples.
///
/// An empty picture is one that could not be read. It has no edge: all samples come back.
void cutOutliers(DataModel &model, QSizeF pictureSizePx);

/// Brings back the examinations as imported, with all samples and without results.
void restoreOutliers(DataModel &model);

/// Examinations were added or removed: those as imported follow. While samples are cut, the ones that were there before
/// keep theirs.
void followExaminations(DataModel &model);
