// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPolygonF>

// What is done to the points of a curve before it is drawn; places in px, x ascending.

/// Each second point, its y the mean of a window of a hundredth of all points (at least one) around it; at the ends
/// that of as much of the window as there is.
QPolygonF smoothed(const QPolygonF &points);

/// The natural cubic spline through the points, at each whole pixel from the first to the last; fewer than 5 points
/// stay as they are. A curve with a point for each pixel is its own spline.
/// Source: the tridiagonal system of second derivatives, as in Press et al., Numerical Recipes.
QPolygonF splined(const QPolygonF &points);

/// The points and, back to the first, the same points 5 px to the right and up: a thin band.
QPolygonF outlined(const QPolygonF &points);
