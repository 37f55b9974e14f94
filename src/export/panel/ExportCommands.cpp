#include "export/panel/ExportCommands.h"

ExportCommand::ExportCommand(QLatin1StringView kind, Export write, DataModel &model, const ExportTarget &target)
    : QUndoCommand(QStringLiteral("Export %1 [exportdir=%2, prefix=%3]").arg(kind, target.folder, target.prefix))
    , m_write(write)
    , m_model(model)
    , m_target(target)
{
}
