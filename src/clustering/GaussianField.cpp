// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/GaussianField.h"

#include <numbers>

namespace {

/// Beyond so many widths from its centre a point weighs less than 1e-17 anywhere in a square.
constexpr double farthestWidths = 9.6;

} // namespace

GaussianField::GaussianField(std::vector<PlanePoint> points, std::vector<double> weights, double widthPx)
    : m_points(std::move(points))
    , m_weights(std::move(weights))
    , m_widthPx(widthPx)
    , m_unit(std::numbers::sqrt2 * widthPx)
    , m_index(m_points)
{
}

PlanePoint GaussianField::shiftAt(PlanePoint place)
{
    const Square &square = squareAt(place);
    const double x = (place.x - square.centre.x) / m_unit;
    const double y = (place.y - square.centre.y) / m_unit;
    Powers row{};    // of x, the powers of y summed up
    Powers rowByY{}; // its derivative
    for (size_t i = powers; i-- > 0;) {
        for (size_t k = 0; k < powers; ++k) {
            rowByY[k] = rowByY[k] * y + row[k];
            row[k] = row[k] * y + square.factors[i][k];
        }
    }
    double sum = 0;
    double sumByX = 0;
    double sumByY = 0;
    for (size_t k = powers; k-- > 0;) {
        sumByX = sumByX * x + sum;
        sum = sum * x + row[k];
        sumByY = sumByY * x + rowByY[k];
    }
    // The polynomial is precise where the sum is not small and the place lies in its square. A point that climbs has
    // its own weight, 1 or more, in the sum at the start, and the sum grows on its way. Other places can have a smaller
    // sum. With a very narrow kernel, rounding can put a place outside of its square. For both the sum over all points
    // is used.
    constexpr double leastSum = 0.5;
    constexpr double halfSquare = 0.36; // in units: half of 1 / sqrt 2, and some rounding
    if (!(sum >= leastSum && std::abs(x) <= halfSquare && std::abs(y) <= halfSquare))
        return directShiftAt(place);
    // The derivative of exp(-d^2) along an axis is -2 d exp(-d^2).
    return {sumByX / sum * m_unit / 2, sumByY / sum * m_unit / 2};
}

PlanePoint GaussianField::directShiftAt(PlanePoint place) const
{
    double sum = 0;
    double sumX = 0;
    double sumY = 0;
    for (size_t i = 0; i < m_points.size(); ++i) {
        const double x = m_points[i].x - place.x;
        const double y = m_points[i].y - place.y;
        const double weight =
            m_weights[i] * std::exp(-((x / m_widthPx) * (x / m_widthPx) + (y / m_widthPx) * (y / m_widthPx)) / 2);
        sum += weight;
        sumX += weight * x;
        sumY += weight * y;
    }
    return {sumX / sum, sumY / sum};
}

const GaussianField::Square &GaussianField::squareAt(PlanePoint place)
{
    const std::pair key(std::floor(place.x / m_widthPx), std::floor(place.y / m_widthPx));
    const auto known = m_squares.find(key);
    if (known != m_squares.end())
        return known->second;
    const PlanePoint centre{(key.first + 0.5) * m_widthPx, (key.second + 0.5) * m_widthPx};
    return m_squares.emplace(key, expanded(centre)).first->second;
}

GaussianField::Square GaussianField::expanded(PlanePoint centre) const
{
    Square square{.centre = centre};
    for (const size_t i : m_index.within(centre, farthestWidths * m_widthPx)) {
        const Powers byX = hermite((m_points[i].x - centre.x) / m_unit);
        const Powers byY = hermite((m_points[i].y - centre.y) / m_unit);
        for (size_t row = 0; row < powers; ++row) {
            const double factor = m_weights[i] * byY[row];
            for (size_t column = 0; column < powers; ++column)
                square.factors[row][column] += factor * byX[column];
        }
    }
    return square;
}

/// The Taylor coefficients of exp(-(t - distance)^2) in t: those of the Hermite functions.
GaussianField::Powers GaussianField::hermite(double distance) const
{
    Powers terms{};
    terms[0] = std::exp(-distance * distance);
    terms[1] = 2 * distance * terms[0];
    for (size_t n = 1; n + 1 < powers; ++n)
        terms[n + 1] = 2 * (distance * terms[n] - terms[n - 1]) / static_cast<double>(n + 1);
    return terms;
}
