// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMimeData>
#include <QStringList>
#include <QUrl>

/// The paths of what was dropped; what lies on another computer has none.
inline QStringList droppedFiles(const QMimeData &dropped)
{
    QStringList paths;
    for (const QUrl &url : dropped.urls()) {
        if (url.isLocalFile())
            paths << url.toLocalFile();
    }
    return paths;
}
