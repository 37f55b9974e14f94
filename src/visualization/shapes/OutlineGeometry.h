// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPolygon>

/// A place on a closed outline.
struct OutlinePlace {
    qsizetype edge = 0;  ///< it leads from the vertex of this number to the next, the last one to the first
    double fraction = 0; ///< of the edge, 0 to 1
};

/// Length of the closed outline in px.
double perimeter(const QPolygon &outline);

/// Where the place is; the outline has vertices.
QPointF positionOf(const QPolygon &outline, OutlinePlace place);

/// The places at which two outlines come nearest to each other: a common point where they cross.
struct NearestPlaces {
    OutlinePlace from;
    QPointF to;
};

/// Both outlines have vertices. Edges far from the other outline are not looked at.
NearestPlaces nearestPlaces(const QPolygon &from, const QPolygon &to);

/// A way along an outline and where it ends.
struct OutlineWalk {
    QPolygonF points; ///< the start, the vertices on the way, the end
    OutlinePlace end;
};

/// @param length  in px, from 0 to the perimeter.
OutlineWalk walkOutline(const QPolygon &outline, OutlinePlace start, double length);
