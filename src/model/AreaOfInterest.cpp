// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/AreaOfInterest.h"

#include "base/Truncation.h"
#include "model/AoiColors.h"

#include <cmath>

namespace {

/// Twice the signed size of the triangle between the edge and the origin. With 32 bits it would overflow from 46341 px
/// on.
qint64 doubledTriangle(QPoint from, QPoint to)
{
    return qint64(to.y()) * from.x() - qint64(to.x()) * from.y();
}

} // namespace

AreaOfInterest::AreaOfInterest() : color(aoicolors::next()) {}

AreaOfInterest::AreaOfInterest(QString name_, QPolygon polygon_)
    : color(aoicolors::next())
    , name(std::move(name_))
    , polygon(std::move(polygon_))
{
}

float AreaOfInterest::area() const
{
    if (polygon.isEmpty())
        return 0;
    float sum = 0;
    for (qsizetype i = 1; i < polygon.size(); ++i)
        sum += static_cast<float>(doubledTriangle(polygon[i - 1], polygon[i]));
    sum += static_cast<float>(doubledTriangle(polygon.last(), polygon.first()));
    return std::abs(sum / 2);
}

QPoint AreaOfInterest::centroid() const
{
    if (polygon.isEmpty())
        return {};
    double x = 0;
    double y = 0;
    for (const QPoint &vertex : polygon) {
        x += vertex.x();
        y += vertex.y();
    }
    const auto count = static_cast<double>(polygon.size());
    return {truncated(x / count), truncated(y / count)};
}

bool AreaOfInterest::contains(QPointF position, Qt::FillRule rule) const
{
    return contains(QPoint(truncated(position.x()), truncated(position.y())), rule);
}
