// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/FixationOutline.h"

#include "base/Progress.h"

#include <QTransform>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

double lengthOfAxis(QVector2D axis)
{
    return static_cast<double>(axis.length());
}

/// Component of the axis in the direction of the unit vector.
double alongAxis(QVector2D axis, double x, double y)
{
    return static_cast<double>(axis.x()) * x + static_cast<double>(axis.y()) * y;
}

} // namespace

FixationOutline::FixationOutline(const ScanpathSection &fixation)
    : m_mean(fixation.mean)
    , m_major(fixation.majorAxis)
    , m_minor(fixation.minorAxis)
{
    if (m_minor.length() > m_major.length())
        std::swap(m_major, m_minor);
    const double angle = std::atan2(-static_cast<double>(m_major.y()), static_cast<double>(m_major.x()));
    QPainterPath unturned;
    unturned.addEllipse(QPointF(0, 0), lengthOfAxis(m_major), lengthOfAxis(m_minor));
    m_path = QTransform().rotate(-(angle * 180 / std::numbers::pi)).map(unturned);
    m_path.translate(m_mean);
    m_bounds = m_path.controlPointRect();
}

bool FixationOutline::touches(const FixationOutline &other) const
{
    switch (judged(other)) {
    case Answer::Apart:
        return false;
    case Answer::Touching:
        return true;
    case Answer::Unclear:
        break;
    }
    Progress::refresh(); // one comparison is quick, thousands are not
    return m_path.intersects(other.m_path) || other.m_path.intersects(m_path) || m_path.contains(other.m_path) ||
           other.m_path.contains(m_path);
}

/// Looks along the line of the two centres: if the ellipses do not reach each other in projection, they are apart; if
/// their parts of the line overlap, they touch. The outlines are curves that differ from ellipses by less than 0.03 %,
/// so that a margin of 0.1 % leaves what is close to them.
FixationOutline::Answer FixationOutline::judged(const FixationOutline &other) const
{
    const bool boundsApart = m_bounds.right() < other.m_bounds.left() || other.m_bounds.right() < m_bounds.left() ||
                             m_bounds.bottom() < other.m_bounds.top() || other.m_bounds.bottom() < m_bounds.top();
    if (boundsApart)
        return Answer::Apart;
    constexpr double margin = 1e-3;
    constexpr float thinnestPx = 1e-3F; // what has no area is left to the comparison of the outlines
    const double x = static_cast<double>(other.m_mean.x()) - m_mean.x();
    const double y = static_cast<double>(other.m_mean.y()) - m_mean.y();
    const double distance = std::hypot(x, y);
    const bool haveArea = std::min(m_minor.length(), other.m_minor.length()) > thinnestPx;
    if (!haveArea || distance == 0)
        return Answer::Unclear;
    if ((supportAlong(x / distance, y / distance) + other.supportAlong(x / distance, y / distance)) * (1 + margin) <
        distance)
        return Answer::Apart;
    if ((reachAlong(x / distance, y / distance) + other.reachAlong(x / distance, y / distance)) * (1 - margin) >
        distance)
        return Answer::Touching;
    return Answer::Unclear;
}

/// Half the width of the ellipse in the projection on a direction.
double FixationOutline::supportAlong(double x, double y) const
{
    return std::hypot(alongAxis(m_major, x, y), alongAxis(m_minor, x, y));
}

/// From the centre to the edge in a direction.
double FixationOutline::reachAlong(double x, double y) const
{
    const double major = lengthOfAxis(m_major);
    const double minor = lengthOfAxis(m_minor);
    return 1 / std::hypot(alongAxis(m_major, x, y) / (major * major), alongAxis(m_minor, x, y) / (minor * minor));
}
