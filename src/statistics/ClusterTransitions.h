#pragma once

#include "model/EyeData.h"
#include "model/TimeFrame.h"

#include <map>
#include <span>
#include <unordered_map>
#include <utility>

/// What counts as a transition; the values are those of `VisualizationParameters::transitionType`.
enum class TransitionType {
    Scanpath = 0, ///< from cluster to cluster, whatever lies between
    Saccades = 1, ///< from one fixation to the very next, and a saccade was found between them
};

/// The gaze of one eye in one recording. Not owned.
struct GazeWalk {
    std::span<const Fixation> fixations;
    const QList<Saccade> *saccades = nullptr; ///< null counts as none
};

/// Tells in which cluster a fixation lies. Building it takes one pass over the clusters, an answer does not depend on
/// their number.
class ClusterIndex {
public:
    /// The clusters must outlive the index.
    explicit ClusterIndex(const QList<FixationCluster> &clusters);

    /// The first cluster with a fixation of the same mean and the same samples; -1 where there is none.
    qsizetype clusterOf(const Fixation &fixation) const;

    qsizetype clusterCount() const { return m_clusterCount; }

private:
    /// What is compared first stands in the key: most answers need not look at the fixations, which lie far apart.
    struct Key {
        explicit Key(const Fixation &fixation_);
        bool operator==(const Key &other) const;

        QPoint mean;
        qint64 firstTime;
        const Fixation *fixation;
    };
    struct Hash {
        size_t operator()(const Key &key) const noexcept;
    };

    std::unordered_map<Key, qsizetype, Hash> m_clusters;
    qsizetype m_clusterCount;
};

/// How often the gaze went from cluster to cluster.
struct ClusterTransitions {
    using Pair = std::pair<qsizetype, qsizetype>; ///< from, to

    explicit ClusterTransitions(qsizetype clusterCount) : totals(clusterCount), lengths(clusterCount) {}

    void add(Pair pair, double length);
    int count(qsizetype from, qsizetype to) const;
    int largest() const; ///< count of the busiest pair, at least 1

    std::map<Pair, int> counts;   ///< of the pairs that occur: of many clusters few follow each other
    QList<int> totals;            ///< per cluster, incoming and outgoing
    QList<QList<double>> lengths; ///< px, per cluster: of each transition that starts or ends there
    int sum = 0;                  ///< of all counts
};

/// The transitions of several walks; none leads from one walk to another. Only fixations that lie wholly in the frame
/// take part. The length of a transition is the distance of the means of its two fixations.
ClusterTransitions countTransitions(const ClusterIndex &index, const QList<GazeWalk> &walks, TransitionType type,
                                    TimeFrame frame);
