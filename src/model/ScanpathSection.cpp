#include "model/ScanpathSection.h"

#include "base/Log.h"
#include "base/TextFormat.h"

#include <algorithm>
#include <cmath>

namespace {

using text::truncated;

constexpr qsizetype fewestSamplesForAxes = 4;

/// Population covariance of the positions, px^2.
struct Covariance {
    double xx = 0;
    double xy = 0;
    double yy = 0;
};

Covariance covarianceOf(const QList<GazePoint> &samples)
{
    const auto count = static_cast<double>(samples.size());
    double meanX = 0;
    double meanY = 0;
    for (const GazePoint &sample : samples) {
        meanX += sample.x;
        meanY += sample.y;
    }
    meanX /= count;
    meanY /= count;
    Covariance sum;
    for (const GazePoint &sample : samples) {
        const double dx = sample.x - meanX;
        const double dy = sample.y - meanY;
        sum.xx += dx * dx;
        sum.xy += dx * dy;
        sum.yy += dy * dy;
    }
    return {sum.xx / count, sum.xy / count, sum.yy / count};
}

QVector2D toAxis(double x, double y)
{
    return {static_cast<float>(x), static_cast<float>(y)};
}

/// The axes of a covariance matrix in closed form: a general solver would cost more than all the samples of a short
/// fixation. The directions have the signs that such a solver returns.
PrincipalAxes axesOf(const Covariance &c)
{
    const double center = (c.xx + c.yy) / 2;
    const double halfDifference = (c.xx - c.yy) / 2;
    const double radius = std::sqrt(halfDifference * halfDifference + c.xy * c.xy);
    if (!std::isfinite(center) || !std::isfinite(radius))
        return {{}, {}};
    const double variance = center + radius;
    // As determinant over major variance, without the cancellation of center - radius.
    const double minorVariance = variance > 0 ? c.xx * (c.yy / variance) - c.xy * (c.xy / variance) : 0;
    const double major = std::sqrt(variance);
    const double minor = std::sqrt(std::max(0.0, minorVariance));
    if (c.xy == 0)
        return c.xx > c.yy ? PrincipalAxes{toAxis(major, 0), toAxis(0, minor)}
                           : PrincipalAxes{toAxis(0, major), toAxis(minor, 0)};
    // Half-angle formulas: the turn from the coordinate axis of the larger variance, at most 45 degrees.
    const double along = std::sqrt((1 + std::abs(halfDifference) / radius) / 2);
    const double across = c.xy / radius / (2 * along);
    if (c.xx >= c.yy)
        return {toAxis(major * along, major * across), toAxis(-minor * across, minor * along)};
    return {toAxis(-major * across, -major * along), toAxis(-minor * along, minor * across)};
}

/// The middle of the sequence in time. Downstream results are defined by it, so it must not become a sorted median.
QPoint middleInTime(const QList<GazePoint> &samples)
{
    const qsizetype middle = samples.size() / 2;
    const GazePoint &upper = samples[middle];
    if (samples.size() % 2 == 1)
        return {truncated(upper.x), truncated(upper.y)};
    const GazePoint &lower = samples[middle - 1];
    return {truncated((upper.x + lower.x) / 2), truncated((upper.y + lower.y) / 2)};
}

QPoint varianceAbout(QPoint center, const QList<GazePoint> &samples)
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

QPoint centroidOf(const QList<GazePoint> &samples)
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

bool isEarlier(const GazePoint &a, const GazePoint &b)
{
    return a.time < b.time;
}

void sortByTime(QList<GazePoint> &samples)
{
    if (!std::is_sorted(samples.cbegin(), samples.cend(), isEarlier))
        std::stable_sort(samples.begin(), samples.end(), isEarlier);
}

} // namespace

PrincipalAxes principalAxes(const QList<GazePoint> &samples)
{
    if (samples.size() < fewestSamplesForAxes)
        return {};
    return axesOf(covarianceOf(samples));
}

int ScanpathSection::duration() const
{
    return samples.isEmpty() ? 0 : static_cast<int>(elapsedMs(samples.first().time, samples.last().time));
}

void ScanpathSection::extend(const QList<GazePoint> &further)
{
    const qsizetype joint = samples.size();
    samples.append(further);
    if (!timeSorted) {
        sortByTime(samples);
        return;
    }
    // The front is sorted: only what the new samples reach into is moved, so that many short extensions of one long
    // section stay linear.
    const auto middle = samples.begin() + joint;
    std::stable_sort(middle, samples.end(), isEarlier);
    if (joint > 0 && middle != samples.end())
        std::inplace_merge(std::upper_bound(samples.begin(), middle, *middle, isEarlier), middle, samples.end(),
                           isEarlier);
}

Fixation::Fixation(QList<GazePoint> samples_, const QString &type_, QPoint centroid, int number_)
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
        mean = centroidOf(samples);
    const PrincipalAxes axes = principalAxes(samples);
    majorAxis = axes.major;
    minorAxis = axes.minor;
}

Saccade::Saccade(QList<GazePoint> samples_, const QString &type_, int number_, const Log *log)
{
    samples = std::move(samples_);
    type = type_;
    number = number_;
    if (samples.isEmpty() && log)
        log->write(QStringLiteral("Error: Saccade of size zero constructed!"));
    sortByTime(samples);
    timeSorted = true;
}

Invalid::Invalid(QList<GazePoint> samples_, const QString &type_, int number_, const Log *log)
{
    samples = std::move(samples_);
    type = type_;
    number = number_;
    if (samples.isEmpty() && log)
        log->write(QStringLiteral("Error: Invalid of size zero constructed!"));
}
