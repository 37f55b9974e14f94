// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/modes/ShownOption.h"

#include <initializer_list>

/// Options that several modes have in common.
namespace modeoptions {

using Options = QList<ShownOption>;

/// The options as they are before any mode.
Options plain(std::initializer_list<DrawingOption> options);
ShownOption named(DrawingOption option, const char *text, const char *suffix = "");
ShownOption threshold(const char *suffix);
/// The same where another mode counts in other units, so that its number would be nonsense.
ShownOption thresholdFrom0(const char *suffix);

Options allColors();
/// Captions of the colours of the dominant, left and right eye; those that are not given are not shown.
Options colorsNamed(const char *dominant, const char *left = nullptr, const char *right = nullptr);

Options shapes();
Options circles();
Options clusterShapes();
Options transitions();

/// A heatmap whose maximum and threshold are counts of the data. Both start anew at 0.
Options countHeatmap(const char *maximumSuffix, const char *thresholdSuffix);
/// A heatmap of fixations or clusters. Counts and percentages are so different that both numbers start anew at 0.
Options shareHeatmap(const char *countSuffix, bool percent);
/// Without the threshold.
Options shadowMap();

Options chart();
ShownOption chartGroups();

} // namespace modeoptions
