// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/AoiOptions.h"
#include "batch/CalculationOptions.h"
#include "batch/InputOptions.h"
#include "batch/ParameterOptions.h"
#include "batch/PictureOptions.h"
#include "batch/RunOptions.h"
#include "batch/StatisticsOptions.h"
#include "batch/TableOptions.h"

#include <variant>

/// The command line of the batch tool, checked as far as it can be without opening a file. Each part stands beside the
/// table of its options.
struct BatchOptions : InputOptions,
                      ParameterOptions,
                      CalculationOptions,
                      TableOptions,
                      StatisticsOptions,
                      AoiOptions,
                      PictureOptions,
                      RunOptions {
    bool operator==(const BatchOptions &) const = default;
};

/// Reads the arguments behind the program's name, from left to right, until the first error. A value follows its option
/// as the next argument or after "="; "--" ends the options. A second value for an option that takes one is
/// refused.
std::variant<BatchOptions, UsageError> parseBatchOptions(const QStringList &arguments);
