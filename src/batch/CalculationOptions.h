// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/OptionRow.h"
#include "batch/SaccadeClusterOptions.h"

/// What a run calculates.
struct CalculationOptions {
    bool operator==(const CalculationOptions &) const = default;

    QStringList calculations;           ///< words of `calculationRows`, each once, in the order in which they run
    int overlapFixations = 1;           ///< minimum of the overlap method of clusters, 1 to 500
    std::optional<int> overlapOutliers; ///< 0 to 500; else the pooled recordings are not told apart
    SaccadeClusterOptions saccadeClusters;
};

OptionGroup calculationOptions();
