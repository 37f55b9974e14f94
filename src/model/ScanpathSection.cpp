// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ScanpathSection.h"

#include "base/Log.h"
#include "base/Truncation.h"
#include "model/SymmetricMatrix.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr size_t fewestSamplesForAxes = 4;

/// The squares of differences between coordinates below this, summed over any recording, are finite.
constexpr double coordinateLimit = 1e140;

QVector2D scaledAxis(const EigenPair &pair)
{
    const double length = std::sqrt(std::max(0.0, pair.value));
    return {static_cast<float>(pair.x * length), static_cast<float>(pair.y * length)};
}

bool isFinite(const PrincipalAxes &axes)
{
    return std::isfinite(axes.major.x()) && std::isfinite(axes.major.y()) && std::isfinite(axes.minor.x()) &&
           std::isfinite(axes.minor.y());
}

/// The mean of the products of the deviations; nothing where a coordinate is beyond the limit.
std::optional<SymmetricMatrix> covarianceOf(std::span<const GazePoint> samples)
{
    double sumX = 0;
    double sumY = 0;
    double largest = 0;
    for (const GazePoint &sample : samples) {
        sumX += sample.x;
        sumY += sample.y;
        largest = std::max({largest, std::abs(sample.x), std::abs(sample.y)});
    }
    const bool isNumber = std::isfinite(sumX) && std::isfinite(sumY); // a maximum overlooks what is none
    if (!isNumber || !(largest < coordinateLimit))
        return std::nullopt;
    const double share = 1 / static_cast<double>(samples.size());
    const double meanX = sumX * share;
    const double meanY = sumY * share;
    SymmetricMatrix sums;
    for (const GazePoint &sample : samples) {
        const double x = sample.x - meanX;
        const double y = sample.y - meanY;
        sums.xx += x * x;
        sums.xy += x * y;
        sums.yy += y * y;
    }
    return SymmetricMatrix{sums.xx * share, sums.xy * share, sums.yy * share};
}

/// The middle of the list as it stands, which is mostly the middle in time. Kept: the textbook median sorts each axis
/// first and gives another position where the gaze goes back and forth.
QPoint middleInTime(const GazeSamples &samples)
{
    const qsizetype middle = samples.size() / 2;
    const GazePoint &upper = samples[middle];
    if (samples.size() % 2 == 1)
        return {truncated(upper.x), truncated(upper.y)};
    const GazePoint &lower = samples[middle - 1];
    return {truncated((upper.x + lower.x) / 2), truncated((upper.y + lower.y) / 2)};
}

bool isSorted(std::span<const GazePoint> samples)
{
    return std::is_sorted(samples.begin(), samples.end(), isEarlier);
}

void sortByTime(GazeSamples &samples)
{
    if (isSorted(samples))
        return;
    QList<GazePoint> &list = samples.own();
    std::stable_sort(list.begin(), list.end(), isEarlier);
}

} // namespace

PrincipalAxes principalAxes(std::span<const GazePoint> samples)
{
    if (samples.size() < fewestSamplesForAxes)
        return {};
    const PrincipalAxes none{{}, {}};
    const std::optional<SymmetricMatrix> covariance = covarianceOf(samples);
    if (!covariance)
        return none;
    const auto [major, minor] = eigenPairs(*covariance);
    const PrincipalAxes axes{scaledAxis(major), scaledAxis(minor)};
    return isFinite(axes) ? axes : none;
}

QPoint meanOf(std::span<const GazePoint> samples)
{
    double sumX = 0;
    double sumY = 0;
    for (const GazePoint &sample : samples) {
        sumX += sample.x;
        sumY += sample.y;
    }
    const auto count = static_cast<double>(samples.size());
    return {truncated(sumX / count), truncated(sumY / count)};
}

QPoint varianceAbout(QPoint center, std::span<const GazePoint> samples)
{
    double sumX = 0;
    double sumY = 0;
    for (const GazePoint &sample : samples) {
        sumX += (sample.x - center.x()) * (sample.x - center.x());
        sumY += (sample.y - center.y()) * (sample.y - center.y());
    }
    const auto count = static_cast<double>(samples.size());
    return {truncated(sumX / count), truncated(sumY / count)};
}

int ScanpathSection::duration() const
{
    return samples.isEmpty() ? 0 : static_cast<int>(elapsedMs(samples.first().time, samples.last().time));
}

void ScanpathSection::extend(const GazeSamples &further)
{
    const qsizetype joint = samples.size();
    samples.append(further);
    if (!timeSorted) {
        sortByTime(samples);
        return;
    }
    // The front is sorted: only what the new samples reach into is looked at and moved, so that many short extensions
    // of one long section stay linear.
    if (isSorted(std::span(samples).subspan(static_cast<size_t>(std::max<qsizetype>(joint - 1, 0)))))
        return;
    QList<GazePoint> &list = samples.own();
    const auto middle = list.begin() + joint;
    std::stable_sort(middle, list.end(), isEarlier);
    if (joint > 0)
        std::inplace_merge(std::upper_bound(list.begin(), middle, *middle, isEarlier), middle, list.end(), isEarlier);
}

Fixation::Fixation(GazeSamples samples_, const QString &type_, QPoint centroid, int number_)
{
    samples = std::move(samples_);
    mean = centroid;
    type = type_;
    number = number_;
    if (samples.isEmpty()) {
        qWarning("WARNING: Fixation of size zero constructed!");
        return;
    }
    median = middleInTime(samples);
    variance = varianceAbout(mean, samples); // about the centroid as given, even where it is replaced below
    if (mean.isNull())
        mean = meanOf(samples);
    const PrincipalAxes axes = principalAxes(samples);
    majorAxis = axes.major;
    minorAxis = axes.minor;
}

void Fixation::updateVariance()
{
    if (!samples.isEmpty())
        variance = varianceAbout(mean, samples);
}

Saccade::Saccade(GazeSamples samples_, const QString &type_, int number_, const Log *log)
{
    samples = std::move(samples_);
    type = type_;
    number = number_;
    if (samples.isEmpty() && log)
        log->write(QStringLiteral("Error: Saccade of size zero constructed!"));
    sortByTime(samples);
    timeSorted = true;
}

Invalid::Invalid(GazeSamples samples_, const QString &type_, int number_, const Log *log)
{
    samples = std::move(samples_);
    type = type_;
    number = number_;
    if (samples.isEmpty() && log)
        log->write(QStringLiteral("Error: Invalid of size zero constructed!"));
}
