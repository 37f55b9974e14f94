// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/saliency/IntegratedSaliency.h"

#include "aoi/saliency/RowStripes.h"
#include "aoi/saliency/SaliencyLabel.h"
#include "aoi/saliency/SmoothingKernel.h"
#include "base/StoppableProgress.h"

#include <opencv2/imgproc.hpp>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr uchar setPixel = 255;

/// The channels of a colour picture, and its greys.
struct Channels {
    std::array<cv::Mat, 3> lab; ///< lightness, a, b; 8 bit
    cv::Mat grey;
};

Channels channelsOf(const cv::Mat &picture)
{
    Channels channels;
    cv::Mat lab;
    cv::cvtColor(picture, lab, cv::COLOR_BGR2Lab);
    cv::split(lab, channels.lab);
    cv::cvtColor(picture, channels.grey, cv::COLOR_BGR2GRAY);
    return channels;
}

cv::Mat stretched(const cv::Mat &channel, int highest)
{
    cv::Mat levels;
    cv::normalize(channel, levels, 0, highest, cv::NORM_MINMAX, CV_8U);
    return levels;
}

/// The bin of each pixel, CV_16U.
cv::Mat binsOf(const Channels &channels)
{
    using namespace integrated;
    const std::array levels{stretched(channels.lab[0], lightnessLevels - 1),
                            stretched(channels.lab[1], colorLevels - 1), stretched(channels.lab[2], colorLevels - 1)};
    cv::Mat bins(channels.grey.size(), CV_16U);
    for (int y = 0; y < bins.rows; ++y) {
        const std::array rows{levels[0].ptr(y), levels[1].ptr(y), levels[2].ptr(y)};
        auto *row = bins.ptr<ushort>(y);
        for (int x = 0; x < bins.cols; ++x)
            row[x] = static_cast<ushort>((rows[0][x] * colorLevels + rows[1][x]) * colorLevels + rows[2][x]);
    }
    return bins;
}

/// 255 at each pixel that is an edge in one of the channels, else 0.
cv::Mat edgesOf(const Channels &channels, const IntegratedNumbers &numbers)
{
    const std::array pictures{stretched(channels.lab[0], setPixel), stretched(channels.lab[1], setPixel),
                              stretched(channels.lab[2], setPixel), channels.grey};
    std::array<cv::Mat, pictures.size()> found;
    forEachSideBySide(static_cast<int>(pictures.size()), [&](int i) {
        constexpr int aperture = 3;
        const auto place = static_cast<std::size_t>(i);
        cv::Canny(pictures[place], found[place], numbers.edgeLow, numbers.edgeHigh, aperture);
    });
    return found[0] | found[1] | found[2] | found[3];
}

struct Histograms {
    integrated::Bins all{};
    integrated::Bins edges{};
};

Histograms histogramsOf(const cv::Mat &bins, const cv::Mat &edges)
{
    Histograms histograms;
    for (int y = 0; y < bins.rows; ++y) {
        const auto *row = bins.ptr<ushort>(y);
        const uchar *edge = edges.ptr(y);
        for (int x = 0; x < bins.cols; ++x) {
            histograms.all[row[x]] += 1;
            histograms.edges[row[x]] += edge[x] == setPixel ? 1 : 0;
        }
    }
    return histograms;
}

/// Distance of two bins by the differences of their levels.
class BinDistances {
public:
    BinDistances()
    {
        for (int l = 0; l < integrated::lightnessLevels; ++l) {
            for (int a = 0; a < integrated::colorLevels; ++a) {
                for (int b = 0; b < integrated::colorLevels; ++b)
                    m_distances[index(l, a, b)] = std::sqrt(l * l + a * a + b * b);
            }
        }
    }

    double between(int first, int second) const
    {
        const Levels p = levelsOf(first);
        const Levels q = levelsOf(second);
        return m_distances[index(std::abs(p.l - q.l), std::abs(p.a - q.a), std::abs(p.b - q.b))];
    }

private:
    struct Levels {
        int l;
        int a;
        int b;
    };

    static Levels levelsOf(int bin)
    {
        constexpr int levels = integrated::colorLevels;
        return {bin / (levels * levels), bin / levels % levels, bin % levels};
    }

    static std::size_t index(std::ptrdiff_t l, std::ptrdiff_t a, std::ptrdiff_t b)
    {
        return static_cast<std::size_t>((l * integrated::colorLevels + a) * integrated::colorLevels + b);
    }

    integrated::Bins m_distances{};
};

/// The ratio of a bin, before it is stretched.
double ratioOf(int bin, const BinDistances &distances, const integrated::Bins &all, const integrated::Bins &edges)
{
    constexpr double fewestEdges = 30; // sums that are not above say nothing
    integrated::Bins away{};
    double total = 0;
    for (int other = 0; other < integrated::binCount; ++other) {
        away[static_cast<std::size_t>(other)] = distances.between(bin, other);
        total += away[static_cast<std::size_t>(other)];
    }
    double allSum = 0;
    double edgeSum = 0;
    for (std::size_t other = 0; other < away.size(); ++other) {
        allSum += (total - away[other]) * all[other];
        edgeSum += (total - away[other]) * edges[other];
    }
    return allSum > 0 && edgeSum > fewestEdges ? edgeSum / allSum : 0;
}

