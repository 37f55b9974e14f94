// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/SaccadeGaussian.h"

#include "density/DensityLoops.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using Offset = qint64;

struct OffsetRange {
    Offset first;
    Offset last; ///< included
};

/// The values of one mark, column by column and without an exponential for each cell. In a column the Gaussian of the
/// rows peaks at some j = slope * i, the whole number `center` plus a rest. With t = j - center the value is a product
/// of exp(-0.5 * curvature * t * t), which all columns share, of exp(curvature * rest * t), a power, and of a constant.
class GaussianColumns {
public:
    GaussianColumns(const StretchedGaussian &mark, OffsetRange columns, OffsetRange rows) : m_mark(mark), m_rows(rows)
    {
        const Offset atFirst = std::llround(mark.slope * columns.first);
        const Offset atLast = std::llround(mark.slope * columns.last);
        const auto farthest = static_cast<Offset>(std::sqrt(2 * largestExponent / mark.curvature)) + 1;
        m_steps = {std::max(rows.first - std::max(atFirst, atLast), -farthest),
                   std::min(rows.last - std::min(atFirst, atLast), farthest)};
        for (Offset t = m_steps.first; t <= m_steps.last; ++t) {
            const auto square = static_cast<double>(t * t);
            m_bell.push_back(std::exp(scaleLog - 0.5 * mark.curvature * square));
        }
    }

    /// @param cells  the canvas cells of the first to the last row.
    void add(double *cells, Offset i) const
    {
        const long double peak = m_mark.slope * i;
        const Offset center = std::llround(peak);
        const auto rest = static_cast<double>(peak - center);
        const double growth = m_mark.curvature * rest;
        const double constant = -0.5 * (m_mark.spread * static_cast<double>(i * i) + growth * rest);
        const double height = m_mark.factor * std::exp(constant);
        const Offset first = std::max(m_rows.first - center, m_steps.first);
        const Offset last = std::min(m_rows.last - center, m_steps.last);
        std::array<double, blockSize> powers;
        for (std::size_t n = 0; n < blockSize; ++n)
            powers[n] = std::exp(growth * static_cast<double>(n));
        for (Offset t = first; t <= last; t += blockSize) {
            const double blockHeight = height * std::exp(growth * static_cast<double>(t));
            densityloops::addClampedProducts(
                cells + (center + t - m_rows.first), &m_bell[static_cast<std::size_t>(t - m_steps.first)],
                powers.data(), blockHeight, 1 / scale, static_cast<int>(std::min<Offset>(blockSize, last - t + 1)));
        }
    }

private:
    static constexpr Offset blockSize = 32;
    static constexpr double largestExponent = 800;        // exp(-746) is 0, and the power is below exp(20)
    static constexpr double scale = 0x1p400;              // keeps small factors of a product from losing digits
    static constexpr double scaleLog = 277.2588722239781; // its logarithm

    const StretchedGaussian &m_mark;
    OffsetRange m_rows;
    OffsetRange m_steps;
    std::vector<double> m_bell; ///< by t, from the first of the steps; times scale
};

} // namespace

StretchedGaussian::StretchedGaussian(const SaccadeMark &mark, const SaccadeMarkStyle &style)
{
    constexpr double euler = 2.71828182846; // kept: the logarithm differs from the natural one by 1e-11 of itself
    const double dx = static_cast<double>(mark.to.x) - mark.from.x;
    const double dy = static_cast<double>(mark.to.y) - mark.from.y;
    const double length = std::max(1.0, std::sqrt(dx * dx + dy * dy));
    centerX = mark.from.x + static_cast<qint64>(std::floor(dx * 0.5 + 0.5));
    centerY = mark.from.y + static_cast<qint64>(std::floor(dy * 0.5 + 0.5));
    reach = std::max<qint64>(1, static_cast<qint64>(std::ceil(length)));
    factor = markFactor(mark, length, style);
    const double across = std::max(1.0, std::sqrt(length));
    const double along = std::max(1.0, (std::log(length) / std::log(euler) + 1) * across);
    const double rotation = std::atan2(0.0, 1.0) - std::atan2(dy / length, dx / length);
    const long double c = std::cos(rotation);
    const long double s = std::sin(rotation);
    const long double alongSquare = static_cast<long double>(along) * along;
    const long double acrossSquare = static_cast<long double>(across) * across;
    // ((i c - j s) / along)^2 + ((j c + i s) / across)^2 with the square of j completed.
    const long double ofJ = s * s / alongSquare + c * c / acrossSquare;
    slope = -c * s * (1 / acrossSquare - 1 / alongSquare) / ofJ;
    curvature = static_cast<double>(ofJ);
    const long double unit = c * c + s * s;
    spread = static_cast<double>(unit * unit / (alongSquare * acrossSquare * ofJ));
}

void addStretchedGaussian(Density &density, ColumnStripe stripe, const StretchedGaussian &mark)
{
    const OffsetRange columns{std::max(-mark.reach, stripe.begin - mark.centerX),
                              std::min(mark.reach, stripe.end - mark.centerX) - 1};
    const OffsetRange rows{std::max(-mark.reach, -mark.centerY),
                           std::min(mark.reach, canvas::height - mark.centerY) - 1};
    if (columns.first > columns.last || rows.first > rows.last)
        return;
    const GaussianColumns values(mark, columns, rows);
    for (Offset i = columns.first; i <= columns.last; ++i)
        values.add(density.column(static_cast<int>(mark.centerX + i)) + (mark.centerY + rows.first), i);
}
