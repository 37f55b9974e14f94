// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QLatin1StringView>

#include <opencv2/core/mat.hpp>

#include <array>
#include <stop_token>

/// Which places of a picture stand out, by three models. The values are those of the control panel's list; 0 is none.
enum class SaliencyMethod { Itti = 1, FrequencyTuned = 2, IntegratedFeatures = 3 };

/// The four numbers of a method, in the order of their boxes.
using SaliencyNumbers = std::array<int, 4>;

/// Larger numbers are taken as this one: beyond it kernels would fill the memory and edges would need more contrast
/// than there is.
inline constexpr int highestSaliencyNumber = 2000;

/// One number of a method: what stands beside its box, and what it is without a value. A number without text is unused.
struct SaliencyNumber {
    QLatin1StringView text;
    int initial = 0;
};

struct SaliencyModel {
    SaliencyMethod method;
    QLatin1StringView name; ///< on the command line
    std::array<SaliencyNumber, 4> numbers;
};

inline constexpr SaliencyModel saliencyModels[] = {
    {SaliencyMethod::Itti,
     QLatin1StringView("itti"),
     {{{},
       {QLatin1StringView("Number local maxima"), 12},
       {QLatin1StringView("Size Gabor"), 10},
       {QLatin1StringView("Sigma Gabor"), 100}}}},
    {SaliencyMethod::FrequencyTuned,
     QLatin1StringView("frequency-tuned"),
     {{{QLatin1StringView("Gauss size"), 5},
       {QLatin1StringView("Gauss varrianze x"), 2}, // sic
       {QLatin1StringView("Gauss varrianze y"), 2}, // sic
       {}}}},
    {SaliencyMethod::IntegratedFeatures,
     QLatin1StringView("integrated"),
     {{{QLatin1StringView("Edge TH up"), 500},
       {QLatin1StringView("Edge TH down"), 250},
       {QLatin1StringView("Gauss divisor"), 20},
       {QLatin1StringView("Gauss window"), 40}}}},
};

/// The saliency of a picture, with progress.
///
/// @param numbers  those below 1 take their initial values.
/// @return the map as CV_64F, in the size in which the model computes it: that of the picture, and a quarter of
///         640 x 480 for `Itti`. Empty for a picture without pixels, and when stopped.
cv::Mat saliencyMap(SaliencyMethod method, const QImage &picture, const SaliencyNumbers &numbers,
                    const std::stop_token &stop = {});

/// The map stretched over the canvas, CV_64F with 1600 rows of 2560 values from 0 to 1.
cv::Mat saliencyOnCanvas(const cv::Mat &map);

/// The map as a picture of the given size: 8 bit with a table of greys, the lowest value black, the highest white.
QImage saliencyPicture(const cv::Mat &map, QSize size);
