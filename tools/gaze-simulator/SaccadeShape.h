// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Duration and speed of saccades by their amplitude, the "main sequence": Bahill, Clark & Stark (1975), Mathematical
/// Biosciences 24.
namespace saccade {

/// Duration = 2.2 ms per degree + 21 ms. Source: Carpenter (1988), Movements of the Eyes, 2nd edition, p. 72.
inline constexpr double durationPerDegreeMs = 2.2;
inline constexpr double shortestDurationMs = 21;

/// Peak speed of a minimum-jerk movement over its mean speed. Source: Hogan (1984), Journal of Neuroscience 4(11).
inline constexpr double peakToMeanSpeed = 15.0 / 8.0;

/// @param amplitudeDeg  >= 0.  @return ms.
double durationMs(double amplitudeDeg);

/// What the duration and the minimum-jerk shape give together.
/// @param amplitudeDeg  >= 0.  @return degrees per second.
double peakSpeedDegPerS(double amplitudeDeg);

/// Part of the way that is covered: the minimum-jerk course 10 f^3 - 15 f^4 + 6 f^5, of Hogan (1984).
/// @param timeFraction  part of the duration that has passed; below 0 counts as 0, above 1 as 1.  @return 0 to 1.
double progress(double timeFraction);

} // namespace saccade
