// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/IScanpathBuilder.h"
#include "detection/StepWalk.h"
#include "model/EyeData.h"

/// Detects fixations without a threshold: the steps of the eye are told apart by a mixture of two Gaussians of their
/// lengths, and where the short ones follow each other, the eye rests.
///
/// Invalid samples and those with a coordinate of exactly 0, as trackers write them when they lose the eye, are left
/// out beforehand; their neighbours count as consecutive.
/// @param scanpath  fixations that are there already.
/// @return these and behind them those that were found, or why nothing could be detected.
std::variant<QList<Fixation>, FitFailure>
mixtureFixations(QList<GazePoint> samples, const MixtureParameters &parameters, QList<Fixation> scanpath = {});

/// The same in the form of a detector. Where nothing can be detected, nothing is added.
class GaussianMixtureScanpathBuilder : public IScanpathBuilder {
public:
    /// Runs the detection.
    /// @param scanpath  gets the fixations, behind those that it has; may be null: nothing is kept.
    GaussianMixtureScanpathBuilder(QList<GazePoint> samples, QList<Fixation> *scanpath,
                                   const MixtureParameters &parameters);

    QString report() const override { return {}; }
};
