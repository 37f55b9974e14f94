// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/heatmap/HeatmapLook.h"
#include "visualization/modes/ShownOption.h"
#include "visualization/modes/StoredMode.h"
#include "visualization/selection/DataSelection.h"
#include "visualization/selection/DrawingContext.h"
#include "visualization/shapes/Drawing.h"

#include <QLatin1StringView>

#include <span>
#include <variant>

/// Draws one stream of an examination.
using StreamBuild = Drawing (*)(const ExaminationEye &, const DrawingContext &);
/// The same where streams have shapes in common, which are drawn once.
struct SharedBuild {
    StreamBuild build;

    bool operator==(const SharedBuild &) const = default;
};
/// Draws one stream of each checked examination, see `passesToDraw`.
using PassBuild = Drawing (*)(const QList<ExaminationEye> &, const DrawingContext &);
/// Draws all streams of all checked examinations as one.
using PooledBuild = Drawing (*)(const DrawingContext &);

/// What a mode draws. A heatmap is that of the kind to which the mode belongs. What comes earlier in this list lies
/// below what comes later.
using ModeBuild = std::variant<std::monostate, StreamBuild, SharedBuild, PassBuild, PooledBuild, HeatmapLook>;

/// How reports call what was drawn; a null word leaves the text of an earlier drawing as it was.
struct DrawnWords {
    QLatin1StringView own{};
    QLatin1StringView cumulative{}; ///< for the clusters of several examinations
};

/// What the calculation report tells of a mode; null where nothing is drawn.
struct ModeReport {
    QLatin1StringView word{};
    QString (*lines)(const VisualizationParameters &) = nullptr; ///< what follows the word
};

/// One way of drawing what a record describes; all that is known of it. The place in its table is the stored number of
/// the mode.
struct DataMode {
    QLatin1StringView name; ///< as the panel's combo box shows it
    ModeBuild build{};      ///< empty where nothing is drawn
    DrawnWords words{};
    QList<ShownOption> (*options)(const VisualizationParameters &) = nullptr; ///< what the panel shows; null: nothing
    ModeReport report{};
};

/// The modes of a kind of data.
std::span<const DataMode> drawingModes(DataKind kind);

/// What the record's mode draws of the kind.
ModeBuild buildOf(DataKind kind, const VisualizationParameters &record);
