// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <opencv2/imgproc.hpp>

#include <cmath>
#include <numbers>
#include <vector>

/// The three models of saliency, step by step with the matrix functions of OpenCV, as their definitions read. Pictures
/// are CV_8UC3 in the order blue, green, red; results are CV_64F.
namespace plain {

inline cv::Mat stretched(const cv::Mat &map)
{
    cv::Mat out;
    cv::normalize(map, out, 0, 1, cv::NORM_MINMAX, CV_64F);
    return out;
}

inline cv::Mat ittiNormalized(const cv::Mat &map, int maxima)
{
    cv::Mat scaled = stretched(map);
    const int blockWidth = scaled.cols / 8;
    const int blockHeight = scaled.rows / 6;
    double sum = 0;
    for (int y = 0; y < scaled.rows; y += blockHeight) {
        for (int x = 0; x < scaled.cols; x += blockWidth) {
            double highest = 0;
            for (int j = y; j < std::min(y + blockHeight, scaled.rows); ++j) {
                for (int i = x; i < std::min(x + blockWidth, scaled.cols); ++i)
                    highest = std::max(highest, scaled.at<double>(j, i));
            }
            sum += highest;
        }
    }
    const double d = sum / maxima;
    return scaled * std::pow(1 - d, 2);
}

inline cv::Mat ittiContrasts(const std::vector<cv::Mat> &centers, const std::vector<cv::Mat> &surrounds, int maxima)
{
    cv::Mat sum(centers[2].size(), CV_64F, cv::Scalar(0));
    for (std::size_t c = 2; c <= 4; ++c) {
        for (std::size_t s = c + 3; s <= c + 4; ++s) {
            cv::Mat surround;
            cv::resize(surrounds[s], surround, centers[c].size(), 0, 0, cv::INTER_LINEAR);
            cv::Mat difference = cv::abs(centers[c] - surround);
            cv::Mat contrast;
            cv::resize(ittiNormalized(difference, maxima), contrast, centers[2].size(), 0, 0, cv::INTER_LINEAR);
            sum += contrast;
        }
    }
    return sum;
}

inline cv::Mat ittiGabor(int size, double sigma, double theta)
{
    cv::Mat kernel(size, size, CV_32F);
    for (int row = 0; row < size; ++row) {
        for (int column = 0; column < size; ++column) {
            const int i = column - size / 2;
            const int j = row - size / 2;
            const double xr = i * std::cos(theta) + j * std::sin(theta);
            const double yr = j * std::cos(theta) - i * std::sin(theta);
            kernel.at<float>(row, column) =
                float(std::exp(-(xr * xr + yr * yr) / (2 * sigma * sigma)) * std::cos(2 * std::numbers::pi * xr / 10));
        }
    }
    return kernel;
}

inline cv::Mat itti(const cv::Mat &picture, int maxima, int gaborSize, int gaborSigma)
{
    std::vector<cv::Mat> levels(9);
    cv::resize(picture, levels[0], {640, 480}, 0, 0, cv::INTER_LINEAR);
    for (std::size_t i = 1; i < levels.size(); ++i)
        cv::pyrDown(levels[i - 1], levels[i], {levels[i - 1].cols / 2, levels[i - 1].rows / 2});
    std::vector<cv::Mat> intensity;
    std::vector<cv::Mat> redGreen;
    std::vector<cv::Mat> greenRed;
    std::vector<cv::Mat> blueYellow;
    std::vector<cv::Mat> yellowBlue;
    for (const cv::Mat &level : levels) {
        std::vector<cv::Mat> channels;
        cv::split(level, channels);
        for (cv::Mat &channel : channels)
            channel.convertTo(channel, CV_32F, 1.0 / 255);
        const cv::Mat b = channels[0];
        const cv::Mat g = channels[1];
        const cv::Mat r = channels[2];
        intensity.push_back((r + g + b) / 3);
        cv::Mat red = r - (g + b) / 2;
        cv::Mat green = g - (r + b) / 2;
        cv::Mat blue = b - (r + g) / 2;
        cv::Mat difference = cv::abs(r - g);
        cv::Mat yellow = (r + g) / 2 - difference / 2 - b;
        for (cv::Mat *color : {&red, &green, &blue, &yellow})
            cv::threshold(*color, *color, 0, 0, cv::THRESH_TOZERO);
        redGreen.push_back(red - green);
        greenRed.push_back(green - red);
        blueYellow.push_back(blue - yellow);
        yellowBlue.push_back(yellow - blue);
    }
    cv::Mat oriented(intensity[2].size(), CV_64F, cv::Scalar(0));
    for (const double theta : {0.0, 45.0, 90.0, 135.0}) {
        const cv::Mat kernel = ittiGabor(gaborSize, gaborSigma, theta);
        std::vector<cv::Mat> filtered(levels.size());
        for (std::size_t i = 0; i < levels.size(); ++i)
            cv::filter2D(intensity[i], filtered[i], -1, kernel, {-1, -1}, 0);
        oriented += ittiNormalized(ittiContrasts(filtered, filtered, maxima), maxima);
    }
    const cv::Mat colors = ittiContrasts(redGreen, greenRed, maxima) + ittiContrasts(blueYellow, yellowBlue, maxima);
    return (ittiNormalized(ittiContrasts(intensity, intensity, maxima), maxima) + ittiNormalized(colors, maxima) +
            ittiNormalized(oriented, maxima)) /
           3;
}

inline cv::Mat frequencyTuned(const cv::Mat &picture, int size, double varianceX, double varianceY)
{
    if (size % 2 == 0)
        ++size;
    cv::Mat floats;
    picture.convertTo(floats, CV_32F, 1.0 / 255);
    cv::Mat blurred;
    cv::GaussianBlur(floats, blurred, {size, size}, std::sqrt(varianceX), std::sqrt(varianceY));
    cv::Mat lab;
    cv::Mat blurredLab;
    cv::cvtColor(floats, lab, 45);
    cv::cvtColor(blurred, blurredLab, 45);
    std::vector<cv::Mat> channels;
    cv::split(blurredLab, channels);
    const cv::Scalar mean = cv::mean(lab);
    cv::Mat sum(picture.size(), CV_32F, cv::Scalar(0));
    for (int i = 0; i < 3; ++i) {
        cv::Mat difference = channels[std::size_t(i)] - mean[i];
        cv::Mat square;
        cv::multiply(difference, difference, square);
        sum += square;
    }
    cv::Mat saliency;
    cv::sqrt(sum, saliency);
    cv::normalize(saliency, saliency, 0, 255, cv::NORM_MINMAX, CV_64F);
    return saliency;
}

inline double binDistance(int first, int second)
{
    const int l = first / 121 - second / 121;
    const int a = first / 11 % 11 - second / 11 % 11;
    const int b = first % 11 - second % 11;
    return std::sqrt(double(l * l + a * a + b * b));
}

inline std::vector<double> colorRatios(const std::vector<double> &all, const std::vector<double> &edge)
{
    std::vector<double> ratios(1210);
    double smallest = 1e9;
    double largest = 0;
    for (int bin = 0; bin < 1210; ++bin) {
        double total = 0;
        for (int j = 0; j < 1210; ++j)
            total += binDistance(bin, j);
        double a = 0;
        double e = 0;
        for (int j = 0; j < 1210; ++j) {
            a += (total - binDistance(bin, j)) * all[std::size_t(j)];
            e += (total - binDistance(bin, j)) * edge[std::size_t(j)];
        }
        const double ratio = a > 0 && e > 30.0 ? e / a : 0;
        ratios[std::size_t(bin)] = ratio;
        smallest = std::min(smallest, ratio);
        largest = std::max(largest, ratio);
    }
    for (double &ratio : ratios)
        ratio = largest > smallest ? (ratio - smallest) / (largest - smallest) : 0;
    return ratios;
}

/// Pixels that are edges in one of the Lab channels or in the greys.
inline cv::Mat edges(const cv::Mat &picture, const std::vector<cv::Mat> &lab, int up, int down)
{
    std::vector<cv::Mat> channels = lab;
    for (std::size_t i = 0; i < channels.size(); ++i) {
        channels[i] = cv::Mat();
        cv::normalize(lab[i], channels[i], 0, 255, cv::NORM_MINMAX, CV_8U);
    }
    cv::Mat grey;
    cv::cvtColor(picture, grey, cv::COLOR_BGR2GRAY);
    channels.push_back(grey);
    cv::Mat all(picture.size(), CV_8U, cv::Scalar(0));
    for (const cv::Mat &channel : channels) {
        cv::Mat found;
        cv::Canny(channel, found, down, up, 3);
        cv::Mat strong;
        cv::compare(found, 200, strong, cv::CMP_GT);
        all |= strong;
    }
    return all;
}

inline cv::Mat edgeColors(const std::vector<cv::Mat> &lab, const cv::Mat &edges)
{
    std::vector<cv::Mat> levels(3);
    for (std::size_t i = 0; i < 3; ++i)
        cv::normalize(lab[i], levels[i], 0, i == 0 ? 9 : 10, cv::NORM_MINMAX, CV_8U);
    const auto binAt = [&levels](int y, int x) {
        return std::size_t(levels[0].at<uchar>(y, x) * 121 + levels[1].at<uchar>(y, x) * 11 +
                           levels[2].at<uchar>(y, x));
    };
    std::vector<double> all(1210);
    std::vector<double> edge(1210);
    for (int y = 0; y < edges.rows; ++y) {
        for (int x = 0; x < edges.cols; ++x) {
            all[binAt(y, x)] += 1;
            if (edges.at<uchar>(y, x) > 200)
                edge[binAt(y, x)] += 1;
        }
    }
    const std::vector<double> ratios = colorRatios(all, edge);
    cv::Mat map(edges.size(), CV_64F, cv::Scalar(0));
    for (int y = 0; y < edges.rows; ++y) {
        for (int x = 0; x < edges.cols; ++x) {
            if (edge[binAt(y, x)] > 0)
                map.at<double>(y, x) = ratios[binAt(y, x)];
        }
    }
    return stretched(map);
}

struct Center {
    cv::Point place;
    double sigma;
};

inline Center densestEdges(const cv::Mat &edges, int divisor, int window)
{
    cv::Mat mask;
    edges.convertTo(mask, CV_32F);
    cv::Mat sum(edges.size(), CV_32F, cv::Scalar(0));
    double sigma = double(edges.cols) / divisor;
    window = window % 2 == 0 ? window : window - 1;
    while (sigma < edges.cols / 5.0) {
        cv::Mat blurred;
        cv::GaussianBlur(mask, blurred, {window + 1, window + 1}, sigma);
        sum += blurred;
        sigma *= 1.1;
        window = int(window * 1.1);
        window -= window % 2;
    }
    cv::normalize(sum, sum, 0, 1, cv::NORM_MINMAX);
    cv::Point place(0, 0);
    for (int y = 0; y < sum.rows; ++y) {
        for (int x = 0; x < sum.cols; ++x) {
            if (sum.at<float>(y, x) > sum.at<float>(place))
                place = {x, y};
        }
    }
    return {place, sigma};
}

inline cv::Mat integrated(const cv::Mat &picture, int up, int down, int divisor, int window)
{
    cv::Mat lab;
    cv::cvtColor(picture, lab, cv::COLOR_BGR2Lab);
    std::vector<cv::Mat> channels;
    cv::split(lab, channels);
    const cv::Mat found = edges(picture, channels, up, down);
    const cv::Mat colors = edgeColors(channels, found);
    const Center center = densestEdges(found, divisor, window);
    cv::Mat centerMap(picture.size(), CV_64F);
    for (int y = 0; y < picture.rows; ++y) {
        for (int x = 0; x < picture.cols; ++x) {
            const double square = std::pow(x - center.place.x, 2) + std::pow(y - center.place.y, 2);
            const double variance = center.sigma * center.sigma;
            centerMap.at<double>(y, x) = std::exp(-square / (2 * variance)) / (2 * std::numbers::pi * variance);
        }
    }
    cv::Mat product = stretched(centerMap).mul(colors);
    cv::normalize(product, product, 0, 255, cv::NORM_MINMAX);
    return product;
}

} // namespace plain
