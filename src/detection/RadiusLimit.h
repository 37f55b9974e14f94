// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <limits>

/// Which distances are larger than a radius, decided without a square root.
///
/// `limit()` is the largest double whose square root is at most the radius. The root is rounded correctly and so never
/// decreases: comparing squares with the limit gives, bit for bit, what comparing the root with the radius gives.
class RadiusLimit {
public:
    explicit RadiusLimit(int radiusPx) : m_limit(static_cast<double>(radiusPx) * radiusPx)
    {
        const double radius = radiusPx;
        if (radius < 0) { // no distance is within
            m_limit = -1;
            return;
        }
        constexpr double infinity = std::numeric_limits<double>::infinity();
        while (std::sqrt(std::nextafter(m_limit, infinity)) <= radius)
            m_limit = std::nextafter(m_limit, infinity);
    }

    /// A distance that is not a number counts as larger: such a sample is nowhere near a fixation.
    bool isOutside(double dx, double dy) const { return !(dx * dx + dy * dy <= m_limit); }

private:
    double m_limit; ///< px^2
};
