// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/StepWalk.h"

#include "base/Truncation.h"
#include "detection/CentroidSum.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// Merges runs into the last fixation of a scanpath.
///
/// The mean is needed at once, to judge the next run; its sums are carried on from run to run, in the order of the
/// samples, so that it has the bits of a new computation. The variance waits until the fixation is complete.
class Merging {
public:
    explicit Merging(QList<Fixation> &scanpath) : m_scanpath(scanpath) {}

    bool takes(const Fixation &next) const
    {
        if (m_scanpath.isEmpty())
            return false;
        const Fixation &target = m_scanpath.constLast();
        const double dx = static_cast<double>(next.mean.x()) - target.mean.x();
        const double dy = static_cast<double>(next.mean.y()) - target.mean.y();
        // The minor axis is kept; the major one, which is the extent of a fixation, would merge more.
        return target.minorAxis.length() > std::sqrt(dx * dx + dy * dy);
    }

    void take(const GazeSamples &run)
    {
        Fixation &target = m_scanpath.last();
        if (m_isSummed && continues(target.samples, run)) {
            target.samples.append(run);
            add(run);
        } else {
            target.extend(run);
            m_sumX = m_sumY = 0;
            add(target.samples);
        }
        m_isSummed = true;
        const auto count = static_cast<double>(target.samples.size());
        target.mean = {truncated(m_sumX / count), truncated(m_sumY / count)};
    }

    /// Nothing more will be merged into the last fixation.
    void finish()
    {
        if (std::exchange(m_isSummed, false))
            m_scanpath.last().updateVariance();
    }

private:
    static bool continues(const GazeSamples &sorted, const GazeSamples &run)
    {
        return !isEarlier(run.first(), sorted.last()) && std::is_sorted(run.cbegin(), run.cend(), isEarlier);
    }

    void add(const GazeSamples &samples)
    {
        for (const GazePoint &sample : samples) {
            m_sumX += sample.x;
            m_sumY += sample.y;
        }
    }

    QList<Fixation> &m_scanpath;
    bool m_isSummed = false; ///< the sums are those of the last fixation, whose samples are in order
    double m_sumX = 0;
    double m_sumY = 0;
};

Fixation fixationOf(const GazeSamples &samples, int number)
{
    CentroidSum sum;
    for (const GazePoint &sample : samples)
        sum.add(sample.x, sample.y);
    return {samples, QStringLiteral("fixation"), sum.centroid(), number};
}

} // namespace

void appendRestingRuns(const QList<GazePoint> &samples, const StepLabels &steps, const MixtureParameters &parameters,
                       QList<Fixation> &scanpath)
{
    Merging merging(scanpath);
    int fixationCounter = 0;
    qsizetype start = 0;
    for (qsizetype i = 0; i < std::ssize(steps.labels); ++i) {
        if (steps.labels[static_cast<size_t>(i)] == steps.restingLabel)
            continue;
        const qsizetype first = std::exchange(start, i + 1);
        if (static_cast<int>(elapsedMs(samples[first].time, samples[i].time)) <= parameters.minimumDurationMs)
            continue;
        Fixation fixation = fixationOf({samples, first, i - first + 1}, fixationCounter);
        if (parameters.mergeSequential && merging.takes(fixation)) {
            merging.take(fixation.samples);
            continue;
        }
        merging.finish();
        scanpath.append(std::move(fixation));
        ++fixationCounter;
    }
    merging.finish();
}
