// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/saliency/Saliency.h"

#include "aoi/saliency/FrequencyTunedSaliency.h"
#include "aoi/saliency/IntegratedSaliency.h"
#include "aoi/saliency/IttiSaliency.h"
#include "aoi/saliency/PictureMatrix.h"
#include "model/Canvas.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>

namespace {

/// The numbers of a method, each within its limits.
SaliencyNumbers completed(SaliencyMethod method, SaliencyNumbers numbers)
{
    const auto model = std::find_if(std::begin(saliencyModels), std::end(saliencyModels),
                                    [method](const SaliencyModel &candidate) { return candidate.method == method; });
    for (std::size_t i = 0; i < numbers.size() && model != std::end(saliencyModels); ++i)
        numbers[i] = numbers[i] < 1 ? model->numbers[i].initial : std::min(numbers[i], highestSaliencyNumber);
    return numbers;
}

cv::Mat resized(const cv::Mat &map, cv::Size size)
{
    cv::Mat floats;
    map.convertTo(floats, CV_32F);
    cv::Mat large;
    cv::resize(floats, large, size, 0, 0, cv::INTER_LINEAR);
    return large;
}

} // namespace

cv::Mat saliencyMap(SaliencyMethod method, const QImage &picture, const SaliencyNumbers &numbers,
                    const std::stop_token &stop)
{
    const cv::Mat pixels = pictureMatrix(picture);
    if (pixels.empty())
        return {};
    const SaliencyNumbers n = completed(method, numbers);
    switch (method) {
    case SaliencyMethod::Itti:
        return ittiSaliency(pixels, {.localMaxima = n[1], .gaborSize = n[2], .gaborSigma = n[3]}, stop);
    case SaliencyMethod::FrequencyTuned:
        return frequencyTunedSaliency(pixels, {.kernelSize = n[0], .varianceX = n[1], .varianceY = n[2]}, stop);
    case SaliencyMethod::IntegratedFeatures:
        return integratedSaliency(pixels,
                                  {.edgeHigh = n[0], .edgeLow = n[1], .gaussDivisor = n[2], .gaussWindow = n[3]}, stop);
    }
    return {};
}

cv::Mat saliencyOnCanvas(const cv::Mat &map)
{
    cv::Mat onCanvas;
    cv::normalize(resized(map, {canvas::width, canvas::height}), onCanvas, 0, 1, cv::NORM_MINMAX, CV_64F);
    return onCanvas;
}

QImage saliencyPicture(const cv::Mat &map, QSize size)
{
    constexpr int greys = 256;
    if (map.empty() || size.isEmpty())
        return {};
    cv::Mat levels;
    cv::normalize(resized(map, {size.width(), size.height()}), levels, 0, greys - 1, cv::NORM_MINMAX, CV_8U);
    QImage picture(size, QImage::Format_Indexed8);
    QList<QRgb> table;
    for (int grey = 0; grey < greys; ++grey)
        table << qRgb(grey, grey, grey);
    picture.setColorTable(table);
    for (int y = 0; y < size.height(); ++y)
        std::copy_n(levels.ptr(y), size.width(), picture.scanLine(y));
    return picture;
}
