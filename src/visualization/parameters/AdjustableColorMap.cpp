#include "visualization/parameters/AdjustableColorMap.h"

#include "visualization/parameters/VisualizationParameters.h"

#include <algorithm>

namespace {

/// The rows of one stop: a record has four plain members of each kind, as the store has four keys.
struct StopRows {
    const Parameter<VisualizationParameters, bool> &active;
    const Parameter<VisualizationParameters, int> &transparency;
    const Parameter<VisualizationParameters, double> &start;
    const Parameter<VisualizationParameters, QColor> &color;
};

constexpr StopRows stopRows[AdjustableColorMap::stopCount] = {
    {rows::acmActive1, rows::acmTransparency1, rows::acmStart1, rows::acmColor1},
    {rows::acmActive2, rows::acmTransparency2, rows::acmStart2, rows::acmColor2},
    {rows::acmActive3, rows::acmTransparency3, rows::acmStart3, rows::acmColor3},
    {rows::acmActive4, rows::acmTransparency4, rows::acmStart4, rows::acmColor4},
};

} // namespace

AdjustableColorMap adjustableColorMap(const VisualizationParameters &parameters)
{
    AdjustableColorMap map;
    std::transform(std::begin(stopRows), std::end(stopRows), map.stops.begin(), [&](const StopRows &stop) {
        return AdjustableColorMap::Stop{parameters.*stop.active.member, parameters.*stop.transparency.member,
                                        parameters.*stop.start.member, parameters.*stop.color.member};
    });
    return map;
}

void setAdjustableColorMap(VisualizationParameters &parameters, const AdjustableColorMap &map)
{
    for (std::size_t i = 0; i < map.stops.size(); ++i) {
        setParameter(parameters, stopRows[i].active, map.stops[i].active);
        setParameter(parameters, stopRows[i].transparency, map.stops[i].transparency);
        setParameter(parameters, stopRows[i].start, map.stops[i].start);
        setParameter(parameters, stopRows[i].color, map.stops[i].color);
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
