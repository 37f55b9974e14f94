// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/panel/ExportCommands.h"

ExportCommand::ExportCommand(QLatin1StringView kind, Export write, DataModel &model, const ExportTarget &target)
    : QUndoCommand(QStringLiteral("Export %1 [exportdir=%2, prefix=%3]").arg(kind, target.folder, target.prefix))
    , m_kind(kind)
    , m_write(write)
    , m_model(model)
    , m_target(target)
{
}

/// The words are the captions with hyphens, but for these.
QString ExportCommand::word() const
{
    constexpr std::pair<QLatin1StringView, QLatin1StringView> others[] = {
        {QLatin1StringView("tidy tables"), QLatin1StringView("tidy")},
        {QLatin1StringView("data quality"), QLatin1StringView("quality")}};
    for (const auto &[caption, word] : others) {
        if (m_kind == caption)
            return word;
    }
    return QString(m_kind).toLower().replace(u' ', u'-');
}
