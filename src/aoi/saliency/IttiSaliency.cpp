// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/saliency/IttiSaliency.h"

#include "aoi/saliency/SaliencyLabel.h"
#include "base/StoppableProgress.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace {

const cv::Size workingSize(640, 480);
constexpr std::size_t levelCount = 9;
constexpr std::array<std::size_t, 3> centers{2, 3, 4};
constexpr std::array<std::size_t, 2> surroundSteps{3, 4};
constexpr double roundingShare = 1e-5; ///< contrasts of this share of a map are rounding, not to be stretched
constexpr std::array<double, 4> orientations{0, 45, 90, 135};

std::vector<cv::Mat> pyramid(const cv::Mat &picture)
{
    std::vector<cv::Mat> levels(levelCount);
    cv::resize(picture, levels[0], workingSize, 0, 0, cv::INTER_LINEAR);
    for (std::size_t i = 1; i < levelCount; ++i)
        cv::pyrDown(levels[i - 1], levels[i], levels[i - 1].size() / 2);
    return levels;
}

/// What a cell of a map is compared in. Where the feature is a pair of opponents, the surround takes the other one of
/// the centre.
struct FeatureLevel {
    cv::Mat center;
    cv::Mat surround;
};

/// Maps of one feature by level, from the finest centre on; those before are empty.
using Feature = std::array<FeatureLevel, levelCount>;

struct Features {
    Feature intensity;
    Feature redGreen;
    Feature blueYellow;
    std::array<Feature, orientations.size()> oriented;
};

FeatureLevel alike(const cv::Mat &map)
{
    return {map, map};
}

FeatureLevel opponents(const cv::Mat &first, const cv::Mat &second)
{
    return {first - second, second - first};
}

cv::Mat positive(const cv::Mat &map)
{
    return cv::max(map, 0);
}

void addLevel(Features &features, std::size_t level, const cv::Mat &picture)
{
    cv::Mat scaled;
    picture.convertTo(scaled, CV_32F, 1.0 / 255);
    std::array<cv::Mat, 3> channels;
    cv::split(scaled, channels);
    const auto &[b, g, r] = channels;
    features.intensity[level] = alike((r + g + b) / 3);
    const cv::Mat red = positive(r - (g + b) / 2);
    const cv::Mat green = positive(g - (r + b) / 2);
    const cv::Mat blue = positive(b - (r + g) / 2);
    const cv::Mat yellow = positive((r + g) / 2 - cv::abs(r - g) / 2 - b);
    features.redGreen[level] = opponents(red, green);
    features.blueYellow[level] = opponents(blue, yellow);
}

void addOrientations(Features &features, const IttiNumbers &numbers)
{
    for (std::size_t i = 0; i < orientations.size(); ++i) {
        const cv::Mat kernel = itti::gaborKernel(numbers.gaborSize, numbers.gaborSigma, orientations[i]);
        for (std::size_t level = centers.front(); level < levelCount; ++level) {
            cv::Mat filtered;
            cv::filter2D(features.intensity[level].center, filtered, -1, kernel);
            features.oriented[i][level] = alike(filtered);
        }
    }
}

/// Sum of the contrasts of all centres, in the size of the finest one.
cv::Mat contrasts(const Feature &feature, int localMaxima)
{
    cv::Mat sum;
    for (const std::size_t center : centers) {
        const cv::Mat &map = feature[center].center;
        for (const std::size_t step : surroundSteps) {
            cv::Mat surround;
            cv::Mat difference;
            cv::resize(feature[center + step].surround, surround, map.size(), 0, 0, cv::INTER_LINEAR);
            cv::absdiff(map, surround, difference);
            if (cv::norm(difference, cv::NORM_INF) <= roundingShare * cv::norm(map, cv::NORM_INF))
                difference = 0;
            cv::Mat contrast;
            cv::resize(itti::normalized(difference, localMaxima), contrast, feature[centers.front()].center.size(), 0,
                       0, cv::INTER_LINEAR);
            if (sum.empty())
                sum = contrast;
            else
                sum += contrast;
        }
    }
    return sum;
}

} // namespace

cv::Mat itti::gaborKernel(int size, double sigma, double angle)
{
    constexpr double wavelength = 10;
    cv::Mat kernel(size, size, CV_32F);
    const int center = size / 2;
    for (int row = 0; row < size; ++row) {
        for (int column = 0; column < size; ++column) {
            const double i = column - center;
            const double j = row - center;
            const double along = i * std::cos(angle) + j * std::sin(angle);
            const double across = j * std::cos(angle) - i * std::sin(angle);
            kernel.at<float>(row, column) =
                static_cast<float>(std::exp(-(along * along + across * across) / (2 * sigma * sigma)) *
                                   std::cos(2 * std::numbers::pi * along / wavelength));
        }
    }
    return kernel;
}

cv::Mat itti::normalized(const cv::Mat &map, int localMaxima)
{
    constexpr int blocksAcross = 8;
    constexpr int blocksDown = 6;
    cv::Mat scaled;
    cv::normalize(map, scaled, 0, 1, cv::NORM_MINMAX, CV_64F);
    const int blockWidth = std::max(scaled.cols / blocksAcross, 1);
    const int blockHeight = std::max(scaled.rows / blocksDown, 1);
    double sum = 0;
    for (int y = 0; y < scaled.rows; y += blockHeight) {
        for (int x = 0; x < scaled.cols; x += blockWidth) {
            const cv::Rect block(x, y, blockWidth, blockHeight);
            double highest = 0;
            cv::minMaxLoc(scaled(block & cv::Rect({}, scaled.size())), nullptr, &highest);
            sum += highest;
        }
    }
    const double excess = 1 - sum / localMaxima;
    return scaled * (excess * excess);
}

cv::Mat ittiSaliency(const cv::Mat &picture, const IttiNumbers &numbers, const std::stop_token &stop)
{
    constexpr int steps = 4;
    StoppableProgress progress(saliencyLabel, steps, stop);
    const std::vector<cv::Mat> levels = pyramid(picture);
    Features features;
    for (std::size_t level = centers.front(); level < levelCount; ++level)
        addLevel(features, level, levels[level]);
    if (!progress.next())
        return {};
    addOrientations(features, numbers);
    if (!progress.next())
        return {};
    const int maxima = numbers.localMaxima;
    const cv::Mat intensity = itti::normalized(contrasts(features.intensity, maxima), maxima);
    const cv::Mat colors = contrasts(features.redGreen, maxima) + contrasts(features.blueYellow, maxima);
    if (!progress.next())
        return {};
    cv::Mat oriented(intensity.size(), CV_64F, cv::Scalar(0));
    for (const Feature &orientation : features.oriented)
        oriented += itti::normalized(contrasts(orientation, maxima), maxima);
    if (!progress.next())
        return {};
    return (intensity + itti::normalized(colors, maxima) + itti::normalized(oriented, maxima)) / 3;
}
