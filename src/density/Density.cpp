// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/Density.h"

#include "density/DensityLoops.h"

#include <algorithm>

std::vector<ColumnStripe> columnStripes(int workers)
{
    const int columns = (canvas::width + workers - 1) / workers;
    std::vector<ColumnStripe> stripes;
    stripes.reserve(static_cast<std::size_t>(workers));
    for (int i = 0; i < workers; ++i)
        stripes.push_back({std::min(i * columns, canvas::width), std::min((i + 1) * columns, canvas::width)});
    return stripes;
}

Density::Density() : m_cells(std::make_unique_for_overwrite<double[]>(canvas::pixels)) {}

DensityPeak peakWithin(const Density &density, ColumnStripe stripe)
{
    DensityPeak peak;
    for (int x = stripe.begin; x < stripe.end; ++x) {
        const double *cells = density.column(x);
        if (!densityloops::isAnyAbove(cells, peak.value, canvas::height))
            continue;
        for (int y = 0; y < canvas::height; ++y) {
            if (cells[y] > peak.value)
                peak = {cells[y], x, y};
        }
    }
    return peak;
}
