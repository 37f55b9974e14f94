// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commands/IMainWindow.h"
#include "import/conversion/TableImport.h"
#include "model/DataModel.h"

#include <QUndoCommand>

/// Puts the recordings of tables into the model and the table of examinations. What was read is kept, so that a redo
/// brings the same.
class TableImportCommand : public QUndoCommand {
public:
    TableImportCommand(DataModel &model, IMainWindow &window, QList<ImportedTable> tables);

    void undo() override;
    /// The first time tells what went wrong, missing pictures and, in one message, what is doubtful.
    void redo() override;

    /// Names of recordings and tables that could not be read.
    QStringList notRead() const;

private:
    void addRecordings();
    void tell() const;

    DataModel &m_model;
    IMainWindow &m_window;
    const QList<ImportedTable> m_tables;
    QList<int> m_numbers; ///< running numbers of the examinations
    bool m_firstRun = true;
};
