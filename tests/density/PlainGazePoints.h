// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/GazePointDensity.h"
#include "PlainDensity.h"

#include <numbers>

namespace plain {

/// The definition: four mirrored cells for each pair of offsets that is inside with both signs.
inline void addPoint(Cells &cells, const GazePointEvent &event, const NormalDistribution &kernel)
{
    const int x = event.x;
    const int y = event.y;
    const double s = kernel.sigma;
    for (int i = 0; i < kernel.width / 2; ++i) {
        for (int j = 0; j < kernel.width / 2; ++j) {
            if (!(x - i > 0 && y - j > 0 && x + i < canvas::width && y + j < canvas::height))
                continue;
            const double value = std::exp(-(i * i + j * j) / (2 * s * s)) / (2 * std::numbers::pi * s * s);
            cells.at(x + i, y + j) += value;
            if (j != 0)
                cells.at(x + i, y - j) += value;
            if (i != 0)
                cells.at(x - i, y + j) += value;
            if (i != 0 && j != 0)
                cells.at(x - i, y - j) += value;
        }
    }
}

inline Cells gazePointCells(const std::vector<GazePointEvent> &events, const NormalDistribution &kernel)
{
    Cells cells;
    for (const GazePointEvent &event : events)
        addPoint(cells, event, kernel);
    return cells;
}

} // namespace plain
