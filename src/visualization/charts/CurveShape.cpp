// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/charts/CurveShape.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

double meanHeight(const QPolygonF &points, qsizetype first, qsizetype last)
{
    const double sum = std::accumulate(points.cbegin() + first, points.cbegin() + last + 1, 0.0,
                                       [](double before, const QPointF &point) { return before + point.y(); });
    return sum / static_cast<double>(last + 1 - first);
}

/// Second derivatives at the points; 0 at both ends.
QList<double> secondDerivatives(const QPolygonF &points)
{
    const qsizetype last = points.size() - 1;
    QList<double> upper(points.size(), 0.0);
    QList<double> right(points.size(), 0.0);
    for (qsizetype i = 1; i < last; ++i) {
        const QPointF before = points[i] - points[i - 1];
        const QPointF behind = points[i + 1] - points[i];
        const double share = before.x() / (before.x() + behind.x());
        const double pivot = share * upper[i - 1] + 2;
        const double bend = behind.y() / behind.x() - before.y() / before.x();
        upper[i] = (share - 1) / pivot;
        right[i] = (6 * bend / (before.x() + behind.x()) - share * right[i - 1]) / pivot;
    }
    QList<double> second(points.size(), 0.0);
    for (qsizetype i = last - 1; i > 0; --i)
        second[i] = upper[i] * second[i + 1] + right[i];
    return second;
}

} // namespace

QPolygonF smoothed(const QPolygonF &points)
{
    constexpr double share = 0.01;
    const auto window = std::max<qsizetype>(1, static_cast<qsizetype>(static_cast<double>(points.size()) * share));
    QPolygonF result;
    for (qsizetype i = 0; i < points.size(); i += 2) {
        const qsizetype first = std::max<qsizetype>(0, i - window / 2);
        const qsizetype last = std::min(points.size(), i - window / 2 + window) - 1;
        result << QPointF(points[i].x(), meanHeight(points, first, last));
    }
    return result;
}

QPolygonF splined(const QPolygonF &points)
{
    constexpr qsizetype fewest = 5;
    if (points.size() < fewest)
        return points;
    const QList<double> second = secondDerivatives(points);
    QPolygonF result;
    qsizetype piece = 0;
    double x = points.first().x();
    while (x <= points.last().x()) {
        while (piece + 2 < points.size() && points[piece + 1].x() <= x)
            ++piece;
        const double width = points[piece + 1].x() - points[piece].x();
        const double a = (points[piece + 1].x() - x) / width;
        const double b = (x - points[piece].x()) / width;
        const double bend = ((a * a * a - a) * second[piece] + (b * b * b - b) * second[piece + 1]) * width * width / 6;
        result << QPointF(x, a * points[piece].y() + b * points[piece + 1].y() + bend);
        x += 1;
    }
    return result;
}

QPolygonF outlined(const QPolygonF &points)
{
    constexpr QPointF offset(5, -5);
    QPolygonF band = points;
    std::for_each(points.crbegin(), points.crend(), [&](const QPointF &point) { band << point + offset; });
    return band;
}
