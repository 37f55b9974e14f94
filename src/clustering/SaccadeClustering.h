// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/SaccadeClusterParameters.h"
#include "clustering/SaccadeCollection.h"

class DataModel;

/// Lists of movements that belong together.
using SaccadeClusterList = QList<QList<SaccadeVector>>;

/// Movements and their distances from each other.
struct SaccadeGroup {
    QList<SaccadeVector> vectors;
    DistanceMatrix distances;
};

/// As many movements can be clustered at once. Their distances take 200 MB for directions, at most as much again for
/// places, and as much while a tree is made.
inline constexpr qsizetype mostSaccadeVectors = 10'000;

/// What stage 0 reads: the fixations of the dominant eye of each checked examination that has any, and the time span.
struct SaccadeSource {
    /// Whether the movements are the same: those of the same samples, in fixations of the same order, in the same time.
    /// What else is known of a fixation, such as its cluster, does not count.
    bool operator==(const SaccadeSource &other) const;

    QList<QList<Fixation>> scanpaths; ///< shared with the examinations
    TimeFrame frame;
};

/// What there is to cluster now.
SaccadeSource saccadeSource(const DataModel &model);

/// Whether so many movements can be clustered; if not, the user is told.
bool canClusterSaccades(qsizetype vectors);

// The stages. Each makes its result from that of the stage before.

/// Stage 0: the movements of each scanpath in the time span. Those of different recordings are never joined.
QList<SaccadeVector> preProcessedVectors(const SaccadeSource &source, const PreProcessing &parameters);

/// Stage 1: one group of all movements with the distances of their directions; no group for fewer than two.
std::vector<SaccadeGroup> angleGroups(const QList<SaccadeVector> &vectors, Direction direction);

/// Stages 2 and 5: a tree for each group.
std::vector<ClusterTree> clusterTrees(const std::vector<SaccadeGroup> &groups, Linkage linkage);

/// Stage 3: the clusters of all trees, see `cutTree`.
SaccadeClusterList angleClusters(const std::vector<ClusterTree> &trees, int cutoff, int minimum);

/// Stage 4: a group for each cluster of directions, with the distances of the places. One movement makes a group, too.
std::vector<SaccadeGroup> distanceGroups(const SaccadeClusterList &clusters, DistanceAlgorithm algorithm);

/// Stage 6: as stage 3, with progress.
SaccadeClusterList distanceClusters(const std::vector<ClusterTree> &trees, int cutoff, int minimum);
