// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/SymmetricMatrix.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

struct Rotation {
    double cosine;
    double sine;

    void apply(double &first, double &second) const
    {
        const double before = first;
        first = cosine * before - sine * second;
        second = sine * before + cosine * second;
    }
};

/// The rotation that takes (x, y) to (r, 0). It divides the smaller by the larger: the square cannot overflow.
Rotation rotationOnto(double x, double y)
{
    if (y == 0)
        return {x < 0 ? -1.0 : 1.0, 0};
    if (x == 0)
        return {0, y < 0 ? 1.0 : -1.0};
    const auto root = [](double quotient) { return std::sqrt(1 + quotient * quotient); };
    if (std::abs(x) > std::abs(y)) {
        const double quotient = y / x;
        const double cosine = 1 / std::copysign(root(quotient), x);
        return {cosine, -quotient * cosine};
    }
    const double quotient = x / y;
    const double sine = -1 / std::copysign(root(quotient), y);
    return {-quotient * sine, sine};
}

/// sqrt(a * a + b * b) for numbers up to 1.
double length(double a, double b)
{
    const double longer = std::max(std::abs(a), std::abs(b));
    if (longer == 0)
        return 0;
    const double quotient = std::min(std::abs(a), std::abs(b)) / longer;
    return longer * std::sqrt(1 + quotient * quotient);
}

/// The eigenvalue that is nearer to yy.
double wilkinsonShift(const SymmetricMatrix &m)
{
    const double half = (m.xx - m.yy) * 0.5;
    if (half == 0)
        return m.yy - std::abs(m.xy);
    const double divisor = half + std::copysign(length(half, m.xy), half);
    const double square = m.xy * m.xy;
    return square == 0 ? m.yy - m.xy / (divisor / m.xy) : m.yy - square / divisor;
}

/// Whether what stands beside the diagonal no longer counts.
bool isDiagonal(const SymmetricMatrix &m)
{
    using Limits = std::numeric_limits<double>;
    if (std::abs(m.xy) < Limits::min())
        return true;
    const double inEpsilons = m.xy / Limits::epsilon();
    return inEpsilons * inEpsilons <= std::abs(m.xx) + std::abs(m.yy);
}

SymmetricMatrix rotated(const SymmetricMatrix &m, const Rotation &by)
{
    const double c = by.cosine;
    const double s = by.sine;
    const double first = s * m.xx + c * m.xy;
    const double second = s * m.xy + c * m.yy;
    return {c * (c * m.xx - s * m.xy) - s * (c * m.xy - s * m.yy), c * first - s * second, s * first + c * second};
}

} // namespace

std::array<EigenPair, 2> eigenPairs(const SymmetricMatrix &matrix)
{
    constexpr int mostSteps = 60; // two are enough; a matrix that is not of numbers must not go on for ever
    const double largest = std::max({std::abs(matrix.xx), std::abs(matrix.xy), std::abs(matrix.yy)});
    const double scale = largest > 0 ? largest : 1;
    SymmetricMatrix m{matrix.xx / scale, matrix.xy / scale, matrix.yy / scale};
    EigenPair first{0, 1, 0};
    EigenPair second{0, 0, 1};
    for (int step = 0; step < mostSteps && !isDiagonal(m); ++step) {
        const Rotation rotation = rotationOnto(m.xx - wilkinsonShift(m), m.xy);
        m = rotated(m, rotation);
        rotation.apply(first.x, second.x);
        rotation.apply(first.y, second.y);
    }
    first.value = m.xx * scale;
    second.value = m.yy * scale;
    if (m.yy < m.xx)
        return {first, second};
    return {second, first};
}
