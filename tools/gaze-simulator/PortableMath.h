// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Elementary functions whose last bit does not depend on the C library or the processor: only additions,
/// multiplications, divisions and exact scaling. A recording made from a seed is the same file on every machine.
namespace portable {

/// @param x  > 0 and finite. Relative error below 1e-15, absolute near x = 1.
double naturalLogarithm(double x);

/// Relative error below 1e-15. Arguments below -700 or above 700 count as these.
double exponential(double x);

/// @param angle  radians in [0, pi]. Absolute error below 1e-15.
double cosine(double angle);

} // namespace portable
