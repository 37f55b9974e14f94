// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "comparison/FixationPath.h"

#include <algorithm>
#include <cmath>
#include <random>

/// A scanpath by chance on a picture of 1280 x 720 px: long and short steps, long and short fixations.
inline FixationPath randomScanpath(std::mt19937 &random, std::size_t fixations)
{
    std::normal_distribution<double> step(0, 120);
    std::exponential_distribution<double> duration(1 / 250.0);
    FixationPath path;
    ScanpathPoint at{640, 360, 0};
    for (std::size_t i = 0; i < fixations; ++i) {
        at.x += step(random);
        at.y += step(random) * 0.7;
        if (at.x < 0 || at.x >= 1280 || at.y < 0 || at.y >= 720) {
            at.x = double(random() % 128000) / 100;
            at.y = double(random() % 72000) / 100;
        }
        at.durationMs = std::ceil(duration(random));
        path.push_back(at);
    }
    return path;
}
