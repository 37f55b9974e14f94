// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/SuspectList.h"

#include <algorithm>

namespace {

/// Below this, measuring all samples is as quick as keeping the list.
constexpr std::size_t fewestWorthwhile = 64;

/// Share of the radius that covers the rounding of distances, with plenty to spare.
constexpr double roundingShare = 1e-9;

double squareOf(QPointF difference)
{
    return difference.x() * difference.x() + difference.y() * difference.y();
}

} // namespace

void SuspectList::clear()
{
    m_suspects.clear();
    m_isBuilt = false;
}

void SuspectList::build(QPointF anchor, const std::vector<double> &squares, std::size_t first)
{
    clear();
    if (squares.size() < fewestWorthwhile || !std::isfinite(anchor.x()) || !std::isfinite(anchor.y()))
        return;
    const auto wanted = 16 + static_cast<std::size_t>(std::sqrt(static_cast<double>(squares.size())) / 2);
    std::vector<double> ordered = squares;
    const auto farthest = ordered.begin() + static_cast<std::ptrdiff_t>(wanted);
    // The farthest come first. A square that is not a number stands before all others, as if it were infinite.
    std::nth_element(ordered.begin(), farthest, ordered.end(),
                     [](double a, double b) { return a > b || (std::isnan(a) && !std::isnan(b)); });
    const double nearDistance = std::max(std::sqrt(*farthest), m_radius / 2);
    m_slack = m_radius - nearDistance - roundingShare * m_radius;
    if (!(m_slack > 0))
        return;
    m_isBuilt = true;
    m_anchor = anchor;
    m_nearSquare = nearDistance * nearDistance;
    m_mostSuspects = 4 * wanted;
    m_end = first + squares.size();
    for (std::size_t i = 0; i < squares.size(); ++i) {
        if (isSuspect(squares[i]))
            m_suspects.append(first + i);
    }
}

void SuspectList::catchUp(std::span<const WorkSample *const> samples)
{
    for (; m_isBuilt && m_end < samples.size(); ++m_end) {
        if (isSuspect(squareOf(QPointF(samples[m_end]->x, samples[m_end]->y) - m_anchor)))
            m_suspects.append(m_end);
    }
}

bool SuspectList::isValidFor(QPointF medianPoint) const
{
    return m_isBuilt && m_suspects.size() <= m_mostSuspects && squareOf(medianPoint - m_anchor) <= m_slack * m_slack;
}

bool SuspectList::hasAtMost(std::size_t allowed, QPointF medianPoint, std::span<const WorkSample *const> samples) const
{
    std::size_t outliers = 0;
    for (const std::size_t index : m_suspects.all()) {
        const WorkSample &sample = *samples[index];
        if (m_limit.isOutside(sample.x - medianPoint.x(), sample.y - medianPoint.y()) && ++outliers > allowed)
            return false;
    }
    return true;
}
