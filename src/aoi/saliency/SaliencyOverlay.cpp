// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/saliency/SaliencyOverlay.h"

QImage SaliencyOverlay::image(SaliencyMethod method, const QImage &picture, const SaliencyNumbers &numbers,
                              const std::stop_token &stop)
{
    Input input{method, picture, numbers};
    if (m_input == input)
        return m_image;
    const cv::Mat map = saliencyMap(method, picture, numbers, stop);
    if (map.empty())
        return {};
    m_image = saliencyPicture(map, picture.size());
    m_input = std::move(input);
    return m_image;
}
