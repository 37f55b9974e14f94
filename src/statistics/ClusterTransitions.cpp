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

struct Stay {
    const Fixation *fixation = nullptr;
    qsizetype cluster = -1;
};

} // namespace

ClusterIndex::Key::Key(const Fixation &fixation_)
    : mean(fixation_.mean)
    , firstTime(fixation_.firstTime())
    , fixation(&fixation_)
{
}

bool ClusterIndex::Key::operator==(const Key &other) const
{
    return mean == other.mean && firstTime == other.firstTime && fixation->samples == other.fixation->samples;
}

size_t ClusterIndex::Hash::operator()(const Key &key) const noexcept
{
    return qHashMulti(0, key.mean.x(), key.mean.y(), key.firstTime);
}

ClusterIndex::ClusterIndex(const QList<FixationCluster> &clusters) : m_clusterCount(clusters.size())
{
    size_t fixations = 0;
    for (const FixationCluster &cluster : clusters)
        fixations += static_cast<size_t>(cluster.fixations.size());
    m_clusters.reserve(fixations);
    for (qsizetype i = 0; i < clusters.size(); ++i) {
        for (const Fixation &fixation : clusters[i].fixations)
            m_clusters.emplace(Key(fixation), i); // the first cluster stays
    }
}

qsizetype ClusterIndex::clusterOf(const Fixation &fixation) const
{
    const auto found = m_clusters.find(Key(fixation));
    return found == m_clusters.cend() ? -1 : found->second;
}

void ClusterTransitions::add(Pair pair, double length)
{
    ++counts[pair];
    ++sum;
    for (const qsizetype cluster : {pair.first, pair.second}) {
        ++totals[cluster];
        lengths[cluster] << length;
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

ClusterTransitions countTransitions(const ClusterIndex &index, const QList<GazeWalk> &walks, TransitionType type,
                                    TimeFrame frame)
{
    const bool direct = type == TransitionType::Saccades;
    ClusterTransitions transitions(index.clusterCount());
    for (const GazeWalk &walk : walks) {
        const SaccadeTimes saccades(direct ? walk.saccades : nullptr);
        Stay previous;
        for (const Fixation &fixation : walk.fixations) {
            if (!frame.holds(fixation))
                continue;
            const Stay stay{&fixation, index.clusterOf(fixation)};
            if (stay.cluster < 0 && !direct)
                continue; // neither ends nor begins a transition
            if (previous.cluster >= 0 && stay.cluster >= 0 && previous.cluster != stay.cluster &&
                (!direct || saccades.hasOneBetween(previous.fixation->lastTime(), fixation.firstTime())))
                transitions.add({previous.cluster, stay.cluster}, distance(previous.fixation->mean, fixation.mean));
            previous = stay;
        }
    }
    return transitions;
}
