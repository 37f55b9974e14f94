// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "comparison/FixationPath.h"

/// How far two scanpaths lie apart where each is stretched to fit the other.
struct WarpedDistance {
    double sumPx = undefined;  ///< of the distances of all pairs of fixations on the way
    double meanPx = undefined; ///< the same for each pair
};

/// Dynamic time warping of the positions, whatever the durations: the first fixations are a pair, the last ones are,
/// and each step goes on in one of the scanpaths or in both. Undefined without a fixation. Source: Sakoe & Chiba
/// (1978), IEEE Transactions on Acoustics, Speech and Signal Processing 26(1), without window and weights; Berndt &
/// Clifford (1994), AAAI Workshop on Knowledge Discovery in Databases.
WarpedDistance timeWarpedDistance(const FixationPath &first, const FixationPath &second);
