// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SideBySide.h"
#include "export/ExportResult.h"
#include "export/ExportTarget.h"

#include <optional>

/// What the tidy tables need beside the model.
struct MeasureForm {
    /// Size of a pixel as part of the distance from eye to picture; nothing: not known, angles stay empty.
    std::optional<double> pixelPerDistance;
    int threads = coreCount(); ///< the tables do not depend on it
};

/// The group of an examination by the property of this name; empty for none. Membership chosen in the window stands
/// above the set file's entry.
QString groupOf(const Examination &examination, const QString &column);

/// Writes a row for each checked examination, eye and area of interest, and tells the user where.
ExportResult exportAoiMeasures(const DataModel &model, const ExportTarget &target, const MeasureForm &form = {});

/// Writes a row for each checked examination and eye.
ExportResult exportScanpathMeasures(const DataModel &model, const ExportTarget &target, const MeasureForm &form);

/// Why there is nothing to compare.
QString noGroupsText(const DataModel &model);

/// Writes a row for each eye, measure, area and group, with the comparison where there are two groups. Examinations
/// without a group take no part; without any group nothing is written, and the user is told.
ExportResult exportGroupComparison(const DataModel &model, const ExportTarget &target, const MeasureForm &form);

/// The rows of that table with its header as the first, for showing; the header alone without groups.
QList<QStringList> groupComparisonRows(const DataModel &model, EyeMode eyes, const MeasureForm &form);
