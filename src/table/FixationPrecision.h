// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/EyeData.h"
#include "model/TimeFrame.h"

#include <cmath>
#include <optional>
#include <vector>

/// Whether a sample tells where the eye looked: a file may hold "nan" in one that it calls valid.
inline bool isUsable(const GazePoint &sample)
{
    return sample.validFlag && std::isfinite(sample.x) && std::isfinite(sample.y);
}

/// How steady a signal is where the eye rests: of each measure the median over the fixations.
struct FixationPrecision {
    qint64 fixations = 0;              ///< that were measured
    std::optional<double> rmsPx;       ///< RMS of sample-to-sample distances
    std::optional<double> deviationPx; ///< sqrt(sx^2 + sy^2), deviations with n - 1
    std::optional<double> bceaPx2;     ///< ellipse around 68.2 % of the samples
};

/// Takes the fixations that lie in the frame and have at least three usable samples; the samples keep their raw places.
///
/// @param gapAfterMs  neighbours further apart in time are no pair.
FixationPrecision fixationPrecision(const QList<Fixation> &fixations, TimeFrame frame, double gapAfterMs);

/// Area in px^2 of the ellipse around 68.2 % of normally distributed places: 2 k pi sqrt(xx yy - xy^2), k = -ln(1 -
/// 0.682), from variances and covariance (Crossland & Rubin 2002, OVS 79(11)).
double bceaOf(double xx, double yy, double xy);
