// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/ScanpathWord.h"

#include <algorithm>
#include <cmath>

namespace {

int placeOf(double position, double extent, int cells)
{
    const double place = std::floor(position / extent * cells);
    return place >= 0 ? static_cast<int>(std::min(place, cells - 1.0)) : 0;
}

} // namespace

int PictureGrid::cellOf(double x, double y) const
{
    return placeOf(y, sizePx.height(), rows) * columns + placeOf(x, sizePx.width(), columns);
}

double PictureGrid::distance(int first, int second) const
{
    return std::hypot(first % columns - second % columns, first / columns - second / columns);
}

ScanpathWord gridWord(const FixationPath &path, const PictureGrid &grid)
{
    return timedGridWord(path, grid, 0);
}

ScanpathWord timedGridWord(const FixationPath &path, const PictureGrid &grid, double binMs)
{
    constexpr double mostLetters = 10'000; // of one fixation
    ScanpathWord word;
    word.reserve(path.size());
    for (const ScanpathPoint &each : path) {
        const double letters = binMs > 0 ? std::clamp(std::round(each.durationMs / binMs), 0.0, mostLetters) : 1.0;
        word.insert(word.end(), static_cast<std::size_t>(letters), grid.cellOf(each.x, each.y));
    }
    return word;
}
