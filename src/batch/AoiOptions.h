#pragma once

#include "batch/OptionRow.h"

/// Where areas of interest come from and go.
struct AoiOptions {
    bool operator==(const AoiOptions &) const = default;

    QStringList aoiFiles; ///< of areas with the same name, those of later files count
};

OptionGroup aoiOptions();
