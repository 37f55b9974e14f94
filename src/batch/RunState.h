// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SideBySide.h"
#include "batch/BatchOptions.h"
#include "batch/RunJournal.h"
#include "clustering/ClusterParameters.h"
#include "clustering/SaccadeClusterModel.h"
#include "detection/FixationCalculationParameters.h"
#include "model/DataModel.h"

/// The parameters of the last calculation of each kind.
struct CalculationsDone {
    std::optional<FixationCalculationParameters> detector;
    std::optional<ClusterParameters> clusters;
    std::optional<ClusterParameters> pooledClusters;
};

/// What the steps of a run share: what was asked for, the data, and what became of it.
struct RunState {
    /// How many recordings are worked on side by side.
    int threads() const { return options.jobs.value_or(coreCount()); }

    const BatchOptions &options; ///< const: threads read it, and a non-const access would copy shared lists
    RunJournal &journal;
    DataModel model{};
    CalculationsDone done{};
    SaccadeClusterModel saccadeClusters{};
};
