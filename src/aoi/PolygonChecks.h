// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPolygon>
#include <QStringList>

struct AreaOfInterest;

/// Whether edges of the closed outline cross, touch or lie on each other. Vertices that repeat the one before them, as
/// contours have at their corners, do not count. Linear in the vertices where few edges share a column of pixels.
bool crossesItself(const QPolygon &polygon);

/// Names of the areas, other than the one of that name, that have pixels in common with the polygon, in their order. A
/// common edge alone is none. What reaches 32768 px or more from the origin is not compared.
QStringList overlappedNames(const QPolygon &polygon, const QString &ownName, const QList<AreaOfInterest> &aois);
