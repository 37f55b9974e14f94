// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSizeF>

#include <cmath>
#include <limits>
#include <vector>

/// A fixation as far as the comparison of scanpaths looks at it.
struct ScanpathPoint {
    bool operator==(const ScanpathPoint &) const = default;

    double x = 0; ///< px
    double y = 0; ///< px
    double durationMs = 0;
};

/// Length of a vector. Pixels are far from the ends of the range of doubles: no need for the slower std::hypot.
inline double lengthOf(double dx, double dy)
{
    return std::sqrt(dx * dx + dy * dy);
}

/// Fixations in the order of time.
using FixationPath = std::vector<ScanpathPoint>;

/// What a measure is where it is not defined.
inline constexpr double undefined = std::numeric_limits<double>::quiet_NaN();
