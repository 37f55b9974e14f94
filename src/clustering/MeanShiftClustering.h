// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <vector>

/// Mean-shift in the plane: each point climbs the density of all points to its mode, and those that arrive at the same
/// mode are one cluster.
///
/// The density is the sum of the Gaussians exp(-d^2 / (2 radius^2)). A step goes the given share of the way to the
/// weighted mean; a point has arrived when a step is shorter than a millionth of the radius, or after the last
/// iteration. From the points on their modes, ordered by the places they started from, the first is a mode, and all
/// within the radius of a mode that no earlier one has belong to it. So neither the order of the input nor a
/// whole-number shift of all points changes who belongs together. Source: Cheng (1995), Mean shift, mode seeking, and
/// clustering, IEEE PAMI 17.
class MeanShiftClustering {
public:
    /// One for each point in its order: the number of its cluster, from 1 in the order of first appearance.
    std::vector<double> labels;

    /// Called for each point that has arrived; may be empty.
    std::function<void()> arrived;

    /// @param data        x0, y0, x1, y1, ... in px.
    /// @param radius      px; where it is not above 0, points stay and only equal ones belong together.
    /// @param rate        share of each step; beyond 2 the steps lead away from the modes.
    /// @param iterations  most steps of a point; with less than 1 points stay.
    /// @param reserved    always 0, without effect.
    /// Errors: none. A point that is not finite is a cluster of its own.
    void cluster(std::vector<double> data, double radius, double rate, int iterations, int reserved);
};
