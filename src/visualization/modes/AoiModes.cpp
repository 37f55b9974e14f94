// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/modes/AoiModes.h"

#include "visualization/charts/AoiCharts.h"
#include "visualization/charts/ChartKinds.h"
#include "visualization/modes/StoredMode.h"
#include "visualization/shapes/AoiOutlines.h"
#include "visualization/shapes/AoiTransitionShapes.h"

namespace {

using Qt::StringLiterals::operator""_L1;

/// Without areas nothing is drawn.
template <Chart (*Build)(const DrawingContext &)>
Drawing aoiChart(const DrawingContext &context)
{
    return context.model.checkedAois().isEmpty() ? Drawing() : drawnChart<Build>(context);
}

constexpr AoiModeOptions outlineOptions = AoiModeOption::Names | AoiModeOption::Opacity | AoiModeOption::Border;
constexpr AoiModeOptions transitionOptions = AoiModeOption::Names | AoiModeOption::Opacity |
                                             AoiModeOption::TransitionType | AoiModeOption::Transitions |
                                             AoiModeOption::Outlines | AoiModeOption::MixedColors;
constexpr AoiModeOptions chartOptions = AoiModeOption::Names | AoiModeOption::TimeWindow | AoiModeOption::LinesOnly;

Drawing outlinesAndShares(const DrawingContext &context)
{
    return aoiOutlineDrawing(context) + aoiChart<aoiFixationShareChart>(context);
}

constexpr AoiMode modes[] = {
    {"none"_L1},
    {"Outlined"_L1, aoiOutlineDrawing, outlineOptions},
    {"Transition Diagramm"_L1, // sic
     aoiOutlineDrawing, outlineOptions | AoiModeOption::TransitionType, "Transition diagram(external)"_L1},
    {"Transitions"_L1, aoiTransitionDrawing, transitionOptions, "Transition diagram(internally)"_L1},
    {"Time dependent transitions"_L1, aoiChart<aoiTransitionChart>, chartOptions | AoiModeOption::TransitionType},
    {"Fixations over time"_L1, aoiChart<aoiFixationChart>, chartOptions},
    {"Transitions over time"_L1, aoiChart<aoiTransitionPairChart>,
     chartOptions | AoiModeOption::TransitionType | AoiModeOption::MixedColors},
    {"FixationsRelativeToTimeWindow"_L1, outlinesAndShares, outlineOptions | chartOptions},
};

} // namespace

std::span<const AoiMode> aoiModes()
{
    return modes;
}

const AoiMode *aoiMode(int number)
{
    return modeAt(aoiModes(), number);
}

Drawing aoiDrawing(const DrawingContext &context)
{
    const AoiMode *mode = aoiMode(context.areas.drawMode);
    return mode && mode->build ? mode->build(context) : Drawing();
}
