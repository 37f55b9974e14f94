// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/heatmap/HeatmapScale.h"

namespace {

/// Two boxes of the panel serve shadow maps and heatmaps alike, and are stored as one. `power`, the exponent of a
/// shadow map, is a hundredth of what the heatmap's box "Absolut maxima" shows.
double absoluteMaximum(const VisualizationParameters &parameters)
{
    constexpr double sliderSteps = 100;
    return parameters.power * sliderSteps;
}

/// The threshold, percent or a length in shadow maps, is a number of events in heatmaps.
double eventThreshold(const VisualizationParameters &parameters)
{
    return parameters.heatmapThreashold;
}

AbsoluteScale countScale(double peak, double around, double gain, const VisualizationParameters &parameters)
{
    const double maximum = absoluteMaximum(parameters);
    const double limit = peak / around * eventThreshold(parameters);
    if (maximum > 0)
        return {gain, limit, peak / around * maximum, maximum};
    return {gain, limit, peak, around};
}

} // namespace

AbsoluteScale gazePointScale(double peak, int around, double perMinute, const VisualizationParameters &parameters)
{
    return countScale(peak, around, perMinute, parameters);
}

AbsoluteScale saccadeScale(double peak, int around, std::size_t events, const VisualizationParameters &parameters)
{
    constexpr double gain = 1;
    return countScale(peak, around == 0 && events >= 2 ? 1.0 : around, gain, parameters);
}

FixationScale fixationScale(double peak, int around, double perMinute, int examinations,
                            const VisualizationParameters &parameters)
{
    constexpr double hundred = 100;
    const double ratePerMinute = around * perMinute;
    const double rate = ratePerMinute == 0 ? 1.0 : ratePerMinute;
    // Percent of the rate at the peak, or a rate for each examination. The box of the maximum is stored as a hundredth
    // in both cases, so that its value comes back with a factor of 100 below.
    const double unit = parameters.percentMode ? rate / hundred : examinations;
    const double maximum = parameters.percentMode ? rate * parameters.power / hundred : parameters.power * unit;
    const double threshold =
        parameters.percentMode ? rate * eventThreshold(parameters) / hundred : eventThreshold(parameters) * unit;
    FixationScale scale;
    scale.top = (maximum == 0 ? 1.0 : maximum * hundred / rate) * peak;
    scale.lower = threshold / rate * peak;
    scale.colors.limit = peak / rate * threshold;
    scale.colors.unit = maximum > 0 ? peak / rate * (maximum * hundred) : peak;
    scale.colors.maximum = maximum > 0 ? maximum * hundred : rate;
    if (examinations > 0)
        scale.colors.maximum /= examinations;
    return scale;
}

ClassPercentages classPercentages(const Density &density, std::span<const FixationEvent> events, double top,
                                  double lower)
{
    constexpr double lowestOfClass[] = {0.2, 0.4, 0.6, 0.8}; // shares of the top, from the second class on
    ClassPercentages percentages{};
    for (const FixationEvent &event : events) {
        if (event.x < 0 || event.x >= canvas::width || event.y < 0 || event.y >= canvas::height)
            continue;
        const double value = density.at(event.x, event.y);
        if (!(value > lower))
            continue;
        std::size_t index = std::size(lowestOfClass);
        while (index > 0 && !(value >= lowestOfClass[index - 1] * top))
            --index;
        ++percentages[index];
    }
    for (double &percentage : percentages)
        percentage = percentage * 100 / static_cast<double>(events.size());
    return percentages;
}
