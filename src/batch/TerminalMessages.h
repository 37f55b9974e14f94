// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Messages.h"
#include "batch/MessageRecord.h"
#include "batch/Terminal.h"

/// Writes messages to the terminal, `title: text` on one line each, and keeps them for the report.
class TerminalMessages : public messages::IHandler {
public:
    enum class Show {
        All,
        Problems ///< warnings and errors only; all are kept
    };

    /// @param terminal, record  must outlive the handler.
    TerminalMessages(Terminal &terminal, MessageRecord &record, Show shown)
        : m_terminal(terminal)
        , m_record(record)
        , m_shown(shown)
    {
    }

    void show(messages::Severity severity, const QString &title, const QString &text) override;

private:
    Terminal &m_terminal;
    MessageRecord &m_record;
    const Show m_shown;
};

/// The message on one line: line breaks become blanks, and other control characters, which could come from a file's
/// contents and command the terminal, become question marks.
QString messageLine(const QString &title, const QString &text);
