// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/panel/ExaminationTable.h"

#include "table/Grouping.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace {

QTableWidgetItem *textItem(const QString &text)
{
    return new QTableWidgetItem(text); // owned by the table
}

/// Sorts as a number, so that row 10 stands behind row 9.
QTableWidgetItem *numberItem(int number)
{
    auto *item = new QTableWidgetItem; // owned by the table
    item->setData(Qt::DisplayRole, number);
    return item;
}

/// Turning the wheel scrolls the table. A group is changed only in a box that has been chosen by click or by key: it
/// cannot be undone.
class GroupBox : public QComboBox {
public:
    GroupBox() { setFocusPolicy(Qt::StrongFocus); }

protected:
    void wheelEvent(QWheelEvent *event) override
    {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }
};

} // namespace

ExaminationTable::ExaminationTable(QWidget *parent)
    : QTableWidget(0, GroupColumn + 1, parent)
    , m_labels{QString(), QStringLiteral("#"), QStringLiteral("subjectID"), QStringLiteral("image"),
               QStringLiteral("group")}
{
    setHorizontalHeaderLabels(m_labels);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setShowGrid(true);
    setStyleSheet(QStringLiteral("QTableView {selection-background-color: grey;}"));
    setSortingEnabled(true);
    horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder); // rows stand in import order until the user sorts
}

void ExaminationTable::addExamination(const Examination &examination, const QList<Group> &groups)
{
    if (!updatesEnabled())
        horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setSortingEnabled(false); // a half filled row must not wander
    const int row = rowCount();
    insertRow(row);
    fillRow(row, examination, groups);
    setSortingEnabled(true);
}

void ExaminationTable::setExaminations(const QList<Examination> &examinations, const QList<Group> &groups)
{
    setSortingEnabled(false);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    setRowCount(0);
    setRowCount(static_cast<int>(examinations.size())); // at once: the table is laid out anew for each insertion
    for (int row = 0; row < rowCount(); ++row)
        fillRow(row, examinations[row], groups);
    setSortingEnabled(true);
}

void ExaminationTable::setHeld(bool isHeld)
{
    setUpdatesEnabled(!isHeld);
    if (!isHeld && horizontalHeader()->sectionResizeMode(CheckBoxColumn) == QHeaderView::Fixed)
        horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

void ExaminationTable::fillRow(int row, const Examination &examination, const QList<Group> &groups)
{
    addCheckBox(row, examination.checked);
    setItem(row, NumberColumn, numberItem(examination.number));
    addGroupBox(row, examination, groups);
    QStringList keys = examination.properties.keys();
    keys.sort(); // columns in an order that is the same in every run
    for (const QString &key : std::as_const(keys)) {
        const int column = columnOf(key);
        if (column < SubjectColumn || column == GroupColumn) // a set file may hold any key, but rows keep their number
            continue;
        const QString value = examination.properties.value(key);
        setItem(row, column, textItem(value));
        if (key == colorProperty)
            item(row, column)->setBackground(QColor::fromRgba(value.toUInt()));
    }
    for (const Column column : {NumberColumn, SubjectColumn}) { // without a set file the name stands nowhere else
        if (QTableWidgetItem *cell = item(row, column))
            cell->setToolTip(tr("Recording %1").arg(examination.baseName));
    }
}

void ExaminationTable::addCheckBox(int row, bool checked)
{
    auto *box = new QCheckBox; // owned by the table; a style that is inherited twice costs twice
    box->setChecked(checked);
    box->setToolTip(tr("Takes part in calculations, drawings and exports"));
    setCellWidget(row, CheckBoxColumn, box);
    connect(box, &QCheckBox::toggled, this, [this, box] { Q_EMIT checkBoxClicked(rowOf(box, CheckBoxColumn)); });
}

void ExaminationTable::addGroupBox(int row, const Examination &examination, const QList<Group> &groups)
{
    auto *box = new GroupBox; // owned by the table
    box->addItem(Group::none);
    for (const Group &group : groups)
        box->addItem(group.name);
    box->setCurrentText(examination.groupName);
    setCellWidget(row, GroupColumn, box);
    connect(box, &QComboBox::currentIndexChanged, this, [this, box] { Q_EMIT groupChosen(rowOf(box, GroupColumn)); });
}

void ExaminationTable::removeExaminations(const QList<int> &numbers)
{
    for (int row = 0; row < rowCount(); ++row) {
        for (const int number : numbers) {
            if (numberOfRow(row) == number)
                removeRow(row);
        }
    }
}

void ExaminationTable::removeSortedExaminations(const QList<int> &numbers)
{
    const int section = horizontalHeader()->sortIndicatorSection();
    const Qt::SortOrder order = horizontalHeader()->sortIndicatorOrder();
    sortItems(NumberColumn);
    removeExaminations(numbers);
    if (section >= 0)
        sortItems(section, order);
    else
        horizontalHeader()->setSortIndicator(section, order);
}

int ExaminationTable::rowOfNumber(int number) const
{
    int row = rowCount() - 1;
    while (row >= 0 && numberOfRow(row) != number)
        --row;
    return row;
}

void ExaminationTable::showChoices(const Examination &examination)
{
    const int row = rowOfNumber(examination.number);
    showChecked(row, examination.checked);
    if (auto *box = qobject_cast<QComboBox *>(cellWidget(row, GroupColumn))) {
        const QSignalBlocker blocker(box);
        box->setCurrentText(examination.groupName);
    }
}

int ExaminationTable::numberOfRow(int row) const
{
    const QTableWidgetItem *number = item(row, NumberColumn);
    return number ? number->data(Qt::DisplayRole).toInt() : 0;
}

bool ExaminationTable::isChecked(int row) const
{
    const QCheckBox *box = checkBox(row);
    return box && box->isChecked();
}

void ExaminationTable::showChecked(int row, bool checked)
{
    if (QCheckBox *box = checkBox(row)) {
        const QSignalBlocker blocker(box);
        box->setChecked(checked);
    }
}

void ExaminationTable::setChecked(int row, bool checked)
{
    if (QCheckBox *box = checkBox(row))
        box->setChecked(checked);
}

void ExaminationTable::setSelectedChecked(bool checked)
{
    const QModelIndexList selected = selectedIndexes();
    for (const QModelIndex &index : selected)
        setChecked(index.row(), checked);
}

QStringList ExaminationTable::groupByNames() const
{
    QStringList names = properties();
    names.removeAll(m_labels[GroupColumn]);
    return names;
}

const QComboBox *ExaminationTable::groupBox(int row) const
{
    return qobject_cast<const QComboBox *>(cellWidget(row, GroupColumn));
}

void ExaminationTable::showColor(QTableWidgetItem &cell, QRgb color)
{
    cell.setBackground(QColor::fromRgba(color));
    cell.setText(QString::number(color));
}

QCheckBox *ExaminationTable::checkBox(int row) const
{
    return qobject_cast<QCheckBox *>(cellWidget(row, CheckBoxColumn));
}

/// Not found by its place: rows that were not laid out yet all lie at the same one.
int ExaminationTable::rowOf(const QWidget *cell, Column column) const
{
    int row = rowCount() - 1;
    while (row >= 0 && cellWidget(row, column) != cell)
        --row;
    return row;
}

int ExaminationTable::columnOf(const QString &property)
{
    if (const qsizetype known = m_labels.indexOf(property); known >= 0)
        return static_cast<int>(known);
    const int column = columnCount();
    m_labels << property;
    insertColumn(column);
    setHorizontalHeaderItem(column, textItem(property));
    return column;
}
