// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/StatisticsOptions.h"
#include "export/TransitionExport.h"

/// A word of `--transitions` or `--transition-values` and what it adds to a choice.
struct TransitionRow {
    QLatin1StringView word;
    void (*add)(TransitionChoice &);
};

QList<TransitionRow> transitionRows();
QList<TransitionRow> transitionValueRows();

/// What the options choose of the tables of transitions.
TransitionChoice chosenTransitions(const StatisticsOptions &options, const DataModel &model, EyeMode eyes);
