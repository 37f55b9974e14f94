// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/SpeedThreshold.h"

#include <cmath>

namespace {

constexpr double pi = 3.141592653589793;
constexpr double degreesPerRadian = 180 / pi;

/// Relative width of the bands on each side: all rounding together stays below 1e-14.
constexpr double margin = 1e-9;

/// The squares of distances in this range neither overflow nor lose digits.
bool canBeSquared(double value)
{
    return value > 1e-100 && value < 1e100;
}

} // namespace

SpeedThreshold::SpeedThreshold(double pxPerMs) : m_perMs(pxPerMs)
{
    setBands();
}

SpeedThreshold::SpeedThreshold(double degreesPerMs, const ViewingGeometry &geometry)
    : m_perMs(degreesPerMs)
    , m_geometry(geometry)
{
    setBands();
}

void SpeedThreshold::setBands()
{
    for (size_t timeMs = 1; timeMs < m_bands.size(); ++timeMs) {
        const std::optional<double> slower = distancePx(1 - margin, static_cast<double>(timeMs));
        const std::optional<double> faster = distancePx(1 + margin, static_cast<double>(timeMs));
        if (slower && faster)
            m_bands[timeMs] = {*slower * *slower, *faster * *faster};
    }
}

/// How far the eye comes in this time at a share of the threshold; nothing where that cannot be told with enough
/// digits.
std::optional<double> SpeedThreshold::distancePx(double speedShare, double timeMs) const
{
    const double way = m_perMs * speedShare * timeMs;
    if (!canBeSquared(way))
        return std::nullopt;
    if (!m_geometry)
        return way;
    constexpr double rightAngle = 90;
    if (way > rightAngle * (1 - margin)) // no step is as wide: the rare case is computed
        return std::nullopt;
    const double distance = std::tan(way / degreesPerRadian) * m_geometry->screenDistanceM /
                            (m_geometry->imageSizeM / m_geometry->imageWidthPx);
    return canBeSquared(distance) ? std::optional(distance) : std::nullopt;
}

bool SpeedThreshold::isGreaterThanExactly(double squaredPx, qint64 timeMs) const
{
    double distance = std::sqrt(squaredPx);
    if (m_geometry) {
        const double tangent =
            m_geometry->imageSizeM / m_geometry->imageWidthPx * distance / m_geometry->screenDistanceM;
        distance = std::atan(tangent) * 180 / pi;
    }
    return m_perMs > distance / static_cast<double>(timeMs);
}
