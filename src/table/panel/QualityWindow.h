// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataModel.h"
#include "table/panel/QualityTable.h"

#include <QDialog>

#include <functional>

class QDoubleSpinBox;
class QLabel;
class QPushButton;

/// The data quality of all examinations, through the eyes that are shown, with limits that the user sets. The limits
/// decide what is marked and nothing else; they are kept beside the places of windows.
class QualityWindow : public QDialog {
    Q_OBJECT
public:
    /// Unchecks the examinations with these running numbers, as clicks on their boxes would.
    using Uncheck = std::function<void(const QList<int> &numbers)>;

    /// @param model  must outlive the window.
    QualityWindow(const DataModel &model, Uncheck uncheck, QWidget *parent);

    /// Measures the examinations in the time frame as they are now.
    void measure();

    const QualityTable &table() const { return *m_table; }

private:
    void makeLayout();
    QWidget *makeLimits();
    QList<double> limits() const;
    void recallLimits();
    void restoreUsualLimits();
    void changeLimits();
    void uncheckSelected();
    void showSelection();
    void noteChange();

    const DataModel &m_model;
    const Uncheck m_uncheck;
    QList<QualityRow> m_rows;
    QList<QDoubleSpinBox *> m_limits; ///< children, as all that follow
    QualityTable *m_table;
    QLabel *m_state;
    QPushButton *m_uncheckButton;
};
