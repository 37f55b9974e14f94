// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/TimeWarping.h"

#include "comparison/Alignment.h"

#include <cmath>

WarpedDistance timeWarpedDistance(const FixationPath &first, const FixationPath &second)
{
    if (first.empty() || second.empty())
        return {};
    const Alignment best = bestAlignment(
        first.size(), second.size(),
        [&](std::size_t i, std::size_t j) { return lengthOf(first[i].x - second[j].x, first[i].y - second[j].y); },
        FirstPair::Counts);
    return {best.cost, best.cost / static_cast<double>(best.pairs.size())};
}
