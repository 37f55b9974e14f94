// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/Registry.h"

#include "base/FileReplacement.h"
#include "base/Messages.h"
#include "settings/SettingsFile.h"
#include "settings/StoredKeys.h"

Registry::Registry(Log log) : m_log(std::move(log)) {}

bool Registry::saveSettings(const QString &path, const Form &form) const
{
    const SettingsStore store;
    QList<SettingsLine> lines;
    for (const QString &key : store.allKeys()) {
        if (key == keys::eyetrackerModel.key)
            continue;
        const QString value = store.value(key).toString();
        lines.append({.key = key, .value = form ? form(key, value) : value});
    }
    const auto problem = writeSettingsFile(path, lines);
    if (problem)
        messages::warning(QStringLiteral("Settings"), writeFailure(path, *problem));
    return !problem;
}

bool Registry::loadSettings(const QString &path) const
{
    const auto lines = readSettingsFile(path);
    if (!lines) {
        messages::information(QStringLiteral("Information"), QStringLiteral("Error: The file could not be opened!"));
        m_log.write(QStringLiteral("ERROR: Could not open registry file!"));
        return false;
    }
    SettingsStore store;
    QStringList changes;
    for (const SettingsLine &line : *lines) {
        if (store.contains(line.key)) {
            store.setValue(line.key, line.value);
            changes.append(QStringLiteral("RegistryImport: ") + line.key + QStringLiteral(" -> ") + line.value);
        }
    }
    m_log.write(changes);
    if (changes.isEmpty())
        messages::warning(QStringLiteral("Settings"),
                          QStringLiteral("%1 is no settings file of this program: nothing was changed.").arg(path));
    return true;
}
