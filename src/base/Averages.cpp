// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Averages.h"

#include <algorithm>
#include <cmath>
#include <numeric>

double meanOfValues(std::span<const double> values)
{
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

std::optional<double> medianOf(std::span<double> values)
{
    if (values.empty())
        return {};
    const auto middle = values.begin() + std::ssize(values) / 2;
    std::nth_element(values.begin(), middle, values.end());
    if (values.size() % 2 == 1)
        return *middle;
    return (*std::max_element(values.begin(), middle) + *middle) / 2;
}

Spread spreadOf(std::span<const double> values)
{
    const double mean = meanOfValues(values);
    const double squares = std::accumulate(values.begin(), values.end(), 0.0, [&](double sum, double value) {
        return sum + (mean - value) * (mean - value);
    });
    return {mean, std::sqrt(squares / static_cast<double>(values.size()))};
}
