// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/heatmap/HeatmapOptions.h"

namespace {

template <class T>
T valueWithin(T lowest, T value, T highest, T otherwise)
{
    return lowest <= value && value <= highest ? value : otherwise;
}

} // namespace

NormalDistribution normalDistribution(const VisualizationParameters &parameters)
{
    return {.width = valueWithin(10, parameters.normalDistributionWidth, 200, 10),
            .sigma = valueWithin(10, parameters.normalDistributionSigma, 100, 10)};
}

int shadowAlpha(const VisualizationParameters &parameters)
{
    constexpr int opaque = 255;
    // The transparency decides: 255 less a value within 0 to 255 is within them, too.
    return opaque - valueWithin(0, parameters.shadowTransparency, opaque, 0);
}

double shadowPower(const VisualizationParameters &parameters)
{
    return valueWithin(0.1, parameters.power, 1.0, 1.0);
}
