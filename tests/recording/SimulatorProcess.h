// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

/// The simulated tracker as a process of its own, on a free port. It ends with this object.
class SimulatorProcess {
public:
    explicit SimulatorProcess(const QStringList &options = {})
    {
        m_process.start(QStringLiteral(TRACKER_SIMULATOR),
                        QStringList{QStringLiteral("--port"), QStringLiteral("0")} + options);
        if (!waitFor(QStringLiteral("listening on port ")))
            qFatal("The simulator does not listen: %s", m_process.readAllStandardError().constData());
        m_port = m_output.section(QStringLiteral("listening on port "), 1).section(u'\n', 0, 0);
    }
    ~SimulatorProcess()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    SimulatorProcess(const SimulatorProcess &) = delete;
    SimulatorProcess &operator=(const SimulatorProcess &) = delete;

    std::string port() const { return m_port.toStdString(); }

    /// Waits for a line that holds the text. Returns whether it came within a minute.
    bool waitFor(const QString &text)
    {
        constexpr int longestMs = 60'000;
        while (!m_output.contains(text)) {
            if (!m_process.waitForReadyRead(longestMs))
                return false;
            m_output += QString::fromLocal8Bit(m_process.readAllStandardOutput());
        }
        return m_output.section(text, 1).contains(u'\n') || waitForLineEnd();
    }

private:
    bool waitForLineEnd()
    {
        while (!m_output.endsWith(u'\n')) {
            if (!m_process.waitForReadyRead())
                return false;
            m_output += QString::fromLocal8Bit(m_process.readAllStandardOutput());
        }
        return true;
    }

    QProcess m_process;
    QString m_output;
    QString m_port;
};
