// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <opencv2/core/mat.hpp>

#include <stop_token>

/// Numbers of the model, all at least 1.
struct FrequencyTunedNumbers {
    int kernelSize; ///< of the blur, px; an even one grows by one
    int varianceX;  ///< px^2
    int varianceY;  ///< px^2
};

/// Saliency as the distance of each blurred pixel from the picture's mean colour, in Lab.
///
/// The colours are taken at 0 to 1 and with red and blue exchanged: the picture comes as blue, green, red and is read
/// as red, green, blue. That is kept; the published model does not exchange them and gives other maps.
/// @param picture  CV_8UC3 in the order blue, green, red; not empty.
/// @return CV_64F of the picture's size with values from 0 to 255; empty when stopped.
/// Source: Achanta, Hemami, Estrada & Suesstrunk (2009), CVPR.
cv::Mat frequencyTunedSaliency(const cv::Mat &picture, const FrequencyTunedNumbers &numbers,
                               const std::stop_token &stop);
