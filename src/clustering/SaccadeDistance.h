// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/SaccadeVector.h"

/// The values are those of the panel's list.
enum class DistanceAlgorithm { Euclidean = 0, Manhattan = 1 };

/// Whether a movement and the way back are two directions or one.
enum class Direction { Counts, DoesNotCount };

/// How far apart two directions are, 0 to 180 degrees. Where the direction does not count, what is 91 degrees or more
/// is measured from the opposite direction, so that 0 to 90 remain.
int angleDistance(const SaccadeVector &a, const SaccadeVector &b, Direction direction);

/// How far apart two movements lie, in px: the least of the distances of the ends of each from the other.
int segmentDistance(const SaccadeVector &a, const SaccadeVector &b, DistanceAlgorithm algorithm);

/// The distance of a point from the segment of two points, in px, cut to a whole number; beyond the range of int the
/// largest one.
///
/// The place on the segment is found with a whole share of its length. So it is one of its ends in nearly all cases,
/// and where the share is 1, the sum of both ends, far from either. Both are kept: the textbook form, start + t * (end
/// - start) with the fraction t between 0 and 1, gives other clusters for the same thresholds.
int pointToSegmentDistance(QPoint point, QPoint start, QPoint end, DistanceAlgorithm algorithm);
