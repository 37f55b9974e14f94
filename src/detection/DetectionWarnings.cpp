// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/DetectionWarnings.h"

#include "base/TextFormat.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace {

using Warning = std::optional<QString>;

/// The lower one of the middle two where their number is even.
template <class T>
T lowerMedianOf(std::vector<T> &values)
{
    const auto middle = values.begin() + (std::ssize(values) - 1) / 2;
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

qint64 samplingIntervalMs(const QList<GazePoint> &samples)
{
    std::vector<qint64> steps;
    steps.reserve(static_cast<size_t>(samples.size()));
    for (qsizetype i = 1; i < samples.size(); ++i)
        steps.push_back(elapsedMs(samples[i - 1].time, samples[i].time));
    return steps.empty() ? 0 : lowerMedianOf(steps);
}

/// Counting is far cheaper than a median, so that recordings without a fault pay little.
bool isShorterThanInterval(const QList<GazePoint> &samples, int durationMs)
{
    qsizetype longer = 0;
    for (qsizetype i = 1; i < samples.size(); ++i)
        longer += elapsedMs(samples[i - 1].time, samples[i].time) > durationMs ? 1 : 0;
    return 2 * longer > samples.size() - 1;
}

Warning durationWarning(const QList<GazePoint> &samples, int minimumDurationMs)
{
    if (!isShorterThanInterval(samples, minimumDurationMs))
        return {};
    return QStringLiteral("The minimum duration of %1 ms is shorter than one sampling interval, %2 ms.")
        .arg(minimumDurationMs)
        .arg(samplingIntervalMs(samples));
}

Warning radiusWarning(const QList<GazePoint> &samples, int radiusPx)
{
    const double noise = noisePx(samples);
    if (!(radiusPx < noise))
        return {};
    return QStringLiteral("The maximum radius of %1 px is below the noise of the recording, %2 px from sample to "
                          "sample.")
        .arg(radiusPx)
        .arg(text::general6(noise));
}

Warning percentileWarning(const QList<GazePoint> &samples)
{
    constexpr qsizetype fewestSpeeds = 100;
    const qsizetype speeds = samples.size() - 1;
    if (speeds >= fewestSpeeds)
        return {};
    return QStringLiteral("A percentile of fewer than %1 speeds finds no fixation; this recording has %2.")
        .arg(fewestSpeeds)
        .arg(speeds);
}

/// What two samples of one time mean to a detector differs.
Warning equalTimesWarning(const QList<GazePoint> &samples, QLatin1StringView consequence)
{
    qsizetype equal = 0;
    for (qsizetype i = 1; i < samples.size(); ++i)
        equal += samples[i].validFlag && samples[i].time == samples[i - 1].time ? 1 : 0;
    if (equal == 0)
        return {};
    return QStringLiteral("Samples with the time of the sample before them: %1 of %2; %3.")
        .arg(equal)
        .arg(samples.size())
        .arg(consequence);
}

Warning thresholdWarning(double threshold)
{
    if (!(threshold < 1))
        return {};
    return QStringLiteral(
               "The velocity threshold of %1 works as 0, since only its whole part counts: no eye is slower.")
        .arg(text::general6(threshold));
}

/// An angle needs a distance and a size that are there.
Warning geometryWarning(const VelocityParameters &parameters)
{
    if (parameters.unit != VelocityUnit::DegreePerS)
        return {};
    if (!(parameters.screenDistanceM > 0))
        return QStringLiteral("The screen distance is 0: each movement counts as 90 degrees.");
    if (!(parameters.imageSizeM > 0))
        return QStringLiteral("The image size is 0: all speeds in degrees are 0.");
    return {};
}

QList<Warning> warningsOf(const QList<GazePoint> &samples, const StandardParameters &parameters)
{
    return {durationWarning(samples, parameters.minimumDurationMs), radiusWarning(samples, parameters.maximumRadiusPx),
            equalTimesWarning(samples, QLatin1StringView("times are coarser than the recording"))};
}

QList<Warning> warningsOf(const QList<GazePoint> &samples, const MixtureParameters &parameters)
{
    return {durationWarning(samples, parameters.minimumDurationMs)};
}

QList<Warning> warningsOf(const QList<GazePoint> &samples, const VelocityParameters &parameters)
{
    return {durationWarning(samples, parameters.minimumDurationMs),
            parameters.unit == VelocityUnit::Percentile ? percentileWarning(samples) : Warning(),
            equalTimesWarning(samples, QLatin1StringView("each ends a fixation"))};
}

QStringList textsOf(const QList<Warning> &warnings)
{
    QStringList texts;
    for (const Warning &warning : warnings) {
        if (warning)
            texts << *warning;
    }
    return texts;
}

} // namespace

bool wasRecorded(const QList<GazePoint> &samples)
{
    return std::any_of(samples.cbegin(), samples.cend(), [](const GazePoint &sample) { return sample.validFlag; });
}

double noisePx(const QList<GazePoint> &samples)
{
    constexpr qint64 stretchMs = 100;
    std::vector<double> stretches;
    double squares = 0;
    int steps = 0;
    qint64 start = 0;
    for (qsizetype i = 1; i < samples.size(); ++i) {
        const GazePoint &before = samples[i - 1];
        const GazePoint &sample = samples[i];
        if (!before.validFlag || !sample.validFlag) {
            steps = 0;
            continue;
        }
        if (steps == 0) {
            squares = 0;
            start = before.time;
        }
        squares += (sample.x - before.x) * (sample.x - before.x) + (sample.y - before.y) * (sample.y - before.y);
        ++steps;
        if (elapsedMs(start, sample.time) < stretchMs)
            continue;
        if (std::isfinite(squares))
            stretches.push_back(std::sqrt(squares / steps));
        steps = 0;
    }
    return stretches.empty() ? 0 : lowerMedianOf(stretches);
}

QStringList detectionWarnings(const QList<GazePoint> &samples, const FixationCalculationParameters &parameters)
{
    if (!wasRecorded(samples))
        return {};
    return textsOf(std::visit([&](const auto &p) { return warningsOf(samples, p); }, parameters));
}

QStringList parameterWarnings(const FixationCalculationParameters &parameters)
{
    const auto *velocity = std::get_if<VelocityParameters>(&parameters);
    return velocity ? textsOf({thresholdWarning(velocity->threshold), geometryWarning(*velocity)}) : QStringList();
}
