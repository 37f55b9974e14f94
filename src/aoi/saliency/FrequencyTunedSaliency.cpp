// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/saliency/FrequencyTunedSaliency.h"

#include "aoi/saliency/RowStripes.h"
#include "aoi/saliency/SaliencyLabel.h"
#include "aoi/saliency/SmoothingKernel.h"
#include "base/StoppableProgress.h"

#include <opencv2/imgproc.hpp>

#include <cmath>

namespace {

constexpr int labOfSwappedColors = cv::COLOR_RGB2Lab; // the picture is blue, green, red

cv::Mat scaledToOne(const cv::Mat &picture)
{
    cv::Mat scaled;
    picture.convertTo(scaled, CV_32F, 1.0 / 255);
    return scaled;
}

cv::Scalar meanLab(const cv::Mat &picture)
{
    cv::Mat lab;
    cv::cvtColor(picture, lab, labOfSwappedColors);
    return cv::mean(lab);
}

/// The distances of one part of the picture. The blur sees the rows beyond it.
void distances(cv::Mat out, const cv::Mat &part, const FrequencyTunedNumbers &numbers, const cv::Vec3f &mean)
{
    const double sigmaX = std::sqrt(numbers.varianceX);
    const double sigmaY = std::sqrt(numbers.varianceY);
    const cv::Size kernel(smoothingKernelSide(numbers.kernelSize, sigmaX),
                          smoothingKernelSide(numbers.kernelSize, sigmaY));
    cv::Mat lab;
    cv::GaussianBlur(part, lab, kernel, sigmaX, sigmaY);
    cv::cvtColor(lab, lab, labOfSwappedColors);
    for (int y = 0; y < lab.rows; ++y) {
        const auto *pixels = lab.ptr<cv::Vec3f>(y);
        auto *row = out.ptr<float>(y);
        for (int x = 0; x < lab.cols; ++x) {
            const float l = pixels[x][0] - mean[0];
            const float a = pixels[x][1] - mean[1];
            const float b = pixels[x][2] - mean[2];
            row[x] = std::sqrt(l * l + a * a + b * b);
        }
    }
}

} // namespace

cv::Mat frequencyTunedSaliency(const cv::Mat &picture, const FrequencyTunedNumbers &numbers,
                               const std::stop_token &stop)
{
    constexpr int steps = 2;
    StoppableProgress progress(saliencyLabel, steps, stop);
    const cv::Mat scaled = scaledToOne(picture);
    const cv::Scalar mean = meanLab(scaled);
    if (!progress.next())
        return {};
    const cv::Vec3f meanColor(static_cast<float>(mean[0]), static_cast<float>(mean[1]), static_cast<float>(mean[2]));
    cv::Mat saliency(picture.size(), CV_32F);
    forRowStripes(picture.rows, [&](cv::Range rows) {
        distances(saliency.rowRange(rows), scaled.rowRange(rows), numbers, meanColor);
    });
    if (!progress.next())
        return {};
    constexpr int highest = 255;
    cv::normalize(saliency, saliency, 0, highest, cv::NORM_MINMAX, CV_64F);
    return saliency;
}
