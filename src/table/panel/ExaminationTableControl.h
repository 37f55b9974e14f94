// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Group.h"
#include "table/ExaminationFilter.h"

#include <QObject>
#include <QPointer>

#include <functional>

class DataModel;
class ExaminationTable;
class IMainWindow;
class QComboBox;
class QTableWidgetItem;
class QualityWindow;

/// Joins the table of examinations with the model: check marks, filter, groups and colours. The current filter starts
/// empty.
class ExaminationTableControl : public QObject {
    Q_OBJECT
public:
    using ColorTableSource = std::function<Group::ColorTable()>;
    /// Asks the user for a colour in place of this one; an invalid colour means that there is none.
    using ColorChooser = std::function<QColor(const QColor &)>;

    /// @param groupByBox  filled with the properties that groups can be made of; a choice makes them.
    ExaminationTableControl(ExaminationTable &table, QComboBox &groupByBox, DataModel &model, IMainWindow &window,
                            QObject *parent);

    /// What new groups start with; asked for whenever groups are made.
    void setColorTable(ColorTableSource colorTable) { m_colorTable = std::move(colorTable); }

    /// Replaces the colour dialog.
    void setColorChooser(ColorChooser choose) { m_chooseColor = std::move(choose); }

    const ExaminationFilter &filter() const { return m_filter; }

    /// Adds the row of a new examination.
    void addExamination(const Examination &examination);

Q_SIGNALS:
    void sigSetSaccadeClusterStatusNone();

    /// The user changed a check mark: all of this span is to be shown, in ms, at least 1000.
    void timeSpanWanted(qint64 spanMs);

    /// Lists of groups are out of date.
    void groupsChanged();

    /// Lists of images may be out of date.
    void rowsAdded();

public Q_SLOTS:
    void sltCheck();
    void sltUncheck();
    void sltTableCheckboxClicked(int row);
    void slt_table_item_double_clicked(QTableWidgetItem *item);

    /// Opens the window of data quality, or measures anew in the one that is open.
    void sltShowQuality();

    void sltShowFilterDialog();
    /// Applies the filter, which only ever unchecks, and builds all rows anew.
    void sltRefreshTable(const QHash<QString, QString> &filter);
    /// No row is checked by this, and there is no undo.
    void sltClearFilter();

    void sltManageGroups();
    /// Takes new groups and builds all rows anew, with the current filter applied once more.
    void sltRefreshTable(const QList<Group> &groups);
    void sltGroupChanged(int row);
    /// Makes groups of the values of a property, by a command; nothing for an empty name.
    void sltGroupBy(const QString &name);

private:
    Group::ColorTable colorTable() const { return m_colorTable ? m_colorTable() : Group::ColorTable(); }
    Examination *examinationOfRow(int row);
    void rebuildGroupByBox();
    void chooseColor(QTableWidgetItem &cell);

    ExaminationTable &m_table;
    QComboBox &m_groupByBox;
    DataModel &m_model;
    IMainWindow &m_window;
    ExaminationFilter m_filter;
    ColorTableSource m_colorTable;
    ColorChooser m_chooseColor;
    QPointer<QualityWindow> m_quality; ///< a child of the table's window
};
