// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/DataExport.h"
#include "export/StatisticsExport.h"

#include <QUndoCommand>

/// An export as a step of the undo stack. Its redo writes the files, each time anew; its undo leaves them where they
/// are.
class ExportCommand : public QUndoCommand {
public:
    using Export = ExportResult (*)(DataModel &, const ExportTarget &);

    /// @param kind   what is exported, as the undo view has it.
    /// @param model  must outlive the command.
    ExportCommand(QLatin1StringView kind, Export write, DataModel &model, const ExportTarget &target);

    void redo() override { m_write(m_model, m_target); }
    void undo() override {}

    /// The table by its word in the batch program.
    QString word() const;
    const ExportTarget &target() const { return m_target; }

private:
    const QLatin1StringView m_kind;
    const Export m_write;
    DataModel &m_model;
    const ExportTarget m_target;
};

/// The export of one kind of table.
template <auto Write>
class TableExportCommand : public ExportCommand {
public:
    TableExportCommand(QLatin1StringView kind, DataModel &model, const ExportTarget &target)
        : ExportCommand(
              kind, [](DataModel &exported, const ExportTarget &files) { return Write(exported, files); }, model,
              target)
    {
    }
};

using CommandExportFixations = TableExportCommand<exportFixations>;
using CommandExportClusters = TableExportCommand<exportClusters>;
using CommandExportEvents = TableExportCommand<exportEvents>;
using CommandExportCumulativeClusters = TableExportCommand<exportCumulativeClusters>;
using CommandExportGeneralStatistics = TableExportCommand<exportGeneralStatistics>;
using CommandExportAoiStatistics = TableExportCommand<exportAoiStatistics>;
