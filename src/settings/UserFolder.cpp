// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/UserFolder.h"

#include "settings/SettingsStore.h"

#include <QFileInfo>

QString userFolder(const QString &name)
{
    const QFileInfo store(SettingsStore::path());
    return store.path() + u'/' + store.completeBaseName() + u' ' + name;
}
