// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Truncation.h"

#include <algorithm>
#include <cmath>
#include <limits>

int truncated(double value)
{
    if (std::isnan(value))
        return 0;
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, lowest, highest));
}
