// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>

/// vistrum-batch as a shell starts it: in a working folder and with a home, a configuration and a folder for temporary
/// files of its own, without a display. The working folder holds a copy of the example study, so that all paths on the
/// command line can be relative.
class BatchProgram {
public:
    struct Outcome {
        int status = -1;     ///< -1 where the program did not start or crashed
        QStringList written; ///< lines of standard output
        QStringList errors;  ///< lines of the error channel
    };

    BatchProgram()
    {
        for (const char *name : {"work/study", "home", "config", "temporary"})
            QDir(m_root.path()).mkpath(QLatin1StringView(name));
        const QDir study(QStringLiteral(VISTRUM_SOURCE_DIR "/examples/study"));
        const QStringList kept{QStringLiteral("*.data"), QStringLiteral("*.set"), QStringLiteral("*.png")};
        for (const QString &name : study.entryList(kept, QDir::Files))
            QFile::copy(study.filePath(name), path(QStringLiteral("study/") + name));
        m_environment = QProcessEnvironment::systemEnvironment();
        for (const char *unset : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            m_environment.remove(QLatin1StringView(unset));
        m_environment.insert(QStringLiteral("HOME"), m_root.filePath(QStringLiteral("home")));
        m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), configurationFolder());
        m_environment.insert(QStringLiteral("TMPDIR"), temporaryFolder());
    }

    QString root() const { return m_root.path(); }
    QString configurationFolder() const { return m_root.filePath(QStringLiteral("config")); }
    QString temporaryFolder() const { return m_root.filePath(QStringLiteral("temporary")); }
    /// A place in the working folder.
    QString path(const QString &name) const { return m_root.filePath(QStringLiteral("work/") + name); }

    void setVariable(const QString &name, const QString &value) { m_environment.insert(name, value); }

    Outcome run(const QStringList &arguments) const { return run(QStringLiteral(VISTRUM_BATCH), arguments); }

    /// The same with another program of the terminal.
    Outcome run(const QString &program, const QStringList &arguments) const
    {
        QProcess process;
        process.setProcessEnvironment(m_environment);
        process.setWorkingDirectory(path(QString()));
        process.start(program, arguments);
        if (!process.waitForFinished(120'000) || process.exitStatus() != QProcess::NormalExit)
            return {};
        return {process.exitCode(), lines(process.readAllStandardOutput()), lines(process.readAllStandardError())};
    }

    /// The exit code of a run whose list of files goes into a device that takes nothing.
    int runWithFullOutput(const QStringList &arguments) const
    {
        QProcess process;
        process.setProcessEnvironment(m_environment);
        process.setWorkingDirectory(path(QString()));
        process.setStandardOutputFile(QStringLiteral("/dev/full"));
        process.start(QStringLiteral(VISTRUM_BATCH), arguments);
        return process.waitForFinished(120'000) ? process.exitCode() : -1;
    }

    /// The example recordings, as arguments.
    static QStringList study()
    {
        QStringList recordings;
        for (int i = 1; i <= 6; ++i)
            recordings << QStringLiteral("study/S0%1.data").arg(i);
        return recordings;
    }

    QByteArray contents(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable ") + name.toUtf8();
    }

    void write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("%s could not be written", qPrintable(name));
    }

    /// Every file of the folder that does not belong to the copied study, with its contents; names are relative.
    static QMap<QString, QByteArray> filesIn(const QString &folder)
    {
        QMap<QString, QByteArray> files;
        for (QDirIterator entry(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); entry.hasNext();) {
            QFile file(entry.next());
            const QString name = QDir(folder).relativeFilePath(file.fileName());
            if (!name.startsWith(QLatin1StringView("study/")) && file.open(QIODevice::ReadOnly))
                files.insert(name, file.readAll());
        }
        return files;
    }
    QMap<QString, QByteArray> files() const { return filesIn(path(QString())); }

    void removeFiles() const
    {
        const QStringList names = files().keys();
        for (const QString &name : names)
            QFile::remove(path(name));
    }

private:
    static QStringList lines(const QByteArray &bytes)
    {
        QStringList lines = QString::fromUtf8(bytes).split(u'\n');
        if (lines.constLast().isEmpty())
            lines.removeLast(); // what follows the last line end is no line
        return lines;
    }

    QTemporaryDir m_root;
    QProcessEnvironment m_environment;
};
