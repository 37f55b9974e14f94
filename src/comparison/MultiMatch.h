// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "comparison/FixationPath.h"

/// Below which scanpaths are simplified. Where the duration is 0 nothing is.
struct MultiMatchThresholds {
    double directionDegrees = 45;
    double durationMs = 300;
    double amplitudePx = 0;
};

/// A scanpath as its saccades: each leads from a place along a vector, and has the duration of the fixation before it.
struct SaccadeVector2D {
    bool operator==(const SaccadeVector2D &) const = default;

    double length() const;
    /// From the x axis, radians in (-pi, pi].
    double direction() const;

    double x = 0; ///< px, where it starts
    double y = 0;
    double dx = 0; ///< px
    double dy = 0;
};

struct SaccadePath {
    bool operator==(const SaccadePath &) const = default;

    std::vector<SaccadeVector2D> saccades;
    std::vector<double> durationsMs; ///< of the fixations: one more than saccades; empty without fixation
};

SaccadePath saccadePath(const FixationPath &path);

/// Joins saccades of nearly one direction around a short fixation, then short saccades beside a short fixation, until
/// neither changes anything. Two saccades join at most in one pass. The last saccade, if it is short, joins the one
/// before it; that one counts as it was at the beginning of the pass, also where it has joined another one meanwhile
/// (the sum of all three vectors would be the textbook form).
SaccadePath simplified(SaccadePath path, const MultiMatchThresholds &thresholds);

/// How alike two scanpaths are in five dimensions, 0 to 1 each; undefined where one has no saccade.
struct MultiMatch {
    double vector = undefined;
    double direction = undefined;
    double length = undefined;
    double position = undefined;
    double duration = undefined;
};

/// Compares the saccades along the alignment with the least sum of vector differences: 1 less the median difference of
/// each dimension, divided by twice the diagonal of the picture (vector), half a turn (direction), the diagonal
/// (length, position of the start) and the longer duration of the pair (duration). Source: Jarodzka, Holmqvist &
/// Nystroem (2010), ETRA; Dewhurst et al. (2012), Behavior Research Methods 44(4).
MultiMatch multiMatch(const SaccadePath &first, const SaccadePath &second, QSizeF pictureSizePx);
