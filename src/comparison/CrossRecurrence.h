// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "comparison/FixationPath.h"

struct RecurrenceParameters {
    double radiusPx = 64; ///< fixations at most so far apart are recurrent
    int shortestLine = 2; ///< fixations in a row, at least 2
};

/// How two scanpaths return to the same places, in percent; undefined where nothing can be said.
struct CrossRecurrence {
    double recurrence = undefined;   ///< recurrent pairs of all pairs
    double determinism = undefined;  ///< of the recurrent pairs, those on diagonal lines: both go the same way
    double laminarity = undefined;   ///< those on horizontal or vertical lines: one stays where the other has been
    double centerOfMass = undefined; ///< how much later the second comes to a place than the first, -100 to 100
};

/// Both scanpaths are cut to the length n of the shorter one. With C recurrent pairs (i, j): recurrence 100 C / n^2;
/// determinism 100 D / C, D the pairs on diagonal lines; laminarity 100 (H + V) / (2 C), H and V those on horizontal
/// and vertical lines; centre of mass 100 sum(j - i) / ((n - 1) C). Source: Anderson, Bischof, Laidlaw, Risko &
/// Kingstone (2013), Behavior Research Methods 45(3).
CrossRecurrence crossRecurrence(const FixationPath &first, const FixationPath &second,
                                const RecurrenceParameters &parameters);
