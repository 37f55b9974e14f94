// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>

#include <opencv2/core/mat.hpp>

/// The picture as 8 bit numbers in the order blue, green, red, which is that of OpenCV; transparency is left out.
cv::Mat pictureMatrix(const QImage &picture);
