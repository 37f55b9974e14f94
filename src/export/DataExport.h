#pragma once

#include "export/ExportTarget.h"
#include "model/DataModel.h"

/// What became of the files of one export. The user is not told about failed ones; a program without a window can.
struct ExportResult {
    QStringList written; ///< complete files, in the order of their first opening
    QStringList failed;  ///< files that could not be opened, or written to the end
};

/// Writes the fixations of the checked examinations, a file for each eye of the target, and tells the user where.
/// Without a checked examination no file is touched.
ExportResult exportFixations(const DataModel &model, const ExportTarget &target);

/// Writes the clusters of the checked examinations, a file for each of them and each eye of the target, and tells the
/// user where. Examinations of one name share a file.
ExportResult exportClusters(const DataModel &model, const ExportTarget &target);

/// Writes the clusters of the pooled containers, a file for each eye of the target, and tells the user where.
ExportResult exportCumulativeClusters(const DataModel &model, const ExportTarget &target);

/// Writes fixations, saccades and losses of the checked examinations in the order of time, a file for each eye of the
/// target, and tells the user where. The events become the `eventRows` of the streams.
ExportResult exportEvents(DataModel &model, const ExportTarget &target);
