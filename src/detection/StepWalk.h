// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/StepMixture.h"
#include "model/ScanpathSection.h"

/// What the mixture detector counts as a fixation.
struct MixtureParameters {
    int minimumDurationMs = 0;
    bool mergeSequential = false; ///< joins a fixation to the one before it that is near enough
};

/// Makes fixations of samples whose steps are labelled. A step belongs to the sample that it starts from; a run of
/// samples with resting steps and the sample of the step that ends it are a fixation, if they last longer than the
/// minimum duration. The last sample, and a run that is open there, are left out.
///
/// With merging, a fixation whose centroid is nearer to that of the last one in the scanpath than the minor axis of
/// that one is long becomes part of it: samples, mean and variance follow, median and axes stay. The others are
/// numbered from 0 in their order.
///
/// Time is linear in samples that are ordered in time.
/// @param samples   n samples.
/// @param steps     n - 1 labels; none where n is 0.
/// @param scanpath  gets the fixations, behind those that it has.
void appendRestingRuns(const QList<GazePoint> &samples, const StepLabels &steps, const MixtureParameters &parameters,
                       QList<Fixation> &scanpath);
