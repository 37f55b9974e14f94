// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/RunJournal.h"
#include "convert/ConvertOptions.h"
#include "import/conversion/TableConversion.h"

/// One run of vistrum-import: each table becomes recordings.
class ConvertRun {
public:
    /// @param record  has the messages of the run, for its report; must outlive the run.
    /// @param output  gets the paths of the files written, one a line.
    ConvertRun(const ConvertOptions &options, MessageRecord &record, Terminal &output);

    ExitCode run();

private:
    using ReadTable = std::variant<ConvertedTable, TableProblem>;

    std::optional<UsageError> prepare();
    std::optional<UsageError> claimReport();
    void convertTables();
    void take(const QString &path, ReadTable &table);
    void write(const QString &path, ConvertedTable &table);
    void writeReport();

    const ConvertOptions m_options;
    RunJournal m_journal;
    LayoutRequest m_request;
    UsedNames m_used;
};
