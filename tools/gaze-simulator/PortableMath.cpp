// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/PortableMath.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace portable {

namespace {

/// 1 + x f(1) (1 + x f(2) (1 + ...)), innermost first: x f(i) is the ratio of term i to term i - 1.
template <int terms, class Factor>
double nestedSeries(double x, Factor factor)
{
    double sum = 1;
    for (int i = terms; i >= 1; --i)
        sum = 1 + sum * x * factor(i);
    return sum;
}

} // namespace

double naturalLogarithm(double x)
{
    int exponent = 0;
    double mantissa = std::frexp(x, &exponent);
    if (mantissa < std::numbers::sqrt2 / 2) {
        mantissa *= 2;
        --exponent;
    }
    // ln m = 2 artanh s = 2 s (1 + s^2/3 + s^4/5 + ...), and s^2 < 0.0295
    const double s = (mantissa - 1) / (mantissa + 1);
    const double series = nestedSeries<11>(s * s, [](int i) { return (2.0 * i - 1) / (2.0 * i + 1); });
    return 2 * s * series + exponent * std::numbers::ln2;
}

double exponential(double x)
{
    constexpr double limit = 700;
    // ln 2 in two parts, the first with trailing zeros, so that the remainder stays exact
    constexpr double ln2Leading = 0x1.62e42fee00000p-1;
    constexpr double ln2Trailing = 0x1.a39ef35793c76p-33;
    const double clamped = std::clamp(x, -limit, limit);
    const double power = std::floor(clamped / std::numbers::ln2 + 0.5);
    const double rest = (clamped - power * ln2Leading) - power * ln2Trailing;
    return std::ldexp(nestedSeries<14>(rest, [](int i) { return 1.0 / i; }), static_cast<int>(power));
}

double cosine(double angle)
{
    // cos a = 1 - 2 sin^2(a / 2), with the series of the sine up to a quarter turn
    const double half = angle / 2;
    const double sine = half * nestedSeries<11>(-half * half, [](int i) { return 1.0 / (2.0 * i * (2.0 * i + 1)); });
    return 1 - 2 * sine * sine;
}

} // namespace portable
