// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/PointIndex.h"

#include <array>
#include <map>
#include <utility>

/// The Gaussian-weighted mean of a set of points, asked for at many places.
///
/// The sum of the Gaussians is smooth: in each square of the width of the kernel it is a polynomial, as far as double
/// precision can tell. The polynomial of a square is made when the first place in it is asked for, so that a question
/// does not cost a look at every point.
/// Source: the expansion in Greengard & Strain (1991), The fast Gauss transform, SIAM J. Sci. Stat. Comput. 12.
class GaussianField {
public:
    /// @param points   finite, each as often as its weight says.
    /// @param weights  at least 1 each; as many as points.
    /// @param widthPx  r in the weight exp(-d^2 / (2 r^2)) of a point at distance d; above 0.
    GaussianField(std::vector<PlanePoint> points, std::vector<double> weights, double widthPx);

    /// From a place to the weighted mean of all points, to some 12 digits of the width. Not a number so far away that
    /// no point has any weight.
    PlanePoint shiftAt(PlanePoint place);

    /// The same straight from the sum over all points.
    PlanePoint directShiftAt(PlanePoint place) const;

private:
    /// So many powers along each axis leave an error below 1e-15 of the sum.
    static constexpr size_t powers = 20;
    using Powers = std::array<double, powers>;

    struct Square {
        PlanePoint centre;
        std::array<Powers, powers> factors{}; ///< of y^row * x^column, in units of `m_unit` from the centre
    };

    const Square &squareAt(PlanePoint place);
    Square expanded(PlanePoint centre) const;
    Powers hermite(double distance) const;

    const std::vector<PlanePoint> m_points;
    const std::vector<double> m_weights;
    const double m_widthPx;
    const double m_unit; ///< px
    const PointIndex m_index;
    std::map<std::pair<double, double>, Square> m_squares; ///< by column and row
};
