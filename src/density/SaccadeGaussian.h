// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/Density.h"
#include "density/SaccadeMarks.h"

#include <QtGlobal>

/// A saccade as an oriented Gaussian around its middle. With the length L (at least 1), its variance is L across the
/// saccade and L * (ln L + 1)^2 along it; it fills a square of ceil(L) to each side.
struct StretchedGaussian {
    StretchedGaussian(const SaccadeMark &mark, const SaccadeMarkStyle &style);

    qint64 centerX; ///< px
    qint64 centerY;
    qint64 reach;  ///< offsets from -reach to reach - 1, px
    double factor; ///< value at the centre, before it is clamped
    // The exponent at the offset (i, j) is -0.5 * (curvature * (j - slope * i)^2 + spread * i * i).
    double curvature;
    double spread;
    long double slope; ///< i is up to a thousand and more: a double would lose digits of the exponent
};

/// Adds the mark to the columns of the stripe. No cell gets more than 1 from one mark: it would hide all others.
void addStretchedGaussian(Density &density, ColumnStripe stripe, const StretchedGaussian &mark);
