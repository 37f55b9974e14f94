// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/SaccadeVector.h"

#include "base/Truncation.h"

#include <cmath>

namespace {

/// In floating point: positions of damaged files are too far apart for int.
double along(int from, int to)
{
    return double(to) - double(from);
}

} // namespace

int directionOf(QPoint start, QPoint end)
{
    constexpr double degreesPerRadian = 57.29577951308232;
    constexpr double fullTurn = 360.0;
    const double angle = std::atan2(along(start.y(), end.y()), along(start.x(), end.x())) * degreesPerRadian;
    return truncated(angle > 0.0 ? angle : angle + fullTurn);
}

SaccadeVector::SaccadeVector(QPoint start_, QPoint end_, qint64 startTime_, qint64 endTime_)
    : start(start_)
    , end(end_)
    , startTime(startTime_)
    , endTime(endTime_)
    , angle(directionOf(start, end))
{
    const double dx = along(start.x(), end.x());
    const double dy = along(start.y(), end.y());
    length = truncated(std::sqrt(dx * dx + dy * dy));
}
