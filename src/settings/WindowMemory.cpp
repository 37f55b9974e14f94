// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/WindowMemory.h"

#include "settings/SettingsStore.h"

#include <QFileInfo>

namespace {

QString memoryFile()
{
    const QFileInfo store(SettingsStore::path());
    return store.path() + u'/' + store.completeBaseName() + QStringLiteral(" window.ini");
}

} // namespace

namespace windowmemory {

QByteArray recall(const QString &name)
{
    return QSettings(memoryFile(), QSettings::IniFormat).value(name).toByteArray();
}

void keep(const QString &name, const QByteArray &state)
{
    QSettings(memoryFile(), QSettings::IniFormat).setValue(name, state);
}

} // namespace windowmemory
