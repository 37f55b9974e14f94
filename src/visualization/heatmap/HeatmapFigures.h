// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataKind.h"

#include <array>
#include <optional>

/// What the colours of one heatmap on the absolute scale stand for.
struct HeatmapFigures {
    DataKind kind;
    double maximum; ///< of the last colour, in events
    /// Percent of the fixations in five classes of density, from the lowest; of fixations only.
    std::optional<std::array<double, 5>> classPercentages = std::nullopt;

    bool operator==(const HeatmapFigures &) const = default;
};
