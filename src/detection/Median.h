// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <cstddef>

/// The order in which medians are taken: by value, and what is not a number comes last. Files can hold "nan", and plain
/// `<` is no order then.
inline constexpr auto sortsBefore = [](double a, double b) { return a < b || (std::isnan(b) && !std::isnan(a)); };

/// The median of `count` values in the order of `sortsBefore`: the middle one, or the mean of the two in the middle.
template <class Values>
double medianOfSorted(const Values &sorted, std::size_t count)
{
    return count % 2 == 1 ? sorted[count / 2] : (sorted[count / 2 - 1] + sorted[count / 2]) / 2;
}
