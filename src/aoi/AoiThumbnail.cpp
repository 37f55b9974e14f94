// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/AoiThumbnail.h"

#include <QPainter>

#include <algorithm>

namespace {

/// The size of a polygon in pixels, its last column and row included; empty if it is beyond what a picture may take.
QRect thumbnailFrame(const QPolygon &polygon)
{
    constexpr int farthest = 1 << 15; // vertices of a damaged file may lie anywhere
    const QRect limits(QPoint(-farthest, -farthest), QPoint(farthest, farthest));
    constexpr qint64 largest = 1 << 24; // px, four times the canvas
    const bool isNear =
        std::all_of(polygon.cbegin(), polygon.cend(), [&](QPoint vertex) { return limits.contains(vertex); });
    const QRect frame = isNear ? polygon.boundingRect() : QRect();
    return qint64(frame.width()) * frame.height() <= largest ? frame : QRect();
}

} // namespace

QImage aoiThumbnail(const QPolygon &polygon, const QImage &picture)
{
    if (polygon.isEmpty())
        return {};
    const QRect frame = thumbnailFrame(polygon);
    QImage image(frame.size(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::white);
    QPainter(&image).drawImage(-frame.topLeft(), picture);
    return image;
}
