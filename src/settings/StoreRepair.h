// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTemporaryDir>

#include <memory>
#include <optional>

/// What can be wrong with the file of the store.
enum class StoreState {
    Usable,
    Damaged,    ///< no text of settings, or no file at all under this name
    Unreadable, ///< no permission to read
    Unwritable, ///< the file or its folder cannot be written
};

/// Looks at the file, without changing it; its folder is made if missing. A missing file is usable where one can be
/// written.
StoreState examineStore(const QString &file);

/// Sees to it, before anything reads the store, that the program can work with it.
///
/// What is damaged or cannot be read is set aside beside the store, as "<file>.damaged"; an earlier one is never
/// overwritten, and the program begins a new store. Where the store cannot be written, or not be set aside, this run
/// works on a private copy. The user is told which file it is and what to do.
///
/// @return the folder of the private copy, to be held until the end of the program; null where the store is used.
[[nodiscard]] std::unique_ptr<QTemporaryDir> prepareStore();

/// The same for the file of the store in a state found by other means.
[[nodiscard]] std::unique_ptr<QTemporaryDir> prepareStore(const QString &file, StoreState state);

/// Writes what is still pending in the store.
///
/// @return what went wrong, in words for the user: "No space left on device"; nothing if all is written.
std::optional<QString> storeProblem();
