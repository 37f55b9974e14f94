// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/panel/CommandFilter.h"

#include "table/panel/ExaminationTableControl.h"

CommandFilter::CommandFilter(ExaminationFilter oldFilter, ExaminationFilter newFilter, ExaminationTableControl &table)
    : QUndoCommand(QStringLiteral("Filter"))
    , m_oldFilter(std::move(oldFilter))
    , m_newFilter(std::move(newFilter))
    , m_table(table)
{
}

void CommandFilter::undo()
{
    m_table.sltRefreshTable(m_oldFilter);
}

void CommandFilter::redo()
{
    m_table.sltRefreshTable(m_newFilter);
}
