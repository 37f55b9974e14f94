// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/TargetSelector.h"

#include <algorithm>

namespace {

constexpr double inhibitionRadiusDeg = 2.5;
constexpr double inhibitionKept = 0.92;  // from one fixation to the next
constexpr double saccadeReachDeg = 9;    // half the chance at about two thirds of it
constexpr double shortestSaccadeDeg = 1; // smaller ones become rare
constexpr double leastChance = 1e-12;

double squaredDistance(const QPointF &a, const QPointF &b)
{
    const QPointF way = a - b;
    return QPointF::dotProduct(way, way);
}

double square(double value)
{
    return value * value;
}

} // namespace

TargetSelector::TargetSelector(SaliencyMap map, double pixelsPerDegree, quint64 seed)
    : m_map(std::move(map))
    , m_pixelsPerDegree(pixelsPerDegree)
    , m_random(seed, RandomSource::Stream::Targets)
    , m_inhibition(m_map.weights.size(), 0.0)
    , m_sums(m_map.weights.size(), 0.0)
{
}

QPointF TargetSelector::next(const QPointF &from)
{
    inhibit(from);
    const auto columns = static_cast<size_t>(m_map.columns);
    const size_t cell = drawCell(from);
    const QPointF center = m_map.cellCenter(static_cast<int>(cell % columns), static_cast<int>(cell / columns));
    const double jitterX = m_random.uniform(-0.5, 0.5) * m_map.cellPx;
    const double jitterY = m_random.uniform(-0.5, 0.5) * m_map.cellPx;
    return {std::clamp(center.x() + jitterX, 0.0, m_map.canvas.width() - 1.0),
            std::clamp(center.y() + jitterY, 0.0, m_map.canvas.height() - 1.0)};
}

void TargetSelector::inhibit(const QPointF &seen)
{
    const double radius = square(inhibitionRadiusDeg * m_pixelsPerDegree);
    size_t cell = 0;
    for (int row = 0; row < m_map.rows; ++row) {
        for (int column = 0; column < m_map.columns; ++column, ++cell) {
            const double distance = squaredDistance(m_map.cellCenter(column, row), seen);
            const double fresh = 1 / square(1 + square(distance / radius));
            m_inhibition[cell] = std::max(m_inhibition[cell] * inhibitionKept, fresh);
        }
    }
}

size_t TargetSelector::drawCell(const QPointF &from)
{
    const double reach = square(saccadeReachDeg * m_pixelsPerDegree);
    const double shortest = square(shortestSaccadeDeg * m_pixelsPerDegree);
    double sum = 0;
    size_t cell = 0;
    for (int row = 0; row < m_map.rows; ++row) {
        for (int column = 0; column < m_map.columns; ++column, ++cell) {
            const double distance = squaredDistance(m_map.cellCenter(column, row), from);
            const double inReach = distance / (distance + shortest) / square(1 + distance / reach);
            sum += m_map.weights[cell] * (1 - m_inhibition[cell]) * inReach + leastChance;
            m_sums[cell] = sum;
        }
    }
    const auto found = std::upper_bound(m_sums.begin(), m_sums.end(), m_random.uniform() * sum);
    return std::min(static_cast<size_t>(found - m_sums.begin()), m_sums.size() - 1);
}
