// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/OptionRow.h"

/// How a run goes about its work; none of it shapes a result.
struct RunOptions {
    bool operator==(const RunOptions &) const = default;

    QString reportFile;
    QString methodsFile;     ///< ends with .md or .txt
    std::optional<int> jobs; ///< at least 1; else as many as there are cores
    bool quiet = false;
    bool help = false;    ///< to be answered before anything else; what follows it was not read
    bool version = false; ///< the same
    bool keys = false;    ///< the same
};

OptionGroup runOptions();
