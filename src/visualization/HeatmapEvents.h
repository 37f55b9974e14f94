#pragma once

#include "visualization/DrawingContext.h"

#include <vector>

/// What heatmaps count, as whole canvas pixels. A position may lie outside the canvas; one that is no number is 0, and
/// one beyond the range of int is the nearest int.
struct GazePointEvent {
    int x;
    int y;

    bool operator==(const GazePointEvent &) const = default;
};

/// A fixation or a fixation cluster.
struct FixationEvent {
    int x; ///< mean
    int y;
    int firstX; ///< first axis, px
    int firstY;
    int secondX; ///< second axis, px
    int secondY;
    int durationMs; ///< from the first sample to the last

    bool operator==(const FixationEvent &) const = default;
};

/// A fixation as the end of a saccade: each pair of neighbours in a walk is one mark.
struct SaccadeEvent {
    int x; ///< mean
    int y;
    int durationMs;
    bool startsWalk; ///< the first one of its recording and eye: no saccade leads to it

    bool operator==(const SaccadeEvent &) const = default;
};

/// The events of the checked examinations and the eyes of the mode, recording after recording: samples that are valid
/// and inside the frame, sections whose first sample is inside.
std::vector<GazePointEvent> gazePointEvents(const DrawingContext &context);

/// With "only Fixations in AOIs" a section counts once for each area that contains its mean: in two overlapping areas
/// twice, in none not at all.
std::vector<FixationEvent> fixationEvents(const DrawingContext &context);
std::vector<FixationEvent> clusterEvents(const DrawingContext &context);

std::vector<SaccadeEvent> saccadeEvents(const DrawingContext &context);
