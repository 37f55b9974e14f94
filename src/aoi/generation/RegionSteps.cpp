// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/RegionSteps.h"

#include <algorithm>

Grid<double> regionsteps::aboveThreshold(Grid<double> values, double limit)
{
    const int endRow = endOfInterior(values.height());
    for (int x = 0; x < values.width(); ++x) {
        double *column = values.column(x);
        if (x < firstInterior || x >= endOfInterior(values.width())) {
            std::fill_n(column, values.height(), 0.0);
            continue;
        }
        std::fill_n(column, std::min(firstInterior, values.height()), 0.0);
        for (int y = firstInterior; y < endRow; ++y)
            column[y] = column[y] > limit ? column[y] : 0.0;
        std::fill(column + std::max(endRow, 0), column + values.height(), 0.0);
    }
    return values;
}
