// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/ClusterTransitions.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace {

/// Answers whether a saccade lies between two times.
class SaccadeTimes {
public:
    explicit SaccadeTimes(const QList<Saccade> *saccades)
    {
        if (!saccades)
            return;
        for (const Saccade &saccade : *saccades) {
            if (!saccade.samples.isEmpty())
                m_times << TimeFrame{saccade.firstTime(), saccade.lastTime()};
        }
        std::sort(m_times.begin(), m_times.end(), [](TimeFrame a, TimeFrame b) {
            return std::pair(a.startMs, a.endMs) < std::pair(b.startMs, b.endMs);
        });
    }

    bool hasOneBetween(qint64 startMs, qint64 endMs) const
    {
        const auto next = std::lower_bound(m_times.cbegin(), m_times.cend(), startMs,
                                           [](TimeFrame saccade, qint64 timeMs) { return saccade.startMs < timeMs; });
        return next != m_times.cend() && next->endMs <= endMs;
    }

private:
    QList<TimeFrame> m_times; ///< by their start
};

double distance(QPoint from, QPoint to)
{
    return std::hypot(double(to.x()) - from.x(), double(to.y()) - from.y());
}

/// Sums that wrap around are those of damaged clocks.
qint64 middleOf(const Fixation &fixation)
{
    return static_cast<qint64>(static_cast<quint64>(fixation.firstTime()) + static_cast<quint64>(fixation.lastTime())) /
           2;
}

} // namespace

ClusterIndex::Key::Key(const Fixation &fixation, Likeness likeness)
    : mean(fixation.mean)
    , firstTime(fixation.firstTime())
    , samples(likeness == Likeness::Samples ? &fixation.samples : nullptr)
{
}

bool ClusterIndex::Key::operator==(const Key &other) const
{
    return mean == other.mean && firstTime == other.firstTime && (!samples || *samples == *other.samples);
}

size_t ClusterIndex::Hash::operator()(const Key &key) const noexcept
{
    return qHashMulti(0, key.mean.x(), key.mean.y(), key.firstTime);
}

ClusterIndex::ClusterIndex(const QList<FixationCluster> &clusters, Likeness likeness)
    : m_clusterCount(clusters.size())
    , m_likeness(likeness)
{
    size_t fixations = 0;
    for (const FixationCluster &cluster : clusters)
        fixations += static_cast<size_t>(cluster.fixations.size());
    m_clusters.reserve(fixations);
    for (qsizetype i = 0; i < clusters.size(); ++i) {
        for (const Fixation &fixation : clusters[i].fixations)
            m_clusters.emplace(Key(fixation, likeness), i); // the first cluster stays
    }
}

qsizetype ClusterIndex::clusterOf(const Fixation &fixation) const
{
    const auto found = m_clusters.find(Key(fixation, m_likeness));
    return found == m_clusters.cend() ? -1 : found->second;
}

ClusterTransitions::ClusterTransitions(qsizetype clusterCount)
    : totals(clusterCount)
    , lengths(clusterCount)
    , times(clusterCount)
{
}

void ClusterTransitions::add(Pair pair, double lengthPx, qint64 timeMs)
{
    ++counts[pair];
    ++sum;
    for (const qsizetype cluster : {pair.first, pair.second}) {
        ++totals[cluster];
        lengths[cluster] << lengthPx;
        times[cluster] << timeMs;
    }
}

int ClusterTransitions::count(qsizetype from, qsizetype to) const
{
    const auto found = counts.find({from, to});
    return found == counts.cend() ? 0 : found->second;
}

int ClusterTransitions::largest() const
{
    int largest = 1;
    for (const auto &[pair, count] : counts)
        largest = std::max(largest, count);
    return largest;
}

ClusterTransitions countTransitions(const ClusterIndex &index, const QList<GazeWalk> &walks, TransitionRules rules,
                                    TimeFrame frame)
{
    const bool direct = rules.type == TransitionType::Saccades;
    const auto placesOf = [&](const Fixation &fixation) {
        const qsizetype cluster = index.clusterOf(fixation);
        return cluster < 0 ? Places() : Places{cluster};
    };
    ClusterTransitions transitions(index.clusterCount());
    for (const GazeWalk &walk : walks) {
        const SaccadeTimes saccades(direct ? walk.saccades : nullptr);
        const auto count = [&](const GazeStay &stay, const Fixation &fixation, const Places &places) {
            if (stay.places == places ||
                (direct && !saccades.hasOneBetween(stay.last->lastTime(), fixation.firstTime())))
                return;
            const Fixation &from = rules.lengthFrom == LengthFrom::FirstFixation ? *stay.first : *stay.last;
            transitions.add({stay.places[0], places[0]}, distance(from.mean, fixation.mean), middleOf(fixation));
        };
        followGaze(walk, frame, rules.type, placesOf, count);
    }
    return transitions;
}
