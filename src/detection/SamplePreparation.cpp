// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/SamplePreparation.h"

#include "base/Messages.h"
#include "detection/Median.h"

#include <algorithm>

namespace {

constexpr qsizetype none = -1;

/// The nearest valid samples around a sample; `none` where there is none on that side.
struct Neighbours {
    qsizetype left = none;
    qsizetype right = none;
};

/// Both searches start at the sample itself.
Neighbours neighboursOf(const QList<GazePoint> &samples, qsizetype index)
{
    Neighbours neighbours{index, index};
    while (neighbours.left != none && !samples[neighbours.left].validFlag)
        --neighbours.left;
    while (neighbours.right != samples.size() && !samples[neighbours.right].validFlag)
        ++neighbours.right;
    if (neighbours.right == samples.size())
        neighbours.right = none;
    return neighbours;
}

qint64 durationBetween(const QList<GazePoint> &samples, const Neighbours &neighbours)
{
    const qsizetype left = neighbours.left == none ? 0 : neighbours.left;
    const qsizetype right = neighbours.right == none ? samples.size() - 1 : neighbours.right;
    return elapsedMs(samples[left].time, samples[right].time);
}

QPointF placeBetween(const QList<GazePoint> &samples, qsizetype index, const Neighbours &neighbours)
{
    if (neighbours.left == none && neighbours.right == none) {
        messages::warning(QStringLiteral("All samples are invalid."),
                          QStringLiteral("Your data seems to contain not a single valid sample."));
        return {0, 0};
    }
    if (neighbours.left == none)
        return {samples[neighbours.right].x, samples[neighbours.right].y};
    const GazePoint &left = samples[neighbours.left];
    if (neighbours.right == none)
        return {left.x, left.y};
    if (neighbours.right <= neighbours.left)
        messages::warning(QStringLiteral("Program error"),
                          QStringLiteral("Interpolation indices are erroneous. Program has a bug :-("));
    const GazePoint &right = samples[neighbours.right];
    const qint64 gapMs = elapsedMs(left.time, right.time);
    if (gapMs == 0)
        return {left.x, left.y};
    const auto length = static_cast<double>(gapMs);
    const auto elapsed = static_cast<double>(elapsedMs(left.time, samples[index].time));
    return {left.x + (right.x - left.x) / length * elapsed, left.y + (right.y - left.y) / length * elapsed};
}

double medianOrZero(std::vector<double> &values)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end(), sortsBefore);
    return medianOfSorted(values, values.size());
}

} // namespace

std::vector<WorkSample> prepareSamples(const QList<GazePoint> &rawSamples, qint64 maximumGapMs)
{
    std::vector<WorkSample> prepared;
    prepared.reserve(static_cast<size_t>(rawSamples.size()));
    const qsizetype count = rawSamples.size();
    for (qsizetype index = 0; index < count;) {
        const GazePoint &sample = rawSamples[index];
        if (sample.validFlag) {
            prepared.push_back({&sample, sample.x, sample.y, false, true});
            ++index;
            continue;
        }
        // All samples of one loss have the same neighbours: they are searched once.
        const Neighbours neighbours = neighboursOf(rawSamples, index);
        const bool isBridged = durationBetween(rawSamples, neighbours) <= maximumGapMs;
        const qsizetype end = neighbours.right == none ? count : neighbours.right;
        for (; index < end; ++index) {
            const GazePoint &lost = rawSamples[index];
            const QPointF position = isBridged ? placeBetween(rawSamples, index, neighbours) : QPointF(lost.x, lost.y);
            prepared.push_back({&lost, position.x(), position.y(), isBridged, isBridged});
        }
    }
    return prepared;
}

qint64 gapDuration(const QList<GazePoint> &rawSamples, qsizetype index)
{
    return durationBetween(rawSamples, neighboursOf(rawSamples, index));
}

QPointF interpolateGap(const QList<GazePoint> &rawSamples, qsizetype index)
{
    return placeBetween(rawSamples, index, neighboursOf(rawSamples, index));
}

void medianFilter(std::vector<WorkSample> &workSamples, int length)
{
    if (length % 2 == 0) {
        messages::warning(QStringLiteral("Filter length is even"),
                          QStringLiteral("Expected an odd number as filter length, but found even. Increasing length "
                                         "by 1."));
        ++length;
    }
    if (length < 1)
        messages::warning(QStringLiteral("Filter length <= 0"),
                          QStringLiteral("Filter length was invalid. Choosing 1 (= no filtering) instead."));
    if (length <= 1)
        return;
    const qsizetype half = (length - 1) / 2;
    for (qsizetype index = 0; index < std::ssize(workSamples); ++index)
        workSamples[static_cast<size_t>(index)] = medianOfWindow(workSamples, index - half, index + half, index);
}

WorkSample medianOfWindow(const std::vector<WorkSample> &workSamples, qsizetype start, qsizetype end, qsizetype index)
{
    const WorkSample center = index == none ? WorkSample() : workSamples[static_cast<size_t>(index)];
    if (index != none && !center.usable)
        return center;
    const qsizetype last = std::ssize(workSamples) - 1;
    const qsizetype from = std::max(start, qsizetype(0));
    const qsizetype to = end == none ? last : std::min(end, last);
    std::vector<double> x;
    std::vector<double> y;
    for (qsizetype i = from; i <= to; ++i) {
        const WorkSample &sample = workSamples[static_cast<size_t>(i)];
        if (sample.usable) {
            x.push_back(sample.x);
            y.push_back(sample.y);
        }
    }
    return {center.source, medianOrZero(x), medianOrZero(y), index != none, center.usable};
}
