// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Log.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

/// A log in a folder of its own, and what was written into it.
class RecordedLog {
public:
    const Log &log() const { return m_log; }

    QByteArray bytes() const
    {
        QFile file(m_folder.filePath(QStringLiteral("log")));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QStringList lines() const { return QString::fromUtf8(bytes()).split(u'\n', Qt::SkipEmptyParts); }
    /// The lines since it was last asked.
    QStringList takeLines()
    {
        const QStringList taken = lines();
        m_log.clear();
        return taken;
    }

private:
    QTemporaryDir m_folder;
    Log m_log{m_folder.filePath(QStringLiteral("log"))};
};
