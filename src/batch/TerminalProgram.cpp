// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/TerminalProgram.h"

#include "base/Progress.h"
#include "base/Release.h"
#include "batch/TerminalProgress.h"

#include <QCoreApplication>

#include <cstdio>

TerminalProgram::TerminalProgram(QString name) : m_name(std::move(name)) {}

/// To Qt, even the lack of a runtime folder is critical, and a cluster job often has none.
void TerminalProgram::dropDeveloperLines()
{
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
        if (type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(text));
    });
}

bool TerminalProgram::open()
{
    return m_standardOutput.open(fileno(stdout), QIODevice::WriteOnly | QIODevice::Unbuffered) &&
           m_standardError.open(fileno(stderr), QIODevice::WriteOnly | QIODevice::Unbuffered);
}

ExitCode TerminalProgram::run(const Work &work)
{
    MessageRecord record([this](const QString &text) { return m_arguments.asGiven(text); });
    messages::install(std::make_unique<TerminalMessages>(m_errors, record, work.shown));
    if (work.shown == TerminalMessages::Show::All)
        Progress::install(std::make_unique<TerminalProgress>(m_errors));
    const ExitCode result = work.run(record, m_output);
    messages::install(nullptr);
    Progress::install(nullptr);
    return result;
}

ExitCode TerminalProgram::answer(const QString &text)
{
    return m_output.writeLine(text) ? ExitCode::AllDone : ExitCode::SomethingFailed;
}

ExitCode TerminalProgram::answerVersion()
{
    return answer(
        QStringLiteral("%1 %2\nrelease %3").arg(m_name, QCoreApplication::applicationVersion(), releaseText()));
}

std::optional<UsageError> TerminalProgram::argumentComplaint() const
{
    if (m_arguments.unusable().isEmpty())
        return std::nullopt;
    return UsageError{QStringLiteral("%1: no such file, and a new one needs a name that is valid UTF-8")
                          .arg(m_arguments.unusable().constFirst())};
}

ExitCode TerminalProgram::refuse(const UsageError &error)
{
    m_errors.writeLine(QStringLiteral("%1: %2\nTry %1 --help.").arg(m_name, error.text));
    return ExitCode::Usage;
}
