// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

/// 0 where nothing was counted.
inline double quotient(double value, double count)
{
    return count == 0 ? 0.0 : value / count;
}

/// Nothing where nothing was counted.
inline std::optional<double> quotientOrNone(double value, double count)
{
    return count == 0 ? std::nullopt : std::optional(value / count);
}
