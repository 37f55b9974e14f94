// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/parameters/VisualizationCommands.h"

CommandChangeVisualizationMode::CommandChangeVisualizationMode(int mode, VisualizationParameters &record,
                                                               IParameterView &panel, const Log *log)
    : ParameterCommand(mode, record, panel, log)
    , m_before(units())
{
}

void CommandChangeVisualizationMode::undo()
{
    m_after = units();
    ParameterCommand::undo();
    setUnits(m_before);
}

void CommandChangeVisualizationMode::redo()
{
    ParameterCommand::redo();
    if (m_after)
        setUnits(*m_after);
}

CommandChangeVisualizationMode::Units CommandChangeVisualizationMode::units()
{
    return {record().power, record().heatmapThreashold};
}

void CommandChangeVisualizationMode::setUnits(const Units &units)
{
    setParameter(record(), rows::power, units.power);
    setParameter(record(), rows::heatmapThreashold, units.threshold);
    panel().show(rows::power.key, units.power);
    panel().show(rows::heatmapThreashold.key, units.threshold);
}

CommandChangeAdjColorMap::CommandChangeAdjColorMap(const AdjustableColorMap &map, VisualizationParameters &record,
                                                   Show show, const Log *log)
    : QUndoCommand(QStringLiteral("Adjustible Colormap changed!")) // sic
    , m_record(record)
    , m_show(std::move(show))
    , m_log(log)
    , m_new(map)
    , m_old(record.colorMap)
{
}

void CommandChangeAdjColorMap::undo()
{
    apply(m_old, QLatin1StringView("::undo = "));
}

void CommandChangeAdjColorMap::redo()
{
    apply(m_new, QLatin1StringView("::redo = "));
}

void CommandChangeAdjColorMap::apply(const AdjustableColorMap &map, QLatin1StringView step)
{
    setAdjustableColorMap(m_record, map);
    m_show(map);
    if (m_log)
        m_log->write(QLatin1StringView("CommandChangeAdjColorMap") + step);
}
