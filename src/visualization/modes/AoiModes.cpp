#include "visualization/modes/AoiModes.h"

#include "visualization/shapes/AoiOutlines.h"
#include "visualization/shapes/AoiTransitionShapes.h"

namespace {

using Qt::StringLiterals::operator""_L1;
constexpr AoiOptions outlineOptions = AoiOption::Names | AoiOption::Opacity | AoiOption::Border;
constexpr AoiOptions transitionOptions =
    AoiOption::Names | AoiOption::Opacity | AoiOption::TransitionType | AoiOption::Transitions;

constexpr AoiMode modes[] = {
    {"none"_L1},
    {"Outlined"_L1, aoiOutlineDrawing, outlineOptions},
    {"Transition Diagramm"_L1, aoiOutlineDrawing, outlineOptions}, // sic
    {"Transitions"_L1, aoiTransitionDrawing, transitionOptions},
    {"Time dependent transitions"_L1},
    {"Fixations over time"_L1},
    {"Transitions over time"_L1},
    {"FixationsRelativeToTimeWindow"_L1, aoiOutlineDrawing, outlineOptions},
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
