// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/BatchReport.h"
#include "batch/MessageRecord.h"
#include "import/ContentDigest.h"

class Terminal;

/// What a run read, wrote and failed at.
class RunJournal {
public:
    /// Whether the contents of inputs are read again for their size and hash: only where somebody will see them.
    enum class Digests { Made, NotNeeded };

    /// @param record  has the messages of the run; must outlive the journal.
    /// @param output  gets the paths of the files written, one a line; must outlive the journal.
    RunJournal(MessageRecord &record, Terminal &output, Digests digests);

    /// A file that was read without a message of its own.
    void addInput(const QString &path, const QString &kind);

    /// What is told from here on until `addInputWithMessages` is about one input.
    void beginInput();
    void addInputWithMessages(const QString &path, const QString &kind, bool used, const QMap<QString, qint64> &counts);
    /// Of the input that was added last, which cannot be read again.
    void setDigest(const ContentDigest &digest);
    /// The same for a table.
    /// @param recordings  names of those that were used.
    /// @param report      how it was read; empty where it was not.
    void addTable(const QString &path, const QStringList &recordings, const QJsonObject &report);

    /// A file that stands complete.
    void keep(const QString &path);
    /// Tells the user; the run goes on and ends as failed.
    void fail(const QString &title, const QString &text);
    /// The run ends as failed; the user has been told.
    void fail() { m_failed = true; }
    bool failed() const { return m_failed; }

    /// Writes the file whole or, with a message, not at all.
    void write(const QString &title, const QString &path, const QByteArray &bytes);

    /// Inputs, messages and files written so far.
    BatchReport report();

private:
    MessageRecord &m_record;
    Terminal &m_output;
    const Digests m_digests;
    QList<ReportedInput> m_inputs;
    QList<ShownMessage> m_messages; ///< those that are about no input
    QStringList m_written;
    bool m_listComplete = true; ///< on the terminal; said once
    bool m_failed = false;
};
