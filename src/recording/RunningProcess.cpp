// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/RunningProcess.h"

#include "base/NamedPlace.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

namespace {

bool isNumber(const QString &name)
{
    bool ok = false;
    name.toLongLong(&ok);
    return ok;
}

} // namespace

bool isListedByTasklist(const QString &imageName, const QString &program)
{
    constexpr int longestMs = 30000;
    QProcess process;
    process.start(program, {QStringLiteral("/NH"), QStringLiteral("/FO"), QStringLiteral("CSV"), QStringLiteral("/FI"),
                            QStringLiteral("IMAGENAME eq %1").arg(imageName)});
    process.waitForFinished(longestMs);
    return QString::fromLocal8Bit(process.readAllStandardOutput()).startsWith(u'"' + imageName);
}

bool isListedInProc(const QString &imageName)
{
    if (imageName.isEmpty())
        return false;
    const QDir processes(QStringLiteral("/proc"));
    for (const QString &name : processes.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (!isNumber(name))
            continue;
        QFile arguments(processes.filePath(name) + QStringLiteral("/cmdline"));
        if (!arguments.open(QIODevice::ReadOnly))
            continue;
        const QByteArray first = arguments.readAll().split('\0').constFirst();
        if (first.isEmpty())
            continue; // the system's own, or one that has ended
        const QString program = QFileInfo(processes.filePath(name) + QStringLiteral("/exe")).symLinkTarget();
        if (fileNameOf(QString::fromLocal8Bit(first)) == imageName || fileNameOf(program) == imageName)
            return true;
    }
    return false;
}

bool isProcessRunning(const QString &imageName)
{
#ifdef Q_OS_WIN
    return isListedByTasklist(imageName);
#else
    return isListedInProc(imageName);
#endif
}
