// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/RadiusLimit.h"

#include <algorithm>
#include <cmath>
#include <optional>

/// A coordinate is a number, far beyond every recording if need be, but small enough for the sum and the squares of two
/// to stay finite.
inline bool isOrdinary(double coordinate)
{
    return std::abs(coordinate) < 1e100;
}

/// A rectangle with sides along the axes, in pixels.
///
/// Its distances bound those between a point and any point inside. They are formed by the same operations as a distance
/// between points, and each of these operations is monotone under rounding, so that the bounds hold to the last bit.
struct Bounds {
    Bounds including(double x, double y) const
    {
        return {std::min(minX, x), std::max(maxX, x), std::min(minY, y), std::max(maxY, y)};
    }
    bool contains(double x, double y) const { return x >= minX && x <= maxX && y >= minY && y <= maxY; }

    bool isOrdinary() const
    {
        return ::isOrdinary(minX) && ::isOrdinary(maxX) && ::isOrdinary(minY) && ::isOrdinary(maxY);
    }

    /// All points inside are within the radius of each other.
    bool fitWithin(const RadiusLimit &limit) const { return !limit.isOutside(maxX - minX, maxY - minY); }

    /// Whether a sample at (x,y) is farther than the radius from the median point, wherever inside that is; nothing
    /// where it depends. A sample that is not a number is left in doubt.
    std::optional<bool> isOutlier(const RadiusLimit &limit, double x, double y) const
    {
        const double nearX = x < minX ? minX - x : x > maxX ? x - maxX : 0;
        const double nearY = y < minY ? minY - y : y > maxY ? y - maxY : 0;
        if (limit.isOutside(nearX, nearY))
            return true;
        const double farX = std::max(std::abs(x - minX), std::abs(maxX - x));
        const double farY = std::max(std::abs(y - minY), std::abs(maxY - y));
        if (!limit.isOutside(farX, farY))
            return false;
        return std::nullopt;
    }

    double minX = 0;
    double maxX = 0;
    double minY = 0;
    double maxY = 0;
};
