// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/GazePoint.h"

#include <QList>

#include <variant>
#include <vector>

/// The two kinds of steps of an eye, told apart by their lengths.
struct StepLabels {
    std::vector<int> labels; ///< 0 or 1 for each step from sample to sample
    int restingLabel = 0;    ///< the label of the kind whose steps are shorter in the mean
};

/// Why there are no labels, in words for the log.
struct FitFailure {
    QString reason;
};

/// Models the lengths of the steps between consecutive samples by a mixture of two Gaussians, fitted by expectation
/// maximisation in two stages: with one variance for all dimensions from clusters of its own finding, then with a
/// variance for each dimension from the first stage's result.
///
/// The result depends on the samples only: the random numbers that the first stage begins with are the same each time,
/// and those of others are left as they were.
/// Errors: fewer than three samples, a step whose length is no finite number, a fit that does not succeed.
/// Source: Dempster, Laird & Rubin (1977), Journal of the Royal Statistical Society B 39(1), 1-38.
/// @param samples  n usable samples of one eye in file order.
/// @return n - 1 labels, or why there are none.
std::variant<StepLabels, FitFailure> labelSteps(const QList<GazePoint> &samples);
