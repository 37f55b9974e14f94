// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/generation/Grid.h"

#include <QPolygon>

#include <optional>

/// Steps that both searches of regions share.
namespace regionsteps {

/// Cells in which regions can lie: the first two and the last column and row are left out.
constexpr int firstInterior = 2;
constexpr int endOfInterior(int size)
{
    return size - 1;
}

/// Keeps the cells of the interior that are above the limit; all others become 0.
Grid<double> aboveThreshold(Grid<double> values, double limit);

/// The first cell about `cell` that has the value, column by column.
template <class T>
std::optional<QPoint> firstNeighbour(const Grid<T> &cells, QPoint cell, T value)
{
    for (int dx = -1; dx <= 1; ++dx) {
        const T *column = cells.column(cell.x() + dx) + cell.y();
        for (int dy = -1; dy <= 1; ++dy) {
            if (column[dy] == value)
                return cell + QPoint(dx, dy);
        }
    }
    return std::nullopt;
}

/// Walks from cell to neighbouring cell of the same value as long as there is one that was not visited.
/// @param cells    the outermost columns and rows do not have that value.
/// @param visited  what the cells of the way become.
template <class T>
QPolygon takeContour(Grid<T> &cells, QPoint start, T visited)
{
    const T value = cells.at(start.x(), start.y());
    QPolygon contour;
    for (std::optional<QPoint> cell = start; cell; cell = firstNeighbour(cells, *cell, value)) {
        contour << *cell;
        cells.at(cell->x(), cell->y()) = visited;
    }
    return contour;
}

} // namespace regionsteps
