// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/OptionRow.h"
#include "import/ilmenau/MillimetreImport.h"
#include "model/TimeFrame.h"

/// What a run works on.
struct InputOptions {
    bool operator==(const InputOptions &) const = default;

    QStringList recordings; ///< never empty unless there is a recipe, or help or version is asked for
    QString recipeFile;     ///< its recordings are read where none are given
    QString background;
    std::optional<TimeFrame> time;  ///< else from 0 to the longest duration
    MillimetreStimulus millimetres; ///< of the recordings in millimetres
    QString layout;                 ///< of the tables among the recordings: "auto", a name or a file; else empty
};

/// What is wrong with the options as a whole, for the user.
std::optional<QString> inputComplaint(const InputOptions &options);

OptionGroup inputOptions();
