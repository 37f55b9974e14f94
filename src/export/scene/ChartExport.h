// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/selection/DrawingContext.h"

#include <QString>

#include <optional>

struct ChartKind;

/// Writes a chart of what the context shows: as a table if the name ends in ".csv", else as a picture of the chart
/// alone on white ground, with the endings of `exportScene`.
///
/// @return what went wrong, in words for the user; nothing if the file is written.
std::optional<QString> exportChart(const ChartKind &kind, const DrawingContext &context, const QString &path);
