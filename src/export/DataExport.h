// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/ExportResult.h"
#include "export/ExportTarget.h"
#include "model/DataModel.h"

// Each export tells the user where its files are or, if any of them could not be written, which and why.

/// Writes the fixations of the checked examinations, a file for each eye of the target. Without a checked
/// examination no file is touched.
ExportResult exportFixations(const DataModel &model, const ExportTarget &target);

/// Writes the clusters of the checked examinations, a file for each of them and each eye of the target.
/// Examinations of one name share a file.
ExportResult exportClusters(const DataModel &model, const ExportTarget &target);

/// Writes the clusters of the pooled containers, a file for each eye of the target.
ExportResult exportCumulativeClusters(const DataModel &model, const ExportTarget &target);

/// Writes fixations, saccades and losses of the checked examinations in the order of time, a file for each eye of the
/// target. The events become the `eventRows` of the streams.
ExportResult exportEvents(DataModel &model, const ExportTarget &target);
