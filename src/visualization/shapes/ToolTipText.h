// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/selection/ClusterSelection.h"

#include <QLatin1StringView>

/// Recording and eye of a stream, a line each.
QString sourceLines(const ExaminationEye &stream);
/// The same for the clusters of a source.
QString sourceLines(ClusterSource source, const ExaminationEye &stream);

/// The line "Axis ratio: " with its line end.
QString axisRatioLine(const ScanpathSection &section);

/// What the pointer is told about a fixation, or about the saccade that leads to it: number, times and mean, a line
/// each.
///
/// @param title  name of the number, such as "Fixation ID".
/// @param shapeLine  what stands before the mean, with its line end.
QString fixationToolTip(QLatin1StringView title, qsizetype index, const Fixation &fixation,
                        const QString &shapeLine = {});
