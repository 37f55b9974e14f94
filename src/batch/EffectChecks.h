// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/BatchOptions.h"

/// What was asked for and comes to nothing, a line each: an option whose calculation or method is not chosen, a result
/// that comes out nowhere, a recording that counts twice. One rule for all of it: the run warns, and goes on. To be
/// called when the settings are in the store.
QStringList optionsWithoutEffect(const BatchOptions &options);
