// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/PolygonChecks.h"

#include "model/AreaOfInterest.h"

#include <QRegion>

#include <algorithm>

namespace {

struct Edge {
    int left() const { return std::min(from.x(), to.x()); }
    int right() const { return std::max(from.x(), to.x()); }

    QPoint from;
    QPoint to;
    qsizetype number; ///< in the order of the outline
};

/// Without vertices that repeat the one before, the last before the first included.
QPolygon withoutRepeats(QPolygon polygon)
{
    polygon.erase(std::unique(polygon.begin(), polygon.end()), polygon.end());
    while (polygon.size() > 1 && polygon.first() == polygon.last())
        polygon.removeLast();
    return polygon;
}

/// Edges in the order of their left ends.
QList<Edge> edgesFromLeft(const QPolygon &polygon)
{
    QList<Edge> edges;
    for (qsizetype i = 0; i < polygon.size(); ++i)
        edges << Edge{polygon[i], polygon[(i + 1) % polygon.size()], i};
    std::sort(edges.begin(), edges.end(), [](const Edge &a, const Edge &b) { return a.left() < b.left(); });
    return edges;
}

/// On which side of the line from a to b the position lies: -1, 0 on it, 1. Exact for every int: differences take 33
/// bits, their products 66.
int sideOf(QPoint a, QPoint b, QPoint position)
{
    using Wide = long double; // 64 bits of mantissa or more
    const Wide cross = Wide(qint64(b.x()) - a.x()) * Wide(qint64(position.y()) - a.y()) -
                       Wide(qint64(b.y()) - a.y()) * Wide(qint64(position.x()) - a.x());
    return cross > 0 ? 1 : cross < 0 ? -1 : 0;
}

/// For a position on the line of the edge.
bool isWithin(const Edge &edge, QPoint position)
{
    const int top = std::min(edge.from.y(), edge.to.y());
    const int bottom = std::max(edge.from.y(), edge.to.y());
    return edge.left() <= position.x() && position.x() <= edge.right() && top <= position.y() && position.y() <= bottom;
}

bool haveCommonPoint(const Edge &a, const Edge &b)
{
    const int fromSide = sideOf(a.from, a.to, b.from);
    const int toSide = sideOf(a.from, a.to, b.to);
    const int sideOfFrom = sideOf(b.from, b.to, a.from);
    const int sideOfTo = sideOf(b.from, b.to, a.to);
    if (fromSide * toSide < 0 && sideOfFrom * sideOfTo < 0)
        return true;
    return (fromSide == 0 && isWithin(a, b.from)) || (toSide == 0 && isWithin(a, b.to)) ||
           (sideOfFrom == 0 && isWithin(b, a.from)) || (sideOfTo == 0 && isWithin(b, a.to));
}

/// Neighbours share a vertex in any case; they lie on each other where the outline turns back on its way.
bool turnsBack(const Edge &first, const Edge &next)
{
    if (sideOf(first.from, first.to, next.to) != 0)
        return false;
    return isWithin(first, next.to) || isWithin(next, first.from);
}

/// Pixels are compared row by row, and a damaged file may hold billions of rows.
bool fitsInMemory(const QPolygon &polygon)
{
    constexpr int farthest = 1 << 15;
    return std::all_of(polygon.cbegin(), polygon.cend(), [](QPoint vertex) {
        return vertex.x() > -farthest && vertex.x() < farthest && vertex.y() > -farthest && vertex.y() < farthest;
    });
}

bool meet(const Edge &a, const Edge &b, qsizetype count)
{
    if ((a.number + 1) % count == b.number)
        return turnsBack(a, b);
    if ((b.number + 1) % count == a.number)
        return turnsBack(b, a);
    return haveCommonPoint(a, b);
}

} // namespace

bool crossesItself(const QPolygon &polygon)
{
    constexpr qsizetype fewest = 3; // a line there and back is no outline
    const QPolygon outline = withoutRepeats(polygon);
    if (outline.size() < fewest)
        return false;
    const QList<Edge> edges = edgesFromLeft(outline);
    for (qsizetype i = 0; i < edges.size(); ++i) {
        for (qsizetype j = i + 1; j < edges.size() && edges[j].left() <= edges[i].right(); ++j) {
            if (meet(edges[i], edges[j], edges.size()))
                return true;
        }
    }
    return false;
}

QStringList overlappedNames(const QPolygon &polygon, const QString &ownName, const QList<AreaOfInterest> &aois)
{
    QStringList names;
    if (!fitsInMemory(polygon))
        return names;
    const QRegion own(polygon, Qt::WindingFill);
    for (const AreaOfInterest &aoi : aois) {
        if (aoi.name != ownName && fitsInMemory(aoi.polygon) && own.intersects(QRegion(aoi.polygon, Qt::WindingFill)))
            names << aoi.name;
    }
    return names;
}
