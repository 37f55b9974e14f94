// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "table/ExaminationFilter.h"

#include <QUndoCommand>

class ExaminationTableControl;

/// A filter set in the dialog. Since a filter only ever unchecks, its undo brings the old filter back, but not the
/// check marks it took.
class CommandFilter : public QUndoCommand {
public:
    CommandFilter(ExaminationFilter oldFilter, ExaminationFilter newFilter, ExaminationTableControl &table);

    void undo() override;
    void redo() override;

    const ExaminationFilter &filter() const { return m_newFilter; }

private:
    ExaminationFilter m_oldFilter;
    ExaminationFilter m_newFilter;
    ExaminationTableControl &m_table;
};
