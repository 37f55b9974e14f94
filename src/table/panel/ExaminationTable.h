// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Examination.h"
#include "model/Group.h"

#include <QStringList>
#include <QTableWidget>

class QCheckBox;
class QComboBox;

/// The table of examinations: its check boxes decide what takes part in everything.
///
/// Columns are the check box, "#", "subjectID", "image", "group" and then every further property, added when it first
/// turns up and never removed. The number in column 1 links a row to its examination, since rows can be sorted.
class ExaminationTable : public QTableWidget {
    Q_OBJECT
public:
    enum Column { CheckBoxColumn = 0, NumberColumn = 1, SubjectColumn = 2, ImageColumn = 3, GroupColumn = 4 };

    explicit ExaminationTable(QWidget *parent = nullptr);

    void addExamination(const Examination &examination, const QList<Group> &groups);

    /// Replaces all rows by these examinations in their order, whatever the user has sorted by.
    void setExaminations(const QList<Examination> &examinations, const QList<Group> &groups);

    /// For each row from the top, compares the numbers in order; a match removes the row at this place before the next
    /// number is tried. Rows that stand in the order of the numbers all vanish.
    void removeExaminations(const QList<int> &numbers);

    /// The same with the rows in the order of their import, whatever the user has sorted by; they are sorted so again.
    void removeSortedExaminations(const QList<int> &numbers);

    /// Number of the examination in this row; 0 beyond the table.
    int numberOfRow(int row) const;

    /// The row of the examination with this number; -1 where there is none.
    int rowOfNumber(int number) const;

    /// Shows check mark and group as they are now, without signals.
    void showChoices(const Examination &examination);

    /// While held, nothing is painted, and after a row was added no column fits itself to its cells, which would cost
    /// time with each further row.
    void setHeld(bool isHeld);

    /// The labels of all columns.
    const QStringList &labels() const { return m_labels; }

    /// The labels of the properties, "group" included: what a filter can ask for.
    QStringList properties() const { return m_labels.sliced(SubjectColumn); }

    /// The labels of the properties that groups can be made of.
    QStringList groupByNames() const;

    bool isChecked(int row) const;

    /// The box that shows the group of this row: "None" and then the groups; null beyond the table.
    const QComboBox *groupBox(int row) const;

    /// Shows the colour in a cell of the column "Color": as its value and behind it.
    static void showColor(QTableWidgetItem &cell, QRgb color);

    /// Shows the state without a signal, so that no command comes of it.
    void showChecked(int row, bool checked);

    /// Checks or unchecks a row as a click on its box would; nothing beyond the table.
    void setChecked(int row, bool checked);

    /// Checks or unchecks the selected rows as clicks on their boxes would.
    void setSelectedChecked(bool checked);

Q_SIGNALS:
    /// The user changed the check box of this row, which already shows the new state.
    void checkBoxClicked(int row);

    /// The user chose another group for this row.
    void groupChosen(int row);

private:
    QCheckBox *checkBox(int row) const;
    int rowOf(const QWidget *cell, Column column) const;
    void fillRow(int row, const Examination &examination, const QList<Group> &groups);
    int columnOf(const QString &property);
    void addCheckBox(int row, bool checked);
    void addGroupBox(int row, const Examination &examination, const QList<Group> &groups);

    QStringList m_labels;
};
