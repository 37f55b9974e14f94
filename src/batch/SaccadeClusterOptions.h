// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/SaccadeClusterParameters.h"
#include "visualization/shapes/SaccadeClusterShapes.h"

#include <QString>

#include <variant>

/// How a run clusters and draws saccades. In the window these values are not stored either: without any, a run uses
/// those that the panels have at the start of the program.
struct SaccadeClusterOptions {
    bool operator==(const SaccadeClusterOptions &) const = default;

    SaccadeClusterParameters parameters;
    SaccadeClusterStyle style;
    SaccadeClusterMode mode = SaccadeClusterMode::None;
};

/// The options with one of them set, or what is wrong with the assignment.
///
/// @param assignment  of the form NAME=VALUE, the value a whole number within the range of the panel, or a word.
std::variant<SaccadeClusterOptions, QString> withAssignment(const SaccadeClusterOptions &options,
                                                            const QString &assignment);

/// All options as assignments with commas in between.
QString assignments(const SaccadeClusterOptions &options);
