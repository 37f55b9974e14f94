// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include <optional>

/// How unpredictable the way of the gaze through n areas is, in bits, from the areas of its fixations in their order.
struct AoiEntropy {
    std::optional<double> transition; ///< of the next area given the present one, 0 to log2 n; needs two fixations
    std::optional<double> stationary; ///< of the area in the long run, 0 to log2 n; needs two fixations
    std::optional<double> gaze;       ///< of the areas as often as they were seen, 0 to log2 n; needs one fixation
};

/// The chain of Krejtz et al. (2015), ACM TAP 13(1): shares of the transitions out of each area, staying in an area
/// included. An area that is never left, as the last one may be, goes on to all areas that were seen with the same
/// probability. The distribution of the long run is that of the chain from the areas as often as they were seen.
///
/// @param sequence  numbers of areas, each >= 0.
AoiEntropy aoiEntropy(const QList<int> &sequence);
