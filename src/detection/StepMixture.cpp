// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/StepMixture.h"

#include "detection/TwoGaussians.h"

#include <opencv2/core.hpp>

#include <algorithm>
#include <cmath>

namespace {

constexpr qsizetype fewestForTwo = 3;

/// Puts the generator of this thread to a fixed state while it lives, and back to what it was.
class FixedRandomNumbers {
public:
    FixedRandomNumbers() { cv::theRNG() = cv::RNG(seed); }
    ~FixedRandomNumbers() { cv::theRNG() = m_before; }
    FixedRandomNumbers(const FixedRandomNumbers &) = delete;
    FixedRandomNumbers &operator=(const FixedRandomNumbers &) = delete;

private:
    static constexpr uint64 seed = 1;
    const cv::RNG m_before = cv::theRNG();
};

/// In px, with the digits that the fit works with.
std::vector<float> stepLengths(const QList<GazePoint> &samples)
{
    std::vector<float> lengths;
    lengths.reserve(static_cast<std::size_t>(samples.size()));
    for (qsizetype i = 0; i + 1 < samples.size(); ++i) {
        const double dx = samples[i].x - samples[i + 1].x;
        const double dy = samples[i].y - samples[i + 1].y;
        lengths.push_back(static_cast<float>(std::sqrt(dy * dy + dx * dx)));
    }
    return lengths;
}

std::variant<StepLabels, FitFailure> fitted(const std::vector<float> &lengths)
{
    const FixedRandomNumbers fixed;
    std::optional<TwoGaussians> fit = fitTwoGaussians(lengths);
    if (!fit)
        return FitFailure{QStringLiteral("no mixture fits the lengths of the steps")};
    const auto &[first, second] = fit->components;
    qDebug("%g to %g", first.mean, second.mean);
    return StepLabels{std::move(fit->labels), first.mean <= second.mean ? 0 : 1};
}

} // namespace

std::variant<StepLabels, FitFailure> labelSteps(const QList<GazePoint> &samples)
{
    if (samples.size() < fewestForTwo)
        return FitFailure{QStringLiteral("fewer than three usable samples")};
    const std::vector<float> lengths = stepLengths(samples);
    if (!std::all_of(lengths.begin(), lengths.end(), [](float length) { return std::isfinite(length); }))
        return FitFailure{QStringLiteral("a step between two samples has no finite length")};
    try {
        return fitted(lengths);
    } catch (const cv::Exception &exception) {
        return FitFailure{QStringLiteral("no mixture fits the lengths of the steps: %1")
                              .arg(QString::fromStdString(exception.err).simplified())};
    }
}
