// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/modes/ShownOption.h"

#include <algorithm>

namespace {

using Option = DrawingOption;

/// The names and ranges of options in the state that every mode starts from.
QList<ShownOption> plainOptions()
{
    return {
        {Option::Size, QStringLiteral("Sizefactor")},
        {Option::StepSize, QStringLiteral("Step size"), QString(), OptionRange{1, 1000}},
        {Option::ColorLeft, QStringLiteral("left")},
        {Option::ColorRight, QStringLiteral("right")},
        {Option::Colors, QStringLiteral("dominant")},
        {Option::GazePoints, QStringLiteral("Show Gazepoints")},
        {Option::OriginalSize, QStringLiteral("Original size")},
        {Option::TransitionsOnly, QStringLiteral("Transitions only")},
        {Option::LineSizeAbsolute, QStringLiteral("Line size absolute")},
        {Option::Power, QStringLiteral("Shadow power"), QStringLiteral(" /100 -> exponent"), OptionRange{10, 100}},
        {Option::Threshold, QStringLiteral("Threshold"), QString(), OptionRange{0, 10'000'000}},
        {Option::AngleStar, QStringLiteral("Anglestar")},
        {Option::LengthArcs, QStringLiteral("Length")},
    };
}

} // namespace

ShownOption plainOption(DrawingOption option)
{
    const QList<ShownOption> plain = plainOptions();
    const auto found = std::find_if(plain.cbegin(), plain.cend(),
                                    [option](const ShownOption &shown) { return shown.option == option; });
    return found == plain.cend() ? ShownOption{option} : *found;
}
