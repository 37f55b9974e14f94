// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/CalculationRows.h"
#include "batch/RunState.h"
#include "recipe/Recipe.h"

#include <memory>

struct ImportedFile;
struct ImportedTable;
struct LayoutRequest;

/// One run of the batch tool: the same functions that the window's commands run, in the order import, areas of
/// interest, calculations, exports, images, report.
///
/// The settings store of the process must be a private one by then, with the factory values in it.
class BatchRun {
public:
    /// @param record    has the messages of the run, for its report; must outlive the run.
    /// @param output    gets the paths of the files written, one a line.
    BatchRun(const BatchOptions &options, MessageRecord &record, Terminal &output);

    ~BatchRun();
    BatchRun(const BatchRun &) = delete;
    BatchRun &operator=(const BatchRun &) = delete;

    ExitCode run();

private:
    std::optional<UsageError> chooseSettings();
    std::optional<UsageError> checkInputs() const;
    std::optional<UsageError> chooseLayout();
    std::optional<UsageError> makeOutputFolder() const;
    void importRecordings(const QStringList &recordings);
    void runRecipe();
    QMap<QString, QString> doOptions();
    std::optional<UsageError> readRecipe();
    void takeRecording(const ImportedFile &file);
    void takeTable(const ImportedTable &table);
    void addSetFile(const ImportedFile &file);
    void loadAois();
    void setTimeFrame();
    void calculate(const QList<CalculationRow> &rows);
    void exportTables();
    void writeRecords(const QMap<QString, QString> &density);

    BatchOptions m_options;
    std::optional<recipe::Recipe> m_recipe;
    RunJournal m_journal;
    std::unique_ptr<const LayoutRequest> m_layout; ///< of the tables; null without
    QStringList m_failedRecordings;                ///< that could not be read
    RunState m_state{m_options, m_journal};
};
