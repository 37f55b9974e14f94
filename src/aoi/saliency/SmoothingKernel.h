// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>

/// The side of a Gaussian kernel of 32-bit floats: an odd number of at least `side`, up to where all further weights
/// are 0. So a kernel of any size costs no more than what it does.
inline int smoothingKernelSide(int side, double sigma)
{
    constexpr double lastWeight = 15; // in sigma; the weight there is below the smallest float
    const double useful = 2 * (lastWeight * sigma + 1);
    const int bounded = useful < side ? static_cast<int>(useful) : side;
    return bounded / 2 * 2 + 1;
}
