// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <variant>

/// What the standard method counts as a cluster.
struct StandardClusterParameters {
    int minimumFixations = 0;
    int overlapAllowed = 0; ///< of two circles, in percent of the distance of their centres
    int maximumRadiusPx = 0;
};

/// The mean-shift method.
struct MeanShiftClusterParameters {
    double radiusPx = 0; ///< width of the Gaussian kernel, and distance within which modes are one
    double rate = 0;     ///< share of each step towards the mean
    int iterations = 0;  ///< most steps of a fixation
    int minimumFixations = 0;
};

/// The method of fixations whose ellipses overlap.
struct OverlapClusterParameters {
    int minimumFixations = 0;
    /// Pooled examinations only: so many of them may have fewer than the minimum in a cluster. Without it the
    /// examinations are not told apart.
    std::optional<int> outliers;
};

using ClusterParameters = std::variant<StandardClusterParameters, MeanShiftClusterParameters, OverlapClusterParameters>;
