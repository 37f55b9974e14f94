#pragma once

#include <array>
#include <optional>

/// The kinds of data that have heatmaps; the values are those of the export buttons.
enum class HeatmapKind { GazePoints = 0, Fixations = 1, Clusters = 2, Saccades = 3 };

/// What the colours of one heatmap on the absolute scale stand for.
struct HeatmapFigures {
    HeatmapKind kind;
    double maximum; ///< of the last colour, in events
    /// Percent of the fixations in five classes of density, from the lowest; of fixations only.
    std::optional<std::array<double, 5>> classPercentages = std::nullopt;

    bool operator==(const HeatmapFigures &) const = default;
};
