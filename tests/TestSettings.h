#pragma once

#include "settings/SettingsStore.h"

#include <QTemporaryDir>

/// An empty settings store of its own while it lives; the user's store is neither read nor changed.
class TemporarySettings {
public:
    TemporarySettings() { SettingsStore::useFile(m_directory.filePath(QStringLiteral("settings.ini"))); }
    ~TemporarySettings() { SettingsStore::useFile({}); }
    TemporarySettings(const TemporarySettings &) = delete;
    TemporarySettings &operator=(const TemporarySettings &) = delete;

private:
    QTemporaryDir m_directory;
};
