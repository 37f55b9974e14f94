// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/SaccadeShape.h"

#include <algorithm>

namespace saccade {

double durationMs(double amplitudeDeg)
{
    return shortestDurationMs + durationPerDegreeMs * amplitudeDeg;
}

double peakSpeedDegPerS(double amplitudeDeg)
{
    constexpr double msPerS = 1000;
    return peakToMeanSpeed * amplitudeDeg / durationMs(amplitudeDeg) * msPerS;
}

double progress(double timeFraction)
{
    const double f = std::clamp(timeFraction, 0.0, 1.0);
    return f * f * f * (10 + f * (6 * f - 15));
}

} // namespace saccade
