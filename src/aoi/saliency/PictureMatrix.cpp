// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/saliency/PictureMatrix.h"

cv::Mat pictureMatrix(const QImage &picture)
{
    if (picture.isNull())
        return {};
    QImage ordered = picture.convertToFormat(QImage::Format_BGR888);
    return cv::Mat(ordered.height(), ordered.width(), CV_8UC3, ordered.bits(),
                   static_cast<std::size_t>(ordered.bytesPerLine()))
        .clone();
}
