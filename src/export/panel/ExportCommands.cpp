// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/panel/ExportCommands.h"

#include "settings/StoredKeys.h"

ExportCommand::ExportCommand(const TableName &name, Export write, DataModel &model, const ExportTarget &target)
    : QUndoCommand(
          QStringLiteral("Export %1 [exportdir=%2, prefix=%3]").arg(name.caption, target.folder, target.prefix))
    , m_word(name.word)
    , m_write(write)
    , m_model(model)
    , m_target(target)
{
}

ExportResult writeGeneralStatistics(const DataModel &model, const ExportTarget &target)
{
    return exportGeneralStatistics(model, target, storedFlags());
}

ExportResult writeAoiStatistics(const DataModel &model, const ExportTarget &target)
{
    return exportAoiStatistics(model, target, storedFlags());
}
