// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/ClusterParameters.h"
#include "model/EyeData.h"

/// Greedy growth of circles: starting from each fixation in turn, later fixations are taken in as long as the circle
/// around all of them stays small enough and clear of the clusters found before.
///
/// A step costs little where a fixation is far away; time grows with the square of the number of fixations.
class StandardClusterBuilder {
public:
    /// Whether the clusters stand in descending order of size at the end, or in the order of their making.
    enum class FinalSort { Yes, No };

    explicit StandardClusterBuilder(const StandardClusterParameters &parameters) : m_parameters(parameters) {}

    /// Appends the clusters of the stream to its `fixationClusters`, those there being obstacles, and sets the
    /// `cluster` of its fixations: the number of the cluster in the order of making, from 1, or 0.
    ///
    /// The fixations in a cluster are copies from before, with `cluster` 0. A fixation that starts a round takes part
    /// only if it is free, but a round is made for each: later ones can form a cluster without it.
    void buildClusters(EyeData &stream, FinalSort finalSort) const;

private:
    StandardClusterParameters m_parameters;
};
