// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/OptionRow.h"

struct BatchOptions;

/// That a run would write over what it reads, or write one file twice; nothing where it would not. Files are told apart
/// by what they are, whatever the way to them is called. The pictures that set files name belong to what is read.
std::optional<UsageError> outputComplaint(const BatchOptions &options);
