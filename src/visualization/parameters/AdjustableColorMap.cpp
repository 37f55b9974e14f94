// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/parameters/AdjustableColorMap.h"

#include "visualization/parameters/VisualizationParameters.h"

#include <algorithm>

void setAdjustableColorMap(VisualizationParameters &parameters, const AdjustableColorMap &map)
{
    for (std::size_t i = 0; i < map.stops.size(); ++i) {
        const AdjustableColorMap::Stop &stop = map.stops[i];
        const rows::StopRows &row = rows::colorMapStops[i];
        setParameter(parameters, row.active, stop.active);
        setParameter(parameters, row.transparency, stop.transparency);
        setParameter(parameters, row.start, stop.start);
        setParameter(parameters, row.color, stop.color);
    }
}

QGradientStops gradientStops(const AdjustableColorMap &map)
{
    constexpr int opaque = 255;
    QGradientStops stops;
    for (const AdjustableColorMap::Stop &stop : map.stops) {
        if (!stop.active)
            continue;
        QColor color = stop.color;
        color.setAlpha(std::clamp(stop.transparency, 0, opaque));
        stops << QGradientStop(stop.start > 0 ? std::min(stop.start, 1.0) : 0.0, color);
    }
    return stops;
}
