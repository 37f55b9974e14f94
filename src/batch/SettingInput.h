// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/BatchOptions.h"

/// Puts the values of a settings file into the store.
///
/// The user is warned of keys that the store does not have, and of lines that are no setting.
/// @return what keeps the run from starting: the file cannot be read, none of its lines sets a key, a line names a key
///         and is no setting, or a value is none for its key; with the number of the line.
std::optional<UsageError> applySettingsFile(const QString &path);

/// Puts the values of `--set` into the store.
///
/// @return what keeps the run from starting: a key that the store does not have, or a value that is none for its key.
std::optional<UsageError> applySettings(const QList<BatchOptions::Setting> &settings);
