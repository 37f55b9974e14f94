// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "statistics/GazeWalk.h"

#include <map>
#include <unordered_map>
#include <utility>

/// When a fixation counts as one of those in a cluster.
enum class Likeness {
    Samples,      ///< same mean and same samples
    MeanAndStart, ///< same mean and first time
};

/// Tells in which cluster a fixation lies. Building it takes one pass over the clusters, an answer does not depend on
/// their number.
class ClusterIndex {
public:
    /// The clusters must outlive the index.
    explicit ClusterIndex(const QList<FixationCluster> &clusters, Likeness likeness = Likeness::Samples);

    /// The first cluster with a fixation like this one; -1 where there is none.
    qsizetype clusterOf(const Fixation &fixation) const;

    qsizetype clusterCount() const { return m_clusterCount; }

private:
    /// What is compared first stands in the key: most answers need not look at the fixations, which lie far apart.
    struct Key {
        Key(const Fixation &fixation, Likeness likeness);
        bool operator==(const Key &other) const;

        QPoint mean;
        qint64 firstTime;
        const GazeSamples *samples; ///< null where they need not be alike
    };
    struct Hash {
        size_t operator()(const Key &key) const noexcept;
    };

    std::unordered_map<Key, qsizetype, Hash> m_clusters;
    qsizetype m_clusterCount;
    Likeness m_likeness;
};

/// Which fixation of the stay that is left gives the start of a transition's length.
enum class LengthFrom { LastFixation, FirstFixation };

struct TransitionRules {
    TransitionRules(TransitionType type_, LengthFrom lengthFrom_ = LengthFrom::LastFixation)
        : type(type_)
        , lengthFrom(lengthFrom_)
    {
    }

    TransitionType type;
    LengthFrom lengthFrom;
};

/// How often the gaze went from cluster to cluster.
struct ClusterTransitions {
    using Pair = std::pair<qsizetype, qsizetype>; ///< from, to

    explicit ClusterTransitions(qsizetype clusterCount);

    /// @param timeMs  of the transition.
    void add(Pair pair, double lengthPx, qint64 timeMs);
    int count(qsizetype from, qsizetype to) const;
    int largest() const; ///< count of the busiest pair, at least 1

    std::map<Pair, int> counts;   ///< of the pairs that occur: of many clusters few follow each other
    QList<int> totals;            ///< per cluster, incoming and outgoing
    QList<QList<double>> lengths; ///< px, per cluster: of each transition that starts or ends there
    QList<QList<qint64>> times;   ///< ms, likewise
    int sum = 0;                  ///< of all counts
};

/// The transitions of several walks; none leads from one walk to another. Only fixations that lie wholly in the frame
/// take part. By the saccades, a transition needs a saccade that was found between its fixations.
///
/// The length of a transition is the distance of the means of two fixations, its time the middle of the later one.
ClusterTransitions countTransitions(const ClusterIndex &index, const QList<GazeWalk> &walks, TransitionRules rules,
                                    TimeFrame frame);
