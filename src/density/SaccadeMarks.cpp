// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/SaccadeMarks.h"

#include <cmath>

std::vector<SaccadeMark> saccadeMarks(std::span<const SaccadeEvent> events)
{
    std::vector<SaccadeMark> marks;
    for (std::size_t i = 1; i < events.size(); ++i) {
        if (!events[i].startsWalk)
            marks.push_back({events[i - 1], events[i]});
    }
    return marks;
}

double markFactor(const SaccadeMark &mark, double lengthPx, const SaccadeMarkStyle &style)
{
    double weight = style.lengthDependent ? lengthPx + 1 : 1.0;
    if (style.durationDependent)
        weight += static_cast<double>(mark.from.durationMs) + mark.to.durationMs;
    return std::sqrt(weight);
}
