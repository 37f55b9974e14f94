// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/MeasureExport.h"

/// Writes the fixations, saccades, losses, clusters and visits of areas of the checked examinations as tidy tables, a
/// file for each kind with all eyes of the target: PREFIX_tidy_fixations.csv and so on. A kind of which there is
/// nothing has its header. The user is told where the files are.
///
/// UTF-8 without mark, comma, decimal point, one header. What is not defined is empty; docs/measures.md has the
/// columns.
ExportResult exportTidy(const DataModel &model, const ExportTarget &target, const MeasureForm &form);

/// Writes the samples of the frame in the same form: PREFIX_tidy_samples.csv.
ExportResult exportTidySamples(const DataModel &model, const ExportTarget &target, const MeasureForm &form);
