// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGroupBox>

class DataModel;
class QComboBox;
class QTableWidget;

/// Compares groups of the checked examinations, by subject, and shows the result as a table.
class GroupComparisonWidget : public QGroupBox {
    Q_OBJECT
public:
    explicit GroupComparisonWidget(QWidget *parent = nullptr);

    /// @param model  must outlive the widget; until one is set nothing is compared.
    void setModel(DataModel *model) { m_model = model; }

public Q_SLOTS:
    /// Measures the checked examinations in the time frame, for the eyes that are shown.
    void compare();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void listColumns();
    void chooseColumn(const QString &name);

    DataModel *m_model = nullptr;
    QComboBox *m_columns;  ///< a child
    QTableWidget *m_table; ///< a child
};