/// The ratio of each pixel's colour where edges have that colour, else 0; stretched to 0..1.
cv::Mat colorMap(const cv::Mat &bins, const Histograms &histograms)
{
    integrated::Bins ratios = integrated::colorRatios(histograms.all, histograms.edges);
    for (std::size_t bin = 0; bin < ratios.size(); ++bin) {
        if (!(histograms.edges[bin] > 0))
            ratios[bin] = 0;
    }
    cv::Mat map(bins.size(), CV_64F);
    for (int y = 0; y < bins.rows; ++y)
        std::transform(bins.ptr<ushort>(y), bins.ptr<ushort>(y) + bins.cols, map.ptr<double>(y),
                       [&ratios](ushort bin) { return ratios[bin]; });
    cv::normalize(map, map, 0, 1, cv::NORM_MINMAX);
    return map;
}

/// Where edges are densest: the first of the highest cells of the sum of all blurs, row by row. Nothing when stopped.
std::optional<cv::Point> densestEdges(const cv::Mat &edges, const std::vector<integrated::Blur> &blurs,
                                      StoppableProgress &progress)
{
    cv::Mat mask;
    edges.convertTo(mask, CV_32F);
    cv::Mat sum(mask.size(), CV_32F, cv::Scalar(0));
    const auto count = static_cast<int>(blurs.size()) - 1;
    const int atOnce = std::max(1, QThread::idealThreadCount());
    for (int first = 0; first < count; first += atOnce) {
        std::vector<cv::Mat> blurred(static_cast<std::size_t>(std::min(atOnce, count - first)));
        forEachSideBySide(static_cast<int>(blurred.size()), [&](int i) {
            const auto &[side, sigma] = blurs[static_cast<std::size_t>(first) + static_cast<std::size_t>(i)];
            cv::GaussianBlur(mask, blurred[static_cast<std::size_t>(i)], {side, side}, sigma);
        });
        for (const cv::Mat &one : blurred) { // in their order, whatever the number of threads
            sum += one;
            if (!progress.next())
                return std::nullopt;
        }
    }
    cv::normalize(sum, sum, 0, 1, cv::NORM_MINMAX);
    const auto highest = std::max_element(sum.begin<float>(), sum.end<float>());
    return highest.pos();
}

/// A Gaussian about the centre, stretched to 0..1.
cv::Mat centerMap(cv::Size size, cv::Point center, double sigma)
{
    const auto profile = [sigma](int count, int middle) {
        cv::Mat values(1, count, CV_64F);
        for (int i = 0; i < count; ++i)
            values.at<double>(i) = std::exp(-static_cast<double>(i - middle) * (i - middle) / (2 * sigma * sigma));
        return values;
    };
    const cv::Mat down = profile(size.height, center.y) / (2 * std::numbers::pi * sigma * sigma);
    cv::Mat map = down.t() * profile(size.width, center.x);
    cv::normalize(map, map, 0, 1, cv::NORM_MINMAX);
    return map;
}

} // namespace

integrated::Bins integrated::colorRatios(const Bins &all, const Bins &edges)
{
    const BinDistances distances;
    Bins ratios{};
    for (int bin = 0; bin < binCount; ++bin)
        ratios[static_cast<std::size_t>(bin)] = ratioOf(bin, distances, all, edges);
    const auto [lowest, highest] = std::minmax_element(ratios.begin(), ratios.end());
    const double begin = *lowest;
    const double range = *highest - begin;
    for (double &ratio : ratios)
        ratio = range > 0 ? (ratio - begin) / range : 0;
    return ratios;
}

std::vector<integrated::Blur> integrated::blurs(int columns, const IntegratedNumbers &numbers)
{
    constexpr double growth = 1.1;
    constexpr double widestShare = 5;
    std::vector<Blur> found;
    double sigma = static_cast<double>(columns) / numbers.gaussDivisor;
    int window = numbers.gaussWindow / 2 * 2;
    while (sigma < columns / widestShare) {
        found.push_back({smoothingKernelSide(window + 1, sigma), sigma});
        sigma *= growth;
        window = static_cast<int>(window * growth) / 2 * 2;
    }
    found.push_back({smoothingKernelSide(window + 1, sigma), sigma});
    return found;
}

cv::Mat integratedSaliency(const cv::Mat &picture, const IntegratedNumbers &numbers, const std::stop_token &stop)
{
    const std::vector<integrated::Blur> blurs = integrated::blurs(picture.cols, numbers);
    constexpr int otherSteps = 2;
    StoppableProgress progress(saliencyLabel, static_cast<int>(blurs.size()) - 1 + otherSteps, stop);
    const Channels channels = channelsOf(picture);
    const cv::Mat edges = edgesOf(channels, numbers);
    if (!progress.next())
        return {};
    const cv::Mat bins = binsOf(channels);
    const cv::Mat colors = colorMap(bins, histogramsOf(bins, edges));
    if (!progress.next())
        return {};
    const std::optional<cv::Point> center = densestEdges(edges, blurs, progress);
    if (!center)
        return {};
    constexpr int highest = 255;
    cv::Mat saliency = centerMap(picture.size(), *center, blurs.back().sigma).mul(colors);
    cv::normalize(saliency, saliency, 0, highest, cv::NORM_MINMAX);
    return saliency;
}
