// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/heatmap/ColorTable.h"

#include "visualization/heatmap/GradientImage.h"
#include "visualization/parameters/AdjustableColorMap.h"

#include <span>

namespace {

constexpr int entries = 256;
constexpr int customMap = 5;

struct Stop {
    double position; ///< 0 to 1
    QRgb color;
};

constexpr Stop redGreen[] = {{0.0, qRgba(0, 255, 0, 0)},
                             {0.1, qRgba(0, 255, 0, 100)},
                             {0.33, qRgba(255, 255, 0, 130)},
                             {0.66, qRgba(255, 155, 0, 170)},
                             {1.0, qRgba(255, 0, 0, 200)}};
// Its last stop is red and is kept so; the textbook form would be blue.
constexpr Stop blue[] = {{0.0, qRgba(0, 255, 255, 0)},
                         {0.1, qRgba(0, 255, 255, 100)},
                         {0.33, qRgba(0, 155, 255, 130)},
                         {0.66, qRgba(0, 0, 255, 170)},
                         {1.0, qRgba(255, 0, 0, 200)}};
constexpr Stop focalPoint[] = {{0.0, qRgba(0, 0, 0, 255)}, {0.2, qRgba(0, 0, 0, 200)}, {0.4, qRgba(0, 0, 0, 150)},
                               {0.6, qRgba(0, 0, 0, 100)}, {0.8, qRgba(0, 0, 0, 50)},  {1.0, qRgba(0, 0, 0, 0)}};
constexpr Stop sunrise[] = {{0.0, qRgba(0, 0, 0, 0)},       {0.1, qRgba(255, 200, 0, 100)},
                            {0.3, qRgba(255, 150, 0, 120)}, {0.5, qRgba(255, 100, 0, 140)},
                            {0.8, qRgba(255, 0, 0, 160)},   {1.0, qRgba(255, 255, 0, 200)}};
constexpr Stop cloud[] = {{0.0, qRgba(0, 0, 0, 0)},         {0.2, qRgba(50, 50, 50, 100)},
                          {0.4, qRgba(100, 100, 100, 120)}, {0.6, qRgba(150, 150, 150, 140)},
                          {0.8, qRgba(200, 200, 200, 160)}, {1.0, qRgba(255, 255, 255, 200)}};
constexpr Stop unknownMap[] = {{0.0, qRgba(0, 255, 0, 0)},
                               {0.1, qRgba(0, 255, 0, 100)},
                               {0.66, qRgba(255, 255, 0, 100)},
                               {1.0, qRgba(255, 0, 0, 100)}};

constexpr std::span<const Stop> maps[] = {redGreen, blue, focalPoint, sunrise, cloud};

QGradientStops fixedStops(int map)
{
    const bool known = map >= 0 && static_cast<std::size_t>(map) < std::size(maps);
    QGradientStops stops;
    for (const Stop &stop : known ? maps[map] : unknownMap)
        stops << QGradientStop(stop.position, QColor::fromRgba(stop.color));
    return stops;
}

} // namespace

QImage colorTable(const VisualizationParameters &parameters)
{
    const int map = parameters.heatmapColormap;
    const QGradientStops stops = map == customMap ? gradientStops(parameters.colorMap) : fixedStops(map);
    return gradientImage(stops, {entries, 1});
}
