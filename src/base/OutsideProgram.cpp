// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/OutsideProgram.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryFile>

#include <memory>

namespace {

using Result = OutsideResult;

constexpr int intervalMs = 50;
constexpr qint64 longestOutput = qint64(64) * 1024; ///< bytes

QString outputIn(const QTemporaryFile &said)
{
    QFile file(said.fileName());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    file.seek(std::max(qint64(0), file.size() - longestOutput));
    return QString::fromLocal8Bit(file.readAll()).trimmed();
}

/// A QProcess that is destroyed would kill its program.
void letGoOn(std::unique_ptr<QProcess> process)
{
    QProcess *const owner = process.release(); // owned by itself: it goes when its program has ended
    QObject::connect(owner, &QProcess::finished, owner, &QObject::deleteLater);
}

/// Channels are files, so that a program that goes on without us can still write.
void setChannels(QProcess &process, const OutsideCall &call, const QString &said)
{
    process.setStandardInputFile(QProcess::nullDevice());
    if (call.outputFile.isEmpty()) {
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.setStandardOutputFile(said);
    } else {
        process.setStandardOutputFile(call.outputFile);
        process.setStandardErrorFile(said);
    }
}

Result endOf(const QProcess &process)
{
    if (process.exitStatus() == QProcess::CrashExit)
        return {Result::End::Failed, QStringLiteral("it crashed"), {}};
    if (process.exitCode() != 0)
        return {Result::End::Failed, QStringLiteral("it ended with the error %1").arg(process.exitCode()), {}};
    return {};
}

} // namespace

OutsideResult runOutside(const OutsideCall &call, const std::function<bool()> &goOn)
{
    QTemporaryFile said;
    if (!said.open())
        return {Result::End::NotStarted, QStringLiteral("no temporary file can be made: ") + said.errorString(), {}};
    auto process = std::make_unique<QProcess>();
    setChannels(*process, call, said.fileName());
    QElapsedTimer time;
    time.start();
    process->start(call.program, call.arguments);
    if (!process->waitForStarted(call.startTimeoutMs))
        return {Result::End::NotStarted, process->errorString(), {}};
    while (process->state() != QProcess::NotRunning && !process->waitForFinished(intervalMs)) {
        const bool isLate = call.endTimeoutMs && time.elapsed() > *call.endTimeoutMs;
        if (!isLate && goOn())
            continue;
        Result result{isLate ? Result::End::TimedOut : Result::End::Cancelled,
                      isLate ? QStringLiteral("it has not ended in time") : QString(), outputIn(said)};
        letGoOn(std::move(process));
        return result;
    }
    Result result = endOf(*process);
    result.output = outputIn(said);
    return result;
}

QString programIn(const QString &folder, const QString &name)
{
    QString withEnding = QDir(folder).filePath(name + QStringLiteral(".exe"));
#ifndef Q_OS_WIN
    QString plain = QDir(folder).filePath(name);
    if (QFileInfo(plain).isFile())
        return plain;
#endif
    return withEnding;
}
