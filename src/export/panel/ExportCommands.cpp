#include "export/panel/ExportCommands.h"

#include "export/DataExport.h"

ExportCommand::ExportCommand(QLatin1StringView kind, DataModel &model, const ExportTarget &target)
    : QUndoCommand(QStringLiteral("Export %1 [exportdir=%2, prefix=%3]").arg(kind, target.folder, target.prefix))
    , m_model(model)
    , m_target(target)
{
}

CommandExportFixations::CommandExportFixations(DataModel &model, const ExportTarget &target)
    : ExportCommand(QLatin1StringView("fixations"), model, target)
{
}

void CommandExportFixations::redo()
{
    exportFixations(m_model, m_target);
}

CommandExportClusters::CommandExportClusters(DataModel &model, const ExportTarget &target)
    : ExportCommand(QLatin1StringView("clusters"), model, target)
{
}

void CommandExportClusters::redo()
{
    exportClusters(m_model, m_target);
}

CommandExportCumulativeClusters::CommandExportCumulativeClusters(DataModel &model, const ExportTarget &target)
    : ExportCommand(QLatin1StringView("cumulative clusters"), model, target)
{
}

void CommandExportCumulativeClusters::redo()
{
    exportCumulativeClusters(m_model, m_target);
}

CommandExportEvents::CommandExportEvents(DataModel &model, const ExportTarget &target)
    : ExportCommand(QLatin1StringView("events"), model, target)
{
}

void CommandExportEvents::redo()
{
    exportEvents(m_model, m_target);
}
