// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Log.h"

#include <functional>

/// Copies the store of parameters to and from a text file, so that a way of working can be kept and handed on.
class Registry {
public:
    using Form = std::function<QString(const QString &key, const QString &value)>;

    explicit Registry(Log log = Log());

    /// Writes every key of the store with its value, in the order of the keys; the name of the eye tracker, which
    /// belongs to the place and not to the way of working, stays out. The user is told if the file cannot be written;
    /// an older one is as it was then.
    ///
    /// @param form  how the value of a key stands in the file; as in the store where there is none.
    /// @return whether the file is written.
    bool saveSettings(const QString &path, const Form &form = {}) const;

    /// Sets the keys that the store has already; a file can change keys but never add them. All values come in as
    /// text, and the typed reading converts them. Each change is logged.
    ///
    /// @return false where the file could not be opened; the user has been told.
    bool loadSettings(const QString &path) const;

private:
    Log m_log;
};
