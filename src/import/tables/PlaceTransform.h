// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableLayout.h"

#include <cmath>
#include <numbers>

/// Turns places of a table into pixels of the screen from its upper left corner.
///
/// Angles are those of each axis for itself: px = tan(angle) * distance * px per mm, from the middle of the screen.
class PlaceTransform {
public:
    /// @param place  has what its unit and origin need, see layoutProblem().
    explicit PlaceTransform(const TableGeometry &place)
        : m_isIdentity(place.unit == TablePlaceUnit::Pixels && place.origin == TableOrigin::TopLeft &&
                       place.xAxis == TableAxis::RightOrDown && place.yAxis == TableAxis::RightOrDown)
        , m_isAngle(place.unit == TablePlaceUnit::Degrees)
        , m_scaleX(scale(place, place.screenPx.width(), place.screenMm.width()) * sign(place.xAxis))
        , m_scaleY(scale(place, place.screenPx.height(), place.screenMm.height()) * sign(place.yAxis))
        , m_originX(place.origin == TableOrigin::Centre ? place.screenPx.width() / 2 : 0)
        , m_originY(place.origin == TableOrigin::Centre       ? place.screenPx.height() / 2
                    : place.origin == TableOrigin::BottomLeft ? place.screenPx.height()
                                                              : 0)
    {
    }

    double x(double value) const { return m_isIdentity ? value : m_originX + m_scaleX * length(value); }
    double y(double value) const { return m_isIdentity ? value : m_originY + m_scaleY * length(value); }

private:
    static double sign(TableAxis axis) { return axis == TableAxis::RightOrDown ? 1 : -1; }

    static double scale(const TableGeometry &place, double px, double mm)
    {
        switch (place.unit) {
        case TablePlaceUnit::Pixels:
            return 1;
        case TablePlaceUnit::Normalised:
            return px;
        case TablePlaceUnit::Millimetres:
            return px / mm;
        case TablePlaceUnit::Degrees:
            return place.distanceMm * px / mm;
        }
        return 1;
    }

    double length(double value) const
    {
        constexpr double degrees = 180;
        return m_isAngle ? std::tan(value * std::numbers::pi / degrees) : value;
    }

    bool m_isIdentity;
    bool m_isAngle;
    double m_scaleX;
    double m_scaleY;
    double m_originX;
    double m_originY;
};
