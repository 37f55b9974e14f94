// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/ClusterParameters.h"
#include "model/EyeData.h"

#include <vector>

/// Groups the fixations of a stream by mean-shift of their centroids.
class MeanShiftClusterBuilder {
public:
    enum class ShowProgress { Yes, No };

    /// Does the whole work: appends the clusters to `fixationClusters` of the stream, those with most fixations first,
    /// and sets the `cluster` of its fixations, see `groupsByLabel`. A stream without fixations is left alone, with a
    /// message.
    /// @param showProgress  whether the steps that take longest are shown, too.
    MeanShiftClusterBuilder(EyeData &stream, const MeanShiftClusterParameters &parameters, ShowProgress showProgress);
};

/// Sorts fixations into groups and sets the `cluster` of each to the number of its group from 0: the first group's
/// fixations read like those of no cluster, and the numbers of groups that are too small stay. That is kept; the other
/// methods count from 1 and have 0 for no cluster.
///
/// @param labels  for each fixation a whole number from 1; fixations behind the last one are left alone.
/// @return the fixations of each group, as they were before.
QList<QList<Fixation>> groupsByLabel(QList<Fixation> &fixations, const std::vector<double> &labels);

/// The clusters of the groups with at least the minimum of fixations and with any samples, in order. Mean and principal
/// axes are those of their samples; the variance is not computed. An empty group gives a line on the debug channel.
QList<FixationCluster> clustersOfGroups(const QList<QList<Fixation>> &groups, int minimumFixations);
