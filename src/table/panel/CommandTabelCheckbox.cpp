// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/panel/CommandTabelCheckbox.h"

#include "commands/IMainWindow.h"
#include "model/DataModel.h"
#include "table/panel/ExaminationTable.h"

CommandTabelCheckbox::CommandTabelCheckbox(int row, bool oldState, DataModel &model, ExaminationTable &table,
                                           IMainWindow &window)
    : QUndoCommand(QStringLiteral("Check Tabel Item"))
    , m_number(table.numberOfRow(row))
    , m_oldState(oldState)
    , m_model(model)
    , m_table(table)
    , m_window(window)
{
}

void CommandTabelCheckbox::undo()
{
    apply(m_oldState, Reach::Examinations);
}

void CommandTabelCheckbox::redo()
{
    apply(!m_oldState, Reach::AllExaminations);
}

void CommandTabelCheckbox::apply(bool checked, Reach reach)
{
    const int index = m_number - 1;
    if (index < 0 || index >= m_model.examinations().size())
        return;
    m_table.showChecked(m_table.rowOfNumber(m_number), checked);
    m_model.examinations()[index].checked = checked;
    if (reach == Reach::AllExaminations && index < m_model.allExaminations().size())
        m_model.allExaminations()[index].checked = checked;
    m_window.updateAndRedraw();
}
