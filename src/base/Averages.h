// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>

/// Not a number without values.
double meanOfValues(std::span<const double> values);

/// The middle one in the order of size, or the mean of the two in the middle; nothing without values. The order of the
/// values changes.
std::optional<double> medianOf(std::span<double> values);

struct Spread {
    double mean;
    double deviation; ///< of all values, not of a sample of them: the squares are divided by their number
};

/// Without values neither is a number.
Spread spreadOf(std::span<const double> values);
