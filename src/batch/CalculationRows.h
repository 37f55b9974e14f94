// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/ClusterParameters.h"

#include <QLatin1StringView>
#include <QList>

class DataModel;
struct BatchOptions;
struct FixationCalculationOutcome;
struct ReportRecords;
struct RunState;

/// A word of `--calculate` and what it does. A new calculation is a row in the list of its subject.
struct CalculationRow {
    QLatin1StringView word;
    void (*run)(RunState &);      ///< called with at least one recording
    QLatin1StringView needs = {}; ///< the calculation without which it finds nothing
};

inline constexpr QLatin1StringView fixationWord("fixations");
inline constexpr QLatin1StringView clusterWord("clusters");
inline constexpr QLatin1StringView cumulativeClusterWord("cumulative-clusters");
inline constexpr QLatin1StringView saccadeClusterWord("saccade-clusters");

/// The calculations that find fixations and clusters, in the order in which they run. Areas of interest are generated
/// after them, and all statistics come last.
QList<CalculationRow> findingCalculations();

/// All calculations in the order in which they run.
QList<CalculationRow> calculationRows();

/// Tells what came of a detection: a line for each recording, with its name, and one for each warning.
void tellDetection(const FixationCalculationOutcome &outcome);

/// Clusters the fixations of all recordings together, and tells why there are none.
void poolClusters(DataModel &model, const ClusterParameters &parameters);

/// The parameters of the calculations of a run, for what stands below its pictures.
ReportRecords reportRecords(const BatchOptions &options);
