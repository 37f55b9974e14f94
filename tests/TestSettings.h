// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/SettingsStore.h"

#include <QTemporaryDir>

/// An empty settings store of its own while it lives; the user's store is neither read nor changed. One that takes the
/// place of another may be made before the other ends.
class TemporarySettings {
public:
    TemporarySettings() { SettingsStore::useFile(path()); }
    ~TemporarySettings()
    {
        if (SettingsStore::path() == path())
            SettingsStore::useFile({});
    }
    TemporarySettings(const TemporarySettings &) = delete;
    TemporarySettings &operator=(const TemporarySettings &) = delete;

private:
    QString path() const { return m_directory.filePath(QStringLiteral("settings.ini")); }

    QTemporaryDir m_directory;
};
