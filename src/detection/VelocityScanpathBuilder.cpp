// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/VelocityScanpathBuilder.h"

#include "base/Truncation.h"
#include "detection/CentroidSum.h"
#include "detection/SpeedThreshold.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

double squaredDistance(const GazePoint &a, const GazePoint &b)
{
    return (b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y);
}

SpeedThreshold thresholdFor(const QList<GazePoint> &samples, const VelocityParameters &parameters)
{
    const int threshold = truncated(parameters.threshold);
    switch (parameters.unit) {
    case VelocityUnit::PixelPerMs:
        return SpeedThreshold(threshold);
    case VelocityUnit::DegreePerS:
        return SpeedThreshold(threshold / 1000.0,
                              {parameters.screenDistanceM, parameters.imageSizeM, parameters.imageWidthPx});
    case VelocityUnit::Percentile:
        break;
    }
    return SpeedThreshold(percentileSpeed(samples, threshold));
}

} // namespace

VelocityScanpathBuilder::VelocityScanpathBuilder(const QList<GazePoint> &samples, QList<Fixation> *scanpath,
                                                 const VelocityParameters &parameters)
    : m_samples(samples)
    , m_scanpath(scanpath)
    , m_minimumDurationMs(parameters.minimumDurationMs)
{
    detect(thresholdFor(samples, parameters));
}

/// The run of slow samples is kept as its two ends: what lies between them is looked at again only if it is a fixation.
void VelocityScanpathBuilder::detect(const SpeedThreshold &threshold)
{
    constexpr qsizetype none = -1;
    const GazePoint *const samples = m_samples.constData();
    const qsizetype count = m_samples.size();
    qsizetype first = none;
    qsizetype last = none;
    for (qsizetype i = 1; i < count; ++i) {
        const GazePoint &sample = samples[i];
        if (!sample.validFlag)
            continue;
        const GazePoint &before = samples[i - 1];
        if (threshold.isGreaterThan(squaredDistance(before, sample), elapsedMs(before.time, sample.time))) {
            first = first == none ? i : first;
            last = i;
        } else if (first != none) {
            closeRun(first, last);
            first = none;
        }
    }
}

void VelocityScanpathBuilder::closeRun(qsizetype first, qsizetype last)
{
    const auto durationMs = static_cast<int>(elapsedMs(m_samples[first].time, m_samples[last].time));
    if (durationMs <= m_minimumDurationMs || !m_scanpath)
        return;
    GazeSamples run(m_samples, first, last - first + 1);
    if (!std::all_of(run.begin(), run.end(), [](const GazePoint &sample) { return sample.validFlag; }))
        run.own().removeIf([](const GazePoint &sample) { return !sample.validFlag; });
    CentroidSum sum;
    for (const GazePoint &sample : std::as_const(run))
        sum.add(sample.x, sample.y);
    m_scanpath->append(
        Fixation(std::move(run), QStringLiteral("fixation"), sum.centroid(), static_cast<int>(m_scanpath->size()) + 1));
}

double percentileSpeed(const QList<GazePoint> &samples, int percent)
{
    if (samples.size() < 2)
        return 0;
    std::vector<double> speeds;
    speeds.reserve(static_cast<size_t>(samples.size()));
    for (qsizetype i = 1; i < samples.size(); ++i) {
        const GazePoint &before = samples[i - 1];
        const GazePoint &sample = samples[i];
        speeds.push_back(std::sqrt(squaredDistance(before, sample)) /
                         static_cast<double>(elapsedMs(before.time, sample.time)));
    }
    const auto numbersEnd = std::partition(speeds.begin(), speeds.end(), [](double v) { return !std::isnan(v); });
    const qsizetype count = std::ssize(speeds);
    const qsizetype position = std::clamp<qsizetype>(count / 100 * percent, 0, count - 1);
    const auto element = speeds.begin() + position;
    if (element < numbersEnd)
        std::nth_element(speeds.begin(), element, numbersEnd);
    return *element;
}
