#pragma once

#include "base/SideBySide.h"
#include "batch/BatchOptions.h"
#include "batch/RunJournal.h"
#include "clustering/SaccadeClusterModel.h"
#include "model/DataModel.h"

/// What the steps of a run share: what was asked for, the data, and what became of it.
struct RunState {
    /// How many recordings are worked on side by side.
    int threads() const { return options.jobs.value_or(coreCount()); }

    const BatchOptions &options; ///< const: threads read it, and a non-const access would copy shared lists
    RunJournal &journal;
    DataModel model{};
    SaccadeClusterModel saccadeClusters{};
};
