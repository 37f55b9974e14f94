// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/panel/GroupComparisonWidget.h"

#include "base/Messages.h"
#include "detection/StoredGeometry.h"
#include "export/MeasureExport.h"
#include "export/panel/GroupColumns.h"
#include "settings/StoredKeys.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <memory>

namespace {

/// Numbers as users read them; the exported table has all digits.
QString shortened(const QString &field)
{
    bool isNumber = false;
    const double value = field.toDouble(&isNumber);
    constexpr int digits = 4;
    return isNumber ? QString::number(value, 'g', digits) : field;
}

} // namespace

GroupComparisonWidget::GroupComparisonWidget(QWidget *parent)
    : QGroupBox(QStringLiteral("Comparison of groups"), parent)
    , m_columns(new QComboBox(this))
    , m_table(new QTableWidget(this))
{
    m_columns->setObjectName(QStringLiteral("groupColumnComboBox"));
    m_table->setObjectName(QStringLiteral("groupComparisonTable"));
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto *button = new QPushButton(QStringLiteral("Compare groups"), this);
    button->setObjectName(QStringLiteral("compareGroupsButton"));
    button->setToolTip(QStringLiteral("Measures of areas and scanpaths by group: each subject counts once"));
    auto *label = new QLabel(QStringLiteral("Groups by:"), this);
    label->setBuddy(m_columns);
    auto *layout = new QVBoxLayout(this);
    for (QWidget *each : std::initializer_list<QWidget *>{label, m_columns, button, m_table})
        layout->addWidget(each);
    m_columns->setToolTip(QStringLiteral("The exported comparison goes by this entry, too"));
    connect(m_columns, &QComboBox::textActivated, this, &GroupComparisonWidget::chooseColumn);
    connect(button, &QPushButton::clicked, this, &GroupComparisonWidget::compare);
    listColumns();
}

void GroupComparisonWidget::showEvent(QShowEvent *event)
{
    QGroupBox::showEvent(event);
    listColumns();
}

/// The choice stays if it is still there.
void GroupComparisonWidget::listColumns()
{
    listGroupColumns(*m_columns, m_model, m_model ? m_model->comparedBy : QString(defaultGroupColumn));
}

/// The exported table follows the choice.
void GroupComparisonWidget::chooseColumn(const QString &name)
{
    if (m_model)
        m_model->comparedBy = name;
}

void GroupComparisonWidget::compare()
{
    if (!m_model)
        return;
    const QList<QStringList> rows =
        groupComparisonRows(*m_model, eyeMode(), {.pixelPerDistance = storedPixelPerDistance()});
    if (rows.size() < 2)
        messages::information(title(), noGroupsText(*m_model));
    const QStringList &header = rows.first();
    m_table->clear();
    m_table->setColumnCount(static_cast<int>(header.size()));
    m_table->setRowCount(static_cast<int>(rows.size()) - 1);
    m_table->setHorizontalHeaderLabels(header);
    for (int row = 1; row < rows.size(); ++row) {
        for (int column = 0; column < header.size(); ++column)
            m_table->setItem(row - 1, column,
                             std::make_unique<QTableWidgetItem>(shortened(rows[row][column])).release());
    }
    m_table->resizeColumnsToContents();
}
