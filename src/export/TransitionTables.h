// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataModel.h"
#include "statistics/ClusterTransitions.h"

/// Whose clusters a table of transitions has.
enum class TransitionFlavour {
    Own,          ///< those of each recording, a matrix for each of them
    Pooled,       ///< those of the fixations of all recordings, one matrix
    OwnAndPooled, ///< the pooled ones and those of each checked recording as one set, one matrix
};

/// One matrix with the line that says whose it is; empty for a pooled one.
struct TransitionBlock {
    QString title;
    ClusterTransitions transitions;
};

/// The matrices of a flavour and a stream in the time frame of the model; none without clusters. Fixations belong to
/// the first cluster with a fixation of their mean and first time; the length of a transition begins at the first
/// fixation of the stay that is left.
QList<TransitionBlock> transitionBlocks(const DataModel &model, TransitionFlavour flavour, Eye eye);

/// What stands in a table. Each cell, also the last of a row, ends with ";"; after the last row of a matrix two empty
/// lines follow. Shares and measures have ten decimals and a decimal comma; without transitions a share is "nan".
enum class TransitionContent { Counts, ShareOfAll, ShareOfRow, Measures };

QString transitionTable(const QList<TransitionBlock> &blocks, TransitionContent content);

/// Whether there can be transitions between areas: there are areas and fixations.
bool hasAreasAndFixations(const DataModel &model);

/// Transitions between all areas of interest, per minute and checked examination: names in the first line, a row for
/// each area that is left.
QString aoiTransitionTable(const DataModel &model, EyeMode eyes);
