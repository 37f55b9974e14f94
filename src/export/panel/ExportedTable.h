// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commands/CommandStack.h"
#include "export/panel/ExportCommands.h"

#include <QCheckBox>

#include <cstddef>

/// A kind of table on a form: its check box, its name, its command.
template <class Form>
struct ExportedTable {
    QCheckBox *Form::*box;
    TableName name;
    QUndoCommand *(*command)(const TableName &, DataModel &, const ExportTarget &);
};

template <auto Write>
QUndoCommand *newTableCommand(const TableName &name, DataModel &model, const ExportTarget &target)
{
    return new TableExportCommand<Write>(name, model, target);
}

/// Writes the tables whose boxes are checked, in the order of the kinds; none without a model.
template <class Form, std::size_t N>
void pushChosen(const Form &form, const ExportedTable<Form> (&kinds)[N], DataModel *model, const ExportTarget &target)
{
    for (const ExportedTable<Form> &kind : kinds) {
        if (model && (form.*kind.box)->isChecked())
            CommandStack::instance().push(kind.command(kind.name, *model, target));
    }
}
