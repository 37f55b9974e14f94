// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "comparison/ScanpathSimilarity.h"
#include "export/ExportResult.h"
#include "export/ExportTarget.h"

/// Writes a row for each pair and measure and, where recordings have groups, a second table with the means within and
/// between groups; tells the user where. Without a pair nothing is written, and the user is told.
///
/// @param threads  at least 1; the same tables with any number.
ExportResult exportScanpathSimilarity(const std::vector<SimilaritySet> &sets, const ExportTarget &target, int threads);

/// The rows of the table of groups with its header as the first, for showing; the header alone without groups.
QList<QStringList> groupSimilarityRows(const std::vector<SimilaritySet> &sets, int threads);
