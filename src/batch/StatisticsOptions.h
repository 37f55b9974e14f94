// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/OptionRow.h"
#include "comparison/SimilarityMeasures.h"

/// Which tables of statistics a run writes.
struct StatisticsOptions {
    bool operator==(const StatisticsOptions &) const = default;

    QStringList transitions;                   ///< words of `transitionRows`; empty: all that have data
    QStringList transitionValues;              ///< words of `transitionValueRows`; empty: all
    QString groupBy = QStringLiteral("group"); ///< column of the table of examinations that names their groups
    SimilarityParameters similarity = {};
};

OptionGroup statisticsOptions();
