// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/modes/ModeLayout.h"

#include "visualization/modes/DrawingModes.h"
#include "visualization/modes/VisualizationKinds.h"

#include <algorithm>

namespace {

constexpr int customColormap = 5;

const DataMode *modeOf(const VisualizationParameters &parameters)
{
    return modeAt(drawingModes(visualizationKindOf(parameters.settingsName)), parameters.visualizationMode);
}

bool shows(const QList<ShownOption> &layout, DrawingOption option)
{
    return std::any_of(layout.cbegin(), layout.cend(),
                       [option](const ShownOption &shown) { return shown.option == option; });
}

} // namespace

QList<ShownOption> modeLayout(const VisualizationParameters &parameters)
{
    const DataMode *mode = modeOf(parameters);
    if (!mode || !mode->options)
        return {};
    QList<ShownOption> layout = mode->options(parameters);
    if (shows(layout, DrawingOption::Colormap) && parameters.heatmapColormap == customColormap)
        layout << plainOption(DrawingOption::AdjustableColormap);
    return layout;
}

bool isShadowMode(const VisualizationParameters &parameters)
{
    const DataMode *mode = modeOf(parameters);
    return mode && mode->build == ModeBuild(HeatmapLook::ShadowMap);
}
