// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/modes/AoiModes.h"

#include "visualization/charts/AoiCharts.h"
#include "visualization/charts/ChartKinds.h"
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

constexpr AoiOptions outlineOptions = AoiOption::Names | AoiOption::Opacity | AoiOption::Border;
constexpr AoiOptions transitionOptions = AoiOption::Names | AoiOption::Opacity | AoiOption::TransitionType |
                                         AoiOption::Transitions | AoiOption::Outlines | AoiOption::MixedColors;
constexpr AoiOptions chartOptions = AoiOption::Names | AoiOption::TimeWindow | AoiOption::LinesOnly;

Drawing outlinesAndShares(const DrawingContext &context)
{
    return aoiOutlineDrawing(context) + aoiChart<aoiFixationShareChart>(context);
}

constexpr AoiMode modes[] = {
    {"none"_L1},
    {"Outlined"_L1, aoiOutlineDrawing, outlineOptions},
    {"Transition Diagramm"_L1, aoiOutlineDrawing, outlineOptions | AoiOption::TransitionType}, // sic
    {"Transitions"_L1, aoiTransitionDrawing, transitionOptions},
    {"Time dependent transitions"_L1, aoiChart<aoiTransitionChart>, chartOptions | AoiOption::TransitionType},
    {"Fixations over time"_L1, aoiChart<aoiFixationChart>, chartOptions},
    {"Transitions over time"_L1, aoiChart<aoiTransitionPairChart>,
     chartOptions | AoiOption::TransitionType | AoiOption::MixedColors},
    {"FixationsRelativeToTimeWindow"_L1, outlinesAndShares, outlineOptions | chartOptions},
};

} // namespace

std::span<const AoiMode> aoiModes()
{
    return modes;
}

const AoiMode *aoiMode(int number)
{
    return number >= 0 && static_cast<std::size_t>(number) < std::size(modes) ? &modes[number] : nullptr;
}

Drawing aoiDrawing(const DrawingContext &context)
{
    const AoiMode *mode = aoiMode(context.areas.drawMode);
    return mode && mode->build ? mode->build(context) : Drawing();
}
