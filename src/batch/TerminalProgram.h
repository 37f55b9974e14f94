// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ArgumentTexts.h"
#include "base/Messages.h"
#include "batch/MessageRecord.h"
#include "batch/OptionRow.h"
#include "batch/Terminal.h"
#include "batch/TerminalMessages.h"

#include <QFile>

#include <functional>

/// The two channels of a terminal program. Its messages go to the error channel and to a record; standard output is for
/// the files written, and for answers such as the help.
class TerminalProgram {
public:
    /// What a program that was called rightly does.
    struct Work {
        TerminalMessages::Show shown = TerminalMessages::Show::All;
        std::function<ExitCode(MessageRecord &record, Terminal &output)> run;
    };

    /// @param name  as users call it.
    explicit TerminalProgram(QString name);

    /// Lines for developers are not for the terminal of a cluster job; what users need comes as a message.
    static void dropDeveloperLines();

    /// Names of files that are no valid texts can be opened by theirs as long as the program lives.
    QStringList arguments(const QByteArrayList &bytes) { return m_arguments.texts(bytes); }

    /// That one of the arguments names no file and cannot name a new one.
    std::optional<UsageError> argumentComplaint() const;

    /// False where the process has no such channels.
    bool open();

    /// Runs with messages and, unless only problems are shown, a progress bar on the error channel.
    ExitCode run(const Work &work);

    /// Writes to standard output.
    ExitCode answer(const QString &text);
    ExitCode answerVersion();
    ExitCode refuse(const UsageError &error);

private:
    const QString m_name;
    ArgumentTexts m_arguments;
    // By their numbers: the language's own streams would keep lines back, and with them that they cannot be written.
    QFile m_standardOutput;
    QFile m_standardError;
    Terminal m_output{m_standardOutput, Terminal::Kind::Stream};
    Terminal m_errors{m_standardError, Terminal::kindOfStandardError()};
};
