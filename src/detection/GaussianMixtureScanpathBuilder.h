#pragma once

#include "detection/IScanpathBuilder.h"
#include "detection/StepWalk.h"
#include "model/EyeData.h"

/// A detector without a threshold: the steps of the eye are told apart by a mixture of two Gaussians of their lengths,
/// and where the short ones follow each other, the eye rests.
///
/// Invalid samples and those with a coordinate of exactly 0, as trackers write them when they lose the eye, are left
/// out beforehand; their neighbours count as consecutive.
class GaussianMixtureScanpathBuilder : public IScanpathBuilder {
public:
    /// Runs the detection.
    /// @param scanpath  gets the fixations, behind those that it has; may be null: nothing is kept.
    GaussianMixtureScanpathBuilder(QList<GazePoint> samples, QList<Fixation> *scanpath,
                                   const MixtureParameters &parameters);

    QString report() const override { return {}; }

    /// Why nothing could be detected, in words for the log; empty where the mixture could be fitted.
    QString failure() const { return m_failure; }

private:
    QString m_failure;
};
