// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/ExportResult.h"
#include "export/TransitionTables.h"

class Log;

/// Which tables of transitions are to be written.
struct TransitionChoice {
    bool operator==(const TransitionChoice &) const = default;

    /// All that have data, with all contents; one kind of clusters is enough for both together.
    static TransitionChoice everything(const DataModel &model, EyeMode eyes);

    QList<TransitionFlavour> flavours; ///< of clusters, in the order in which they are written
    bool absolute = true;
    bool relative = true; ///< shares of all transitions, and of those of the row
    bool measures = true;
    bool areas = false; ///< the matrix of areas of interest
};

/// Writes tables of transitions, for clusters one for each content and each eye of the mode, and tells the user where,
/// in the log, too. A flavour without any cluster writes no file and says so; an eye without any has no file.
///
/// @param stem  what the paths begin with.
/// @param log  may be null.
ExportResult exportTransitions(const DataModel &model, const QString &stem, EyeMode eyes,
                               const TransitionChoice &choice, const Log *log);
