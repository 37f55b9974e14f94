// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/panel/GroupColumns.h"

#include "model/DataModel.h"

#include <QComboBox>

#include <set>

void listGroupColumns(QComboBox &columns, const DataModel *model, const QString &chosen)
{
    std::set<QString> names{QString(defaultGroupColumn)};
    if (model) {
        for (const Examination &examination : model->examinations())
            names.insert(examination.properties.keyBegin(), examination.properties.keyEnd());
    }
    columns.clear();
    for (const QString &name : names)
        columns.addItem(name);
    columns.setCurrentText(chosen);
}
