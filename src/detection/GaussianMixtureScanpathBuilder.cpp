#include "detection/GaussianMixtureScanpathBuilder.h"

GaussianMixtureScanpathBuilder::GaussianMixtureScanpathBuilder(QList<GazePoint> samples, QList<Fixation> *scanpath,
                                                               const MixtureParameters &parameters)
{
    samples.removeIf([](const GazePoint &sample) { return !sample.validFlag || sample.x == 0.0 || sample.y == 0.0; });
    const std::variant<StepLabels, FitFailure> steps = labelSteps(samples);
    if (const auto *failure = std::get_if<FitFailure>(&steps))
        m_failure = failure->reason;
    else if (scanpath)
        appendRestingRuns(samples, std::get<StepLabels>(steps), parameters, *scanpath);
}
