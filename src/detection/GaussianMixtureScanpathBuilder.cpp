// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/GaussianMixtureScanpathBuilder.h"

std::variant<QList<Fixation>, FitFailure>
mixtureFixations(QList<GazePoint> samples, const MixtureParameters &parameters, QList<Fixation> scanpath)
{
    samples.removeIf([](const GazePoint &sample) { return !sample.validFlag || sample.x == 0.0 || sample.y == 0.0; });
    std::variant<StepLabels, FitFailure> steps = labelSteps(samples);
    if (auto *failure = std::get_if<FitFailure>(&steps))
        return std::move(*failure);
    appendRestingRuns(samples, std::get<StepLabels>(steps), parameters, scanpath);
    return scanpath;
}

GaussianMixtureScanpathBuilder::GaussianMixtureScanpathBuilder(QList<GazePoint> samples, QList<Fixation> *scanpath,
                                                               const MixtureParameters &parameters)
{
    if (!scanpath)
        return;
    auto found = mixtureFixations(std::move(samples), parameters, *scanpath);
    if (auto *fixations = std::get_if<QList<Fixation>>(&found))
        *scanpath = std::move(*fixations);
}
