// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/ClusterAois.h"

#include "base/Truncation.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double fullCircle = 2 * std::numbers::pi;

/// Angle of the axis from the x axis on, in the direction of y. The one of its two ends is taken that does not point
/// upwards.
double angleOf(QVector2D axis)
{
    if (axis.y() < 0)
        axis = -axis;
    const double angle = std::atan2(-static_cast<double>(axis.y()), static_cast<double>(axis.x()));
    return angle < 0 ? fullCircle - angle : angle;
}

} // namespace

QPolygon ellipsePolygon(QPoint center, QVector2D first, QVector2D second, int steps)
{
    const double angle = angleOf(first);
    const double step = fullCircle / steps;
    const auto a = static_cast<double>(first.length());
    const auto b = static_cast<double>(second.length());
    QPolygon polygon;
    double t = 0;
    do {
        const double x = center.x() + std::cos(t) * a * std::cos(angle) - std::sin(t) * b * std::sin(angle);
        const double y = center.y() + std::cos(t) * a * std::sin(angle) + std::sin(t) * b * std::cos(angle);
        polygon << QPoint(truncated(x), truncated(y));
        t += step;
    } while (t < fullCircle);
    return polygon;
}

QList<GeneratedAoi> clusterAois(const QList<CumulativeCluster> &clusters)
{
    constexpr float axesInDeviations = 2;
    constexpr int steps = 50;
    QList<GeneratedAoi> aois;
    for (const CumulativeCluster &cluster : clusters) {
        const QPolygon ellipse = ellipsePolygon(cluster.mean, cluster.majorAxis * axesInDeviations,
                                                cluster.minorAxis * axesInDeviations, steps);
        aois.append({{QStringLiteral("ClusterAOI(%1)").arg(aois.size() + 1), ellipse}, {}});
    }
    return aois;
}
