// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QGradient>

#include <array>

struct VisualizationParameters;

/// The colour map that the user puts together: four colours, each with the share of the maximum at which it stands.
/// Between them the colours run into one another.
struct AdjustableColorMap {
    static constexpr int stopCount = 4;

    struct Stop {
        bool operator==(const Stop &) const = default;

        bool active = false;  ///< stops that are not active take no part
        int transparency = 0; ///< alpha, 0 (nothing to be seen) to 255 (opaque)
        double start = 0;     ///< share of the maximum, 0 to 1
        QColor color;
    };

    bool operator==(const AdjustableColorMap &) const = default;

    std::array<Stop, stopCount> stops;
};

/// Puts the map into record and store.
void setAdjustableColorMap(VisualizationParameters &parameters, const AdjustableColorMap &map);

/// The active stops, in the order of the map. A start that is no share, 0 to 1, counts as the nearest one.
QGradientStops gradientStops(const AdjustableColorMap &map);
