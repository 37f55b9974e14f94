// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/generation/Grid.h"

#include <QList>
#include <QPolygon>

/// The gradient search of regions, step by step: each cell belongs to the peak to which the steepest way up leads.
namespace gradientsearch {

struct Smoothed {
    Grid<double> values;
    double highest = 0; ///< of the smoothed cells; the cells near the edges do not count
};

/// Smooths with a Gaussian of 5 px that is cut to a disc, over the offsets -3 to 2. The kernel is made for -3 to 3: its
/// last row and column are left out, so that the sum of the weights is less than that of the disc.
///
/// Where the block does not fit, the cell keeps its density; the outermost columns and rows become 0. The products are
/// added column by column.
Smoothed smoothed(const Grid<double> &density);

/// The step to the highest of a cell and its neighbours, each part -1, 0 or 1.
struct Direction {
    qint8 x = 0;
    qint8 y = 0;

    bool isStill() const { return x == 0 && y == 0; }
    bool operator==(const Direction &) const = default;
};

/// The direction upwards of each cell; none in the outermost columns and rows. Of equally high neighbours it is the
/// mean, rounded to whole steps, in which a cell counts twice where it is as high itself.
Grid<Direction> ascents(const Grid<double> &values);

struct Peaks {
    Grid<int> labels;    ///< at each peak the number of its region from 1, else 0
    QList<QPoint> seeds; ///< the first peak of each region
};

/// Cells above 0 without a way up, at least `reach` from the edges, column by column. A peak with others in the square
/// of `reach` cells to each side belongs to the last one of these; without any it is the seed of a region.
Peaks peaks(const Grid<double> &values, const Grid<Direction> &ascents, int reach);

/// Labels each cell whose way up ends at a labelled one; the outermost columns and rows stay as they are.
Grid<int> flooded(Grid<int> labels, const Grid<Direction> &ascents);

/// Takes the label from cells with less than five of their label in the 3 x 3 cells about them, as long as there are
/// any.
Grid<int> eroded(Grid<int> labels);

/// Leaves the borders of the regions: cells with another label, or none, in the 3 x 3 cells about them.
Grid<int> hollowed(const Grid<int> &labels);

/// Takes the inner cell from the corners of borders that are stairs, in one pass column by column which sees its own
/// work.
Grid<int> thinned(Grid<int> labels);

/// Borders with more than `minimumVertices` vertices, each as it can be walked from its first cell, column by column.
///
/// @param borders  eroded, hollowed and thinned labels.
QList<QPolygon> contours(Grid<int> borders, int minimumVertices);

} // namespace gradientsearch
