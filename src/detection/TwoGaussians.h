// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <span>
#include <vector>

/// One component of a mixture of Gaussians of one variable.
struct Gaussian {
    double weight = 0; ///< share of the values
    double mean = 0;
    double variance = 0;
};

/// A mixture of two Gaussians, and which of them each value belongs to.
struct TwoGaussians {
    std::array<Gaussian, 2> components;
    std::vector<int> labels; ///< 0 or 1 for each value: the component that is more likely
};

/// Fits two Gaussians by expectation maximisation, from the two clusters that k-means finds, in two runs: the second
/// starts from the result of the first, with weights that add up to 1 again.
///
/// A general fit of any number of components in any dimensions, as libraries have it, spends nearly all of its time on
/// matrices of one element. Here its arithmetic is written out, operation for operation, so that labels and components
/// have the same bits.
/// Source: Dempster, Laird & Rubin (1977), Journal of the Royal Statistical Society B 39(1), 1-38.
/// @param values  at least two, all finite.
/// @return nothing where the likelihood leaves the range of numbers.
/// Errors: cv::Exception where k-means refuses the values. It uses the random numbers of this thread.
std::optional<TwoGaussians> fitTwoGaussians(std::span<const float> values);
