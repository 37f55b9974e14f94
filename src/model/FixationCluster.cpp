// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/FixationCluster.h"

#include "base/Progress.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace {

/// The samples of all fixations, sorted by time; those of one time in the order of the fixations. Each fixation is
/// nearly always sorted in itself, so that they are merged, two and two: in a pooled stream this is far less work than
/// a sort, and no part of it takes long.
QList<GazePoint> samplesByTime(const QList<Fixation> &fixations)
{
    std::vector<qsizetype> bounds{0};
    for (const Fixation &fixation : fixations)
        bounds.push_back(bounds.back() + fixation.samples.size());
    QList<GazePoint> samples;
    samples.reserve(bounds.back());
    for (const Fixation &fixation : fixations)
        std::copy(fixation.samples.begin(), fixation.samples.end(), std::back_inserter(samples));
    if (std::is_sorted(samples.cbegin(), samples.cend(), isEarlier))
        return samples;
    for (size_t run = 1; run < bounds.size(); ++run)
        std::stable_sort(samples.begin() + bounds[run - 1], samples.begin() + bounds[run], isEarlier);
    QList<GazePoint> merged(samples.size());
    while (bounds.size() > 2) {
        std::vector<qsizetype> joined{0};
        for (size_t run = 0; run + 1 < bounds.size(); run += 2) {
            const qsizetype middle = bounds[run + 1];
            const qsizetype end = run + 2 < bounds.size() ? bounds[run + 2] : middle;
            std::merge(samples.cbegin() + bounds[run], samples.cbegin() + middle, samples.cbegin() + middle,
                       samples.cbegin() + end, merged.begin() + bounds[run], isEarlier);
            joined.push_back(end);
            Progress::refresh();
        }
        samples.swap(merged);
        bounds = std::move(joined);
    }
    return samples;
}

} // namespace

FixationCluster::FixationCluster(QList<Fixation> fixations_, QPoint center)
{
    if (fixations_.isEmpty()) {
        qWarning("WARNING: Cluster of size zero constructed!");
        return;
    }
    *this = gathered(std::move(fixations_));
    mean = center.isNull() ? meanOf(samples) : center;
    variance = varianceAbout(mean, samples);
    const PrincipalAxes axes = principalAxes(samples);
    majorAxis = axes.major;
    minorAxis = axes.minor;
}

FixationCluster FixationCluster::gathered(QList<Fixation> fixations)
{
    FixationCluster cluster;
    cluster.samples = samplesByTime(fixations);
    cluster.fixations = std::move(fixations);
    return cluster;
}

qsizetype FixationCluster::fixationsWithin(TimeFrame frame) const
{
    return std::count_if(fixations.cbegin(), fixations.cend(),
                         [frame](const Fixation &fixation) { return frame.holds(fixation); });
}
