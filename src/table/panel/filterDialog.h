// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "table/ExaminationFilter.h"

#include <QDialog>

class ExaminationTableControl;
class QFormLayout;
class QLineEdit;

/// Asks for the values that examinations need to stay checked: one line edit for each property of the table, and one
/// for the duration. It acts through an undo command and destroys itself.
class filterDialog : public QDialog {
    Q_OBJECT
public:
    /// @param labels  the properties, in the order of the columns.
    filterDialog(const QStringList &labels, ExaminationTableControl &table, QWidget *parent);

Q_SIGNALS:
    void sigUpdateTable(const QHash<QString, QString> &filter);

public Q_SLOTS:
    void sltConfirmFilter();

private:
    void addLine(QFormLayout &form, const QString &key, const QString &label, const QString &toolTip);
    QWidget *makeForm(const QStringList &labels);
    QWidget *makeButtons();

    ExaminationTableControl &m_table;
    const ExaminationFilter m_oldFilter;
    QHash<QString, QLineEdit *> m_lines; ///< by key of the filter
};
