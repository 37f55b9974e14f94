// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/SaccadeDistance.h"

#include "base/Truncation.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

/// Whole numbers, exact far beyond any picture and without overflow for what damaged files hold.
struct Place {
    explicit Place(QPoint point) : x(point.x()), y(point.y()) {}
    Place(double x_, double y_) : x(x_), y(y_) {}

    Place operator-(Place other) const { return {x - other.x, y - other.y}; }
    Place operator+(Place other) const { return {x + other.x, y + other.y}; }
    double operator*(Place other) const { return x * other.x + y * other.y; }

    double x;
    double y;
};

/// The share of the segment at which the point stands beside it, cut to a whole number; 0 for a segment without length.
int wholeShare(Place point, Place start, Place end)
{
    const Place along = end - start;
    const float share = static_cast<float>((point - start) * along) / static_cast<float>(along * along);
    return truncated(double(share));
}

/// With a share of 0 the start. With 1 the sum of both ends: it is the end that is added, not the way to it. For the
/// reason see `pointToSegmentDistance`.
Place nearestPlace(Place point, Place start, Place end)
{
    const int share = wholeShare(point, start, end);
    if (share < 0)
        return start;
    if (share > 1)
        return end;
    return share == 0 ? start : start + end;
}

} // namespace

int angleDistance(const SaccadeVector &a, const SaccadeVector &b, Direction direction)
{
    constexpr int halfTurn = 180;
    constexpr int firstOpposite = 91;
    int distance = std::abs(a.angle - b.angle);
    if (distance > halfTurn)
        distance = 2 * halfTurn - distance;
    if (direction == Direction::DoesNotCount && distance >= firstOpposite)
        distance = halfTurn - distance;
    return distance;
}

int pointToSegmentDistance(QPoint point, QPoint start, QPoint end, DistanceAlgorithm algorithm)
{
    const Place way = Place(point) - nearestPlace(Place(point), Place(start), Place(end));
    if (algorithm == DistanceAlgorithm::Manhattan)
        return truncated(std::abs(way.x) + std::abs(way.y));
    return truncated(double(std::sqrt(static_cast<float>(way * way))));
}

int segmentDistance(const SaccadeVector &a, const SaccadeVector &b, DistanceAlgorithm algorithm)
{
    return std::min({pointToSegmentDistance(a.start, b.start, b.end, algorithm),
                     pointToSegmentDistance(a.end, b.start, b.end, algorithm),
                     pointToSegmentDistance(b.start, a.start, a.end, algorithm),
                     pointToSegmentDistance(b.end, a.start, a.end, algorithm)});
}
