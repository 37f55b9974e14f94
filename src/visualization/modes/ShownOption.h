// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

#include <optional>

/// One option of drawing, or a group of them, that a panel shows or hides as a whole.
enum class DrawingOption {
    Size,
    StepSize,
    DurationDependent,
    ArrowTip,
    FillOpacity,
    BorderWidth,
    BorderType,
    Colors,
    ColorLeft,
    ColorRight,
    NameColor,
    ClusterShare,
    GazePoints,
    OriginalSize,
    TransitionsOnly,
    LineSizeAbsolute,
    TransitionType,
    Colormap,
    KernelWidth,
    KernelSigma,
    Power,
    ShadowTransparency,
    Threshold,
    HeatmapScale,
    FixationClasses,
    PercentMode,
    AdjustableColormap,
    AngleStar,
    StarBins,
    QuantityArcs,
    SolidArcs,
    DurationArcs,
    LengthArcs,
    GaussianSaccades,
    FixationTimeDependent,
    LengthDependent,
    Count
};

/// Whole numbers that a spin box takes.
struct OptionRange {
    int minimum = 0;
    int maximum = 0;
    int step = 1;

    bool operator==(const OptionRange &) const = default;
};

/// How an option looks in a mode. What the mode leaves open is as in `plainOption`.
struct ShownOption {
    DrawingOption option;
    QString text{};                     ///< label, or caption of the button
    QString suffix{};                   ///< behind the number
    std::optional<OptionRange> range{}; ///< none where the form's own holds
    std::optional<int> start{};         ///< value that the number gets when the user enters the mode

    bool operator==(const ShownOption &) const = default;
};

/// The look of an option before a mode changes it.
ShownOption plainOption(DrawingOption option);
