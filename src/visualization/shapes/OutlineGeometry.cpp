// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/OutlineGeometry.h"

#include <QLineF>
#include <QRectF>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

QLineF edgeOf(const QPolygon &outline, qsizetype edge)
{
    return {outline[edge].toPointF(), outline[(edge + 1) % outline.size()].toPointF()};
}

/// The fraction of the line at which it comes nearest to the position.
double nearestFraction(const QLineF &line, QPointF position)
{
    const QPointF direction = line.p2() - line.p1();
    const double squared = QPointF::dotProduct(direction, direction);
    return squared > 0 ? std::clamp(QPointF::dotProduct(position - line.p1(), direction) / squared, 0.0, 1.0) : 0.0;
}

double distance(QPointF a, QPointF b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

/// From a box to another, 0 where they meet.
double distance(const QRectF &a, const QRectF &b)
{
    const double dx = std::max({0.0, b.left() - a.right(), a.left() - b.right()});
    const double dy = std::max({0.0, b.top() - a.bottom(), a.top() - b.bottom()});
    return std::hypot(dx, dy);
}

QRectF boxOf(const QLineF &line)
{
    return QRectF(line.p1(), line.p2()).normalized();
}

/// The nearest pair of points that was found so far.
struct Best {
    double distance = std::numeric_limits<double>::infinity();
    NearestPlaces places;

    void take(double found, const OutlinePlace &from, QPointF to)
    {
        if (found < distance) {
            distance = found;
            places = {from, to};
        }
    }
};

void compare(Best &best, qsizetype edge, const QLineF &from, const QLineF &to)
{
    if (distance(boxOf(from), boxOf(to)) >= best.distance)
        return;
    QPointF crossing;
    if (from.intersects(to, &crossing) == QLineF::BoundedIntersection) {
        best.take(0, {edge, nearestFraction(from, crossing)}, crossing);
        return;
    }
    for (const double end : {0.0, 1.0}) {
        const QPointF own = from.pointAt(end);
        const QPointF nearestOther = to.pointAt(nearestFraction(to, own));
        best.take(distance(own, nearestOther), {edge, end}, nearestOther);
        const QPointF other = to.pointAt(end);
        const double fraction = nearestFraction(from, other);
        best.take(distance(from.pointAt(fraction), other), {edge, fraction}, other);
    }
}

/// The edges by their distance from the box, the nearest first.
QList<std::pair<double, qsizetype>> edgesByDistance(const QPolygon &outline, const QRectF &box)
{
    QList<std::pair<double, qsizetype>> edges;
    for (qsizetype edge = 0; edge < outline.size(); ++edge)
        edges.append({distance(boxOf(edgeOf(outline, edge)), box), edge});
    std::sort(edges.begin(), edges.end());
    return edges;
}

} // namespace

double perimeter(const QPolygon &outline)
{
    double length = 0;
    for (qsizetype edge = 0; edge < outline.size(); ++edge)
        length += edgeOf(outline, edge).length();
    return length;
}

QPointF positionOf(const QPolygon &outline, OutlinePlace place)
{
    return edgeOf(outline, place.edge).pointAt(place.fraction);
}

NearestPlaces nearestPlaces(const QPolygon &from, const QPolygon &to)
{
    Best best;
    const QPolygonF target(to);
    for (const auto &[atLeast, edge] : edgesByDistance(from, target.boundingRect())) {
        if (atLeast >= best.distance)
            break;
        for (qsizetype other = 0; other < to.size(); ++other)
            compare(best, edge, edgeOf(from, edge), edgeOf(to, other));
    }
    return best.places;
}

OutlineWalk walkOutline(const QPolygon &outline, OutlinePlace start, double length)
{
    if (start.fraction >= 1) // the corner is on the way only once
        start = {(start.edge + 1) % outline.size(), 0};
    OutlineWalk walk{{positionOf(outline, start)}, start};
    // Twice around at most: lengths beyond the perimeter, by rounding or by mistake, come to an end.
    for (qsizetype steps = 2 * outline.size(); steps > 0; --steps) {
        const double edgeLength = edgeOf(outline, walk.end.edge).length();
        const double ahead = edgeLength * (1 - walk.end.fraction);
        if (length < ahead) {
            walk.end.fraction += length / edgeLength;
            break;
        }
        length -= ahead;
        walk.end = {(walk.end.edge + 1) % outline.size(), 0};
        walk.points << positionOf(outline, walk.end);
        if (!(length > 0))
            return walk;
    }
    walk.points << positionOf(outline, walk.end);
    return walk;
}
