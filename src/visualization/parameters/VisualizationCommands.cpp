#include "visualization/parameters/VisualizationCommands.h"

CommandChangeAdjColorMap::CommandChangeAdjColorMap(const AdjustableColorMap &map, VisualizationParameters &record,
                                                   Show show, const Log *log)
    : QUndoCommand(QStringLiteral("Adjustible Colormap changed!")) // sic
    , m_record(record)
    , m_show(std::move(show))
    , m_log(log)
    , m_new(map)
    , m_old(adjustableColorMap(record))
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
