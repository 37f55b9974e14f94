// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <array>
#include <limits>
#include <optional>

/// What turns pixels into degrees of visual angle.
struct ViewingGeometry {
    double screenDistanceM = 0;
    double imageSizeM = 0;
    double imageWidthPx = 0;
};

/// Which steps of the eye are slower than a threshold.
///
/// The answer is, to the last bit, that of the plain form: the root of the squared distance, for an angle its arc
/// tangent, divided by the time and compared. It is mostly found without any of these: for each usual time between two
/// samples there is a band around the squared distance at which the answer changes, many times wider than all rounding,
/// and only what falls into the band is computed.
class SpeedThreshold {
public:
    /// @param pxPerMs  any number; what is not a number is greater than no speed.
    explicit SpeedThreshold(double pxPerMs);
    SpeedThreshold(double degreesPerMs, const ViewingGeometry &geometry);

    /// @param squaredPx  squared distance of two samples.
    /// @param timeMs     from the first to the second; may be 0, which makes the speed infinite or not a number, or
    ///                   negative.
    bool isGreaterThan(double squaredPx, qint64 timeMs) const
    {
        if (static_cast<quint64>(timeMs) < m_bands.size()) {
            const Band &band = m_bands[static_cast<quint64>(timeMs)];
            if (squaredPx < band.slower)
                return true;
            if (squaredPx > band.faster)
                return false;
        }
        return isGreaterThanExactly(squaredPx, timeMs);
    }

private:
    /// In px^2. The default decides nothing.
    struct Band {
        double slower = -1; ///< surely slower below
        double faster = std::numeric_limits<double>::infinity();
    };

    void setBands();
    std::optional<double> distancePx(double speedShare, double timeMs) const;
    bool isGreaterThanExactly(double squaredPx, qint64 timeMs) const;

    const double m_perMs; ///< in pixels or degrees
    const std::optional<ViewingGeometry> m_geometry;
    std::array<Band, 64> m_bands; ///< by ms from sample to sample
};
