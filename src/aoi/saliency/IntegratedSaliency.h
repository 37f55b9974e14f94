// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <opencv2/core/mat.hpp>

#include <array>
#include <stop_token>
#include <vector>

/// Numbers of the model, all at least 1.
struct IntegratedNumbers {
    int edgeHigh;     ///< upper threshold of the edges
    int edgeLow;      ///< lower threshold of the edges
    int gaussDivisor; ///< the narrowest blur of the edges has the sigma columns / divisor
    int gaussWindow;  ///< side of its kernel, px, less one; an odd one is taken one lower
};

/// Saliency from the colours of edges and from where edges are dense.
///
/// @param picture  CV_8UC3 in the order blue, green, red; not empty.
/// @return CV_64F of the picture's size with values from 0 to 255; empty when stopped.
cv::Mat integratedSaliency(const cv::Mat &picture, const IntegratedNumbers &numbers, const std::stop_token &stop);

namespace integrated {

inline constexpr int lightnessLevels = 10;
inline constexpr int colorLevels = 11;
inline constexpr int binCount = lightnessLevels * colorLevels * colorLevels;

/// One number for each bin of colours, lightness * 121 + a * 11 + b.
using Bins = std::array<double, binCount>;

/// How much the distance of each bin from all bins, weighed by the colours of the edges, is of that weighed by all
/// colours: 0 to 1, and 0 for all where all are equal.
///
/// @param all, edges  counts of the pixels of each bin, of the picture and of its edges.
Bins colorRatios(const Bins &all, const Bins &edges);

/// A blur of the edges.
struct Blur {
    int side; ///< of the kernel, odd
    double sigma;
};

/// From columns / divisor on, each a tenth wider, below columns / 5; the last entry is the first one beyond and is not
/// taken any more.
std::vector<Blur> blurs(int columns, const IntegratedNumbers &numbers);

} // namespace integrated
