// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/OwnLibrary.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>

/// Below lib, where they are installed as where they are built.
QFunctionPointer ownLibraryFunction(const QString &library, const char *function)
{
    for (const char *folder : {"../lib/vistrum", "../../lib/vistrum"}) {
        QLibrary found(QStringLiteral("%1/%2/lib%3.so")
                           .arg(QCoreApplication::applicationDirPath(), QLatin1StringView(folder), library));
        if (QFileInfo::exists(found.fileName()))
            return found.resolve(function);
    }
    return nullptr;
}
