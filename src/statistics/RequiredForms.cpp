// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/RequiredForms.h"

#include <cmath>
#include <limits>

namespace required {

double twoDecimals(double value)
{
    constexpr double hundred = 100.0;
    return std::trunc(value * hundred + 0.5) / hundred;
}

double perMinute(int count, double spanMs)
{
    constexpr double minuteMs = 60000.0;
    return (count / spanMs) * (minuteMs / spanMs);
}

double glanceProportion(int glances, qsizetype samples)
{
    if (samples == 0)
        return 0;
    constexpr double percentOfPercent = 10000.0;
    const qsizetype whole = glances / samples;
    return std::trunc(static_cast<double>(whole) * percentOfPercent + 0.5) / 100.0;
}

int fewestInWindow(const QList<qint64> &timesMs)
{
    constexpr qint64 firstEndMs = 3600000;
    constexpr qint64 latestMs = std::numeric_limits<qint64>::max();
    qint64 endMs = firstEndMs;
    int count = 0;
    int fewest = -1;
    for (const qint64 timeMs : timesMs) {
        while (timeMs > endMs) {
            if (count > 0 && (fewest < 0 || count < fewest))
                fewest = count;
            count = 0;
            endMs = endMs > latestMs / 2 ? latestMs : endMs * 2;
        }
        ++count;
    }
    return fewest;
}

} // namespace required
