// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/DataExport.h"
#include "export/StatisticsExport.h"

#include <QUndoCommand>

/// What a kind of table is called.
struct TableName {
    QLatin1StringView caption; ///< in the undo view
    QLatin1StringView word;    ///< in the batch program and in recipes
};

/// An export as a step of the undo stack. Its redo writes the files, each time anew; its undo leaves them where they
/// are.
class ExportCommand : public QUndoCommand {
public:
    using Export = ExportResult (*)(DataModel &, const ExportTarget &);

    /// @param model  must outlive the command.
    ExportCommand(const TableName &name, Export write, DataModel &model, const ExportTarget &target);

    void redo() override { m_write(m_model, m_target); }
    void undo() override {}

    /// The table by its word in the batch program.
    QString word() const { return m_word; }
    const ExportTarget &target() const { return m_target; }

private:
    const QLatin1StringView m_word;
    const Export m_write;
    DataModel &m_model;
    const ExportTarget m_target;
};

/// The export of one kind of table.
template <auto Write>
class TableExportCommand : public ExportCommand {
public:
    TableExportCommand(const TableName &name, DataModel &model, const ExportTarget &target)
        : ExportCommand(
              name, [](DataModel &exported, const ExportTarget &files) { return Write(exported, files); }, model,
              target)
    {
    }
};

/// With the columns that the store says.
ExportResult writeGeneralStatistics(const DataModel &model, const ExportTarget &target);
ExportResult writeAoiStatistics(const DataModel &model, const ExportTarget &target);

using CommandExportFixations = TableExportCommand<exportFixations>;
using CommandExportClusters = TableExportCommand<exportClusters>;
using CommandExportEvents = TableExportCommand<exportEvents>;
using CommandExportCumulativeClusters = TableExportCommand<exportCumulativeClusters>;
using CommandExportGeneralStatistics = TableExportCommand<writeGeneralStatistics>;
using CommandExportAoiStatistics = TableExportCommand<writeAoiStatistics>;
