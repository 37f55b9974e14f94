// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataModel.h"

#include <QMap>

/// What a file of areas of interest gave to a run.
struct AoiInput {
    bool used = false;            ///< it holds at least one area
    bool complete = false;        ///< false if the file was not read to its end, or holds no area
    QMap<QString, qint64> counts; ///< "areas" and "lines that are no vertex"
};

/// Reads the areas of the file into the model.
///
/// The reader's own messages speak to somebody who has just chosen the file. A run reads many files and nobody watches,
/// so warnings follow that name the file, the line and the remedy.
AoiInput loadAoiFile(const QString &path, DataModel &model);
