// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/generation/Grid.h"

#include <QList>
#include <QPolygon>

/// The standard search of regions, step by step: around each maximum of a smoothed density grow the cells that reach a
/// share of it.
namespace standardsearch {

/// Values of `Grid<quint8>`: what a cell is to the regions.
enum Mark : quint8 { Outside = 0, Inside = 1, Border = 2, Traced = 3 };

/// Sums of blocks of 8 x 8 cells, from 4 before the cell to 3 behind it, divided by 81; 0 within 4 cells of the edges.
/// A mean would be a sum over 64: the divisor is that of a block of 9, and thresholds are measured by it.
///
/// A block is summed column by column, and then the sums of its columns.
Grid<double> blockSums(const Grid<double> &density);

struct Maxima {
    QList<QPoint> positions; ///< at most 500, none with a coordinate of 0
    int dropped = 0;         ///< found when there were 500
};

/// The largest positive cell of each tile of window x window cells, the first of equals, tiles and cells column by
/// column. The tiles begin at (1, 1) and end before the last `window` columns and rows.
Maxima tileMaxima(const Grid<double> &values, int window);

/// Of each two maxima that are less than `window` apart, the larger one stays, the later one of equals.
QList<QPoint> distantMaxima(const QList<QPoint> &maxima, const Grid<double> &values, int window);

/// Marks the cells about each maximum that are above its value times `share`, with the maxima in their order.
///
/// Square rings about the maximum are taken as long as each has a cell that is above and was not marked before; so a
/// region may have gaps. The maximum itself is not marked, nor are the upper right and the lower left corner of a ring.
/// A maximum that lies in the region of an earlier one has none.
/// @param values  all positive cells lie in the interior.
/// @param rings   at most one less is taken.
Grid<quint8> grownRegions(const Grid<double> &values, const QList<QPoint> &maxima, double share, int rings);

/// Marks cells of the interior with at least six marked neighbours, in one pass column by column which sees its own
/// marks.
Grid<quint8> closedHoles(Grid<quint8> marks);

/// Makes marked cells with an unmarked neighbour borders.
Grid<quint8> withBorders(Grid<quint8> marks);

/// Borders with more than `minimumVertices` vertices, each as it can be walked from its first cell, column by column.
QList<QPolygon> contours(Grid<quint8> marks, int minimumVertices);

} // namespace standardsearch
