// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <opencv2/core/mat.hpp>

#include <stop_token>

/// Numbers of the model, all at least 1.
struct IttiNumbers {
    int localMaxima; ///< how many a map should have; divides the sum of the maxima of its blocks
    int gaborSize;   ///< side of the Gabor kernels, px of the level
    int gaborSigma;  ///< px
};

/// Saliency as the contrast between fine and coarse levels of a pyramid, in intensity, two pairs of opponent colours
/// and four orientations.
///
/// @param picture  CV_8UC3 in the order blue, green, red; not empty. It is taken at 640 x 480.
/// @return CV_64F of 120 rows with 160 values; empty when stopped.
/// Source: Itti, Koch & Niebur (1998), IEEE TPAMI 20.
cv::Mat ittiSaliency(const cv::Mat &picture, const IttiNumbers &numbers, const std::stop_token &stop);

namespace itti {

/// A Gabor kernel of size x size numbers with a wave of 10 px, CV_32F. The angle goes to sine and cosine as it stands,
/// though the model's angles are 0, 45, 90 and 135: they stand for four other orientations than their names say.
cv::Mat gaborKernel(int size, double sigma, double angle);

/// Raises maps with few high places over those with many: scales to 0..1, takes d, the sum of the maxima of the blocks
/// over `localMaxima`, and multiplies all by (1 - d)^2. The blocks have an eighth of the columns and a sixth of the
/// rows.
cv::Mat normalized(const cv::Mat &map, int localMaxima);

} // namespace itti
