// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/DistanceMatrix.h"
#include "clustering/SaccadeVector.h"

#include <QList>

#include <span>

class Progress;

/// How far a node that two have joined to is from a third one, of the distances of the two. The values are those of the
/// panel's lists.
enum class Linkage { Average = 0, Maximum = 1, Minimum = 2 };

/// Two nodes that joined. Nodes are numbered: first the n things themselves, then the nodes in the order of joining.
struct Merge {
    bool operator==(const Merge &) const = default;

    size_t left = 0; ///< the smaller number of the two
    size_t right = 0;
    int height = 0; ///< their distance
};

/// Joins the two nearest nodes until one remains. Of equal distances the first in row order counts, rows and columns
/// standing in the order of the nodes' numbers. Averages are cut to whole numbers.
///
/// Each row remembers its nearest neighbour, so that a step looks at one line and not at the whole matrix: time and
/// memory grow with the square of the size for data as they come.
/// Source: the generic algorithm in Müllner (2011), Modern hierarchical, agglomerative clustering algorithms.
///
/// @param progress  gets one step for each join.
/// @return size - 1 joins in their order; none for fewer than two things.
std::vector<Merge> agglomerate(DistanceMatrix distances, Linkage linkage, Progress &progress);

/// A node of a tree: all movements below it, and the two nodes that joined to it.
struct ClusterNode {
    std::span<const SaccadeVector> vectors; ///< those of `left`, then those of `right`
    const ClusterNode *left = nullptr;      ///< null for a leaf
    const ClusterNode *right = nullptr;     ///< null for a leaf
    int height = 0;                         ///< the distance at which both joined; 0 for a leaf
};

/// The tree of joins over a list of movements. All nodes share one list: those of a node stand next to each other.
class ClusterTree {
public:
    /// @param vectors  at least one.
    /// @param merges   one less than vectors, as `agglomerate` makes them.
    ClusterTree(const QList<SaccadeVector> &vectors, const std::vector<Merge> &merges);
    ClusterTree(ClusterTree &&) noexcept = default;
    ClusterTree &operator=(ClusterTree &&) noexcept = default;

    /// Valid as long as the tree, also if that is moved.
    const ClusterNode &root() const { return m_nodes.back(); }

private:
    std::vector<SaccadeVector> m_vectors; ///< in the order of the leaves, left before right
    std::vector<ClusterNode> m_nodes;     ///< by number
};

/// The movements below each of the highest nodes that joined at no more than the cutoff, left before right.
///
/// @param minimum  groups with fewer movements are left out.
QList<QList<SaccadeVector>> cutTree(const ClusterNode &root, int cutoff, int minimum);
