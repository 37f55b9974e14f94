// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commands/CommandStack.h"
#include "model/DataModel.h"
#include "table/panel/ExaminationTable.h"
#include "table/panel/ExaminationTableControl.h"

#include "import/FakeWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QTest>

/// A table with its control in a window of its own. Its commands leave the undo stack with it.
class TableFixture {
public:
    TableFixture()
    {
        table->move(0, 0);
        groupBy->move(0, 500);
        table->resize(700, 500);
        widget.resize(700, 540);
        widget.show();
    }
    ~TableFixture() { CommandStack::instance().clear(); }
    TableFixture(const TableFixture &) = delete;
    TableFixture &operator=(const TableFixture &) = delete;

    /// Imports a recording of two samples.
    void add(const QHash<QString, QString> &properties, qint64 durationMs = 0)
    {
        Examination examination;
        examination.properties.insert(properties);
        examination.leftEye.gazePoints = {GazePoint(0, 1, 1, 1, 1, 1), GazePoint(durationMs, 2, 2, 1, 1, 1)};
        examination.number = static_cast<int>(model.examinations().size()) + 1;
        model.examinations() << examination;
        model.allExaminations() = model.examinations();
        control.addExamination(examination);
    }

    QCheckBox *checkBox(int row) const
    {
        return qobject_cast<QCheckBox *>(table->cellWidget(row, ExaminationTable::CheckBoxColumn));
    }
    QComboBox *groupBox(int row) const
    {
        return qobject_cast<QComboBox *>(table->cellWidget(row, ExaminationTable::GroupColumn));
    }
    QUndoStack &stack() const { return CommandStack::instance(); }

    static QList<bool> checks(const QList<Examination> &examinations)
    {
        QList<bool> states;
        for (const Examination &examination : examinations)
            states << examination.checked;
        return states;
    }
    QList<bool> checks() const { return checks(model.examinations()); }
    QList<bool> shownChecks() const
    {
        QList<bool> states;
        for (int row = 0; row < table->rowCount(); ++row)
            states << table->isChecked(row);
        return states;
    }
    QList<int> shownNumbers() const
    {
        QList<int> numbers;
        for (int row = 0; row < table->rowCount(); ++row)
            numbers << table->numberOfRow(row);
        return numbers;
    }
    QStringList groupNames() const
    {
        QStringList names;
        for (const Group &group : model.groups())
            names << group.name;
        return names;
    }
    /// "name index" of each examination.
    QStringList memberships() const
    {
        QStringList texts;
        for (const Examination &examination : model.examinations())
            texts << examination.groupName + u' ' + QString::number(examination.groupIndex);
        return texts;
    }

    QWidget widget;
    ExaminationTable *table = new ExaminationTable(&widget);
    QComboBox *groupBy = new QComboBox(&widget);
    DataModel model;
    FakeWindow window;
    ExaminationTableControl control{*table, *groupBy, model, window, nullptr};
};
