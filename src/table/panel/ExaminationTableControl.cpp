// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/panel/ExaminationTableControl.h"

#include "base/Messages.h"
#include "commands/CommandStack.h"
#include "commands/IMainWindow.h"
#include "table/Grouping.h"
#include "table/panel/CommandGroupBy.h"
#include "table/panel/CommandTabelCheckbox.h"
#include "table/panel/editGroupsDialog.h"
#include "table/panel/ExaminationTable.h"
#include "table/panel/filterDialog.h"
#include "table/panel/QualityWindow.h"

#include <QColorDialog>
#include <QComboBox>
#include <QSignalBlocker>

#include <algorithm>

namespace {

constexpr qint64 shortestSpanMs = 1000; ///< to be shown, once examinations are checked by hand

} // namespace

ExaminationTableControl::ExaminationTableControl(ExaminationTable &table, QComboBox &groupByBox, DataModel &model,
                                                 IMainWindow &window, QObject *parent)
    : QObject(parent)
    , m_table(table)
    , m_groupByBox(groupByBox)
    , m_model(model)
    , m_window(window)
    , m_chooseColor([&table](const QColor &start) {
        return QColorDialog::getColor(start, table.window(), QStringLiteral("GP Color"),
                                      QColorDialog::DontUseNativeDialog);
    })
{
    rebuildGroupByBox();
    connect(&table, &ExaminationTable::checkBoxClicked, this, &ExaminationTableControl::sltTableCheckboxClicked);
    connect(&table, &ExaminationTable::groupChosen, this, &ExaminationTableControl::sltGroupChanged);
    connect(&table, &ExaminationTable::itemDoubleClicked, this,
            &ExaminationTableControl::slt_table_item_double_clicked);
    connect(&groupByBox, &QComboBox::currentIndexChanged, this,
            [this](int index) { sltGroupBy(m_groupByBox.itemText(index)); });
}

/// Null for a row without an examination.
Examination *ExaminationTableControl::examinationOfRow(int row)
{
    const int index = m_table.numberOfRow(row) - 1;
    return index >= 0 && index < m_model.examinations().size() ? &m_model.examinations()[index] : nullptr;
}

void ExaminationTableControl::addExamination(const Examination &examination)
{
    m_table.addExamination(examination, m_model.groups());
    rebuildGroupByBox();
    Q_EMIT rowsAdded();
    Q_EMIT sigSetSaccadeClusterStatusNone();
}

void ExaminationTableControl::rebuildGroupByBox()
{
    const QSignalBlocker blocker(m_groupByBox);
    m_groupByBox.clear();
    m_groupByBox.addItem(QString());
    m_groupByBox.addItems(m_table.groupByNames());
}

// ---- check marks

void ExaminationTableControl::sltCheck()
{
    const RedrawHold hold(m_window);
    m_table.setSelectedChecked(true);
}

void ExaminationTableControl::sltUncheck()
{
    const RedrawHold hold(m_window);
    m_table.setSelectedChecked(false);
}

void ExaminationTableControl::sltTableCheckboxClicked(int row)
{
    const RedrawHold hold(m_window); // the command and the new time span draw the picture each
    const bool newState = m_table.isChecked(row);
    CommandStack::instance().push(new CommandTabelCheckbox(row, !newState, m_model, m_table, m_window));
    Q_EMIT timeSpanWanted(std::max(shortestSpanMs, m_model.longestCheckedDuration()));
    Q_EMIT sigSetSaccadeClusterStatusNone();
}

// ---- colour and report

void ExaminationTableControl::slt_table_item_double_clicked(QTableWidgetItem *item)
{
    if (m_table.labels()[item->column()] == colorProperty)
        chooseColor(*item);
    else if (const Examination *examination = examinationOfRow(item->row()))
        messages::information(QStringLiteral("Information"), examination->calculationInfo.report());
}

void ExaminationTableControl::chooseColor(QTableWidgetItem &cell)
{
    const QColor color = m_chooseColor(QColor::fromRgba(cell.text().toUInt()));
    Examination *examination = examinationOfRow(cell.row()); // asked late: the picture may be drawn behind the dialog
    if (!color.isValid() || !examination)
        return;
    setGazePointColor(*examination, color.rgba());
    ExaminationTable::showColor(cell, color.rgba());
    m_window.updateAndRedraw();
}

// ---- data quality

void ExaminationTableControl::sltShowQuality()
{
    const auto uncheck = [this](const QList<int> &numbers) {
        const RedrawHold hold(m_window);
        for (const int number : numbers)
            m_table.setChecked(m_table.rowOfNumber(number), false);
    };
    if (m_quality)
        m_quality->measure();
    else
        m_quality = new QualityWindow(m_model, uncheck, m_table.window());
    m_quality->show();
    m_quality->raise();
}

// ---- filter

void ExaminationTableControl::sltShowFilterDialog()
{
    auto *dialog = new filterDialog(m_table.properties(), *this, m_table.window());
    dialog->open();
}

void ExaminationTableControl::sltRefreshTable(const QHash<QString, QString> &filter)
{
    m_filter = filter;
    applyFilter(m_model.examinations(), m_filter);
    const QList<Examination> &examinations = std::as_const(m_model).examinations();
    m_table.setExaminations(examinations, m_model.groups());
    if (examinations.isEmpty())
        return;
    rebuildGroupByBox();
    Q_EMIT rowsAdded();
    m_window.updateAndRedraw();
    Q_EMIT sigSetSaccadeClusterStatusNone();
}

void ExaminationTableControl::sltClearFilter()
{
    sltRefreshTable(ExaminationFilter());
}

// ---- groups

void ExaminationTableControl::sltManageGroups()
{
    Q_EMIT groupsChanged();
    auto *dialog = new editGroupsDialog(m_model, colorTable(), m_table.window());
    connect(dialog, &editGroupsDialog::sigUpdateTable, this,
            qOverload<const QList<Group> &>(&ExaminationTableControl::sltRefreshTable));
    dialog->show();
}

void ExaminationTableControl::sltRefreshTable(const QList<Group> &groups)
{
    m_model.setGroups(groups);
    sltRefreshTable(m_filter);
    Q_EMIT groupsChanged();
}

void ExaminationTableControl::sltGroupChanged(int row)
{
    Examination *examination = examinationOfRow(row);
    const QComboBox *box = m_table.groupBox(row);
    if (!examination || !box)
        return;
    assignGroup(*examination, box->currentText(), box->currentIndex());
    Q_EMIT groupsChanged();
    m_window.updateAndRedraw();
}

void ExaminationTableControl::sltGroupBy(const QString &name)
{
    if (name.isEmpty())
        return;
    m_groupByBox.setCurrentIndex(0); // comes back here with an empty name
    CommandStack::instance().push(new CommandGroupBy(name, m_model, colorTable(),
                                                     [this](const QList<Group> &groups) { sltRefreshTable(groups); }));
}
