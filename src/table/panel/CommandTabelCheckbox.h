// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUndoCommand>

class DataModel;
class ExaminationTable;
class IMainWindow;

/// A click on the check box of a row of the table. // sic: the undo view shows the name
///
/// The undo leaves the new state in the examinations as imported: it comes back with them, after a change of "Remove
/// outlier".
class CommandTabelCheckbox : public QUndoCommand {
public:
    /// @param oldState  the state of the box before the click.
    CommandTabelCheckbox(int row, bool oldState, DataModel &model, ExaminationTable &table, IMainWindow &window);

    void undo() override;
    void redo() override;

private:
    enum class Reach { Examinations, AllExaminations };
    void apply(bool checked, Reach reach);

    int m_number; ///< of the examination: its row may wander
    bool m_oldState;
    DataModel &m_model;
    ExaminationTable &m_table;
    IMainWindow &m_window;
};
