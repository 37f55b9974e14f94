// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/panel/editGroupsDialog.h"

#include "table/Grouping.h"
#include "ui_editGroupsDialog.h"

#include <algorithm>

editGroupsDialog::editGroupsDialog(DataModel &model, Group::ColorTable colors, QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::editGroupsDialog>())
    , m_model(model)
    , m_examinations(std::as_const(model).examinations())
    , m_groups(model.groups())
    , m_colors(std::move(colors))
{
    m_ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    for (const Group &group : std::as_const(m_groups))
        m_ui->removeGroupComboBox->addItem(group.name);
    connect(m_ui->addGroupButton, &QPushButton::clicked, this, &editGroupsDialog::sltCreateGroup);
    connect(m_ui->removeGroupButton, &QPushButton::clicked, this, &editGroupsDialog::sltRemoveGroup);
    connect(m_ui->okButton, &QPushButton::clicked, this, &editGroupsDialog::sltConfirmChanges);
    connect(m_ui->cancelButton, &QPushButton::clicked, this, &editGroupsDialog::reject);
}

editGroupsDialog::~editGroupsDialog() = default;

void editGroupsDialog::sltCreateGroup()
{
    const QString name = m_ui->newGroupLineEdit->text();
    if (name.isEmpty())
        return;
    m_ui->removeGroupComboBox->addItem(name);
    m_groups << Group(name, m_colors);
    m_ui->newGroupLineEdit->clear();
}

/// Of groups of the same name all go, but only the chosen entry of the list does.
void editGroupsDialog::sltRemoveGroup()
{
    const QString name = m_ui->removeGroupComboBox->currentText();
    if (name.isEmpty())
        return;
    m_groups.removeIf([&](const Group &group) { return group.name == name; });
    m_ui->removeGroupComboBox->removeItem(m_ui->removeGroupComboBox->currentIndex());
}

/// Only the membership goes back to the model: check marks and results may have changed while the dialog was open, and
/// recordings may have gone.
void editGroupsDialog::sltConfirmChanges()
{
    const QStringList names = shownGroups();
    QList<Examination> &examinations = m_model.examinations();
    const qsizetype count = std::min(m_examinations.size(), examinations.size());
    for (qsizetype i = 0; i < count; ++i) {
        assignGroup(examinations[i], m_examinations[i].groupName, m_examinations[i].groupIndex);
        keepKnownGroup(examinations[i], names);
    }
    Q_EMIT sigUpdateTable(m_groups);
    accept(); // destroys the dialog
}

QStringList editGroupsDialog::shownGroups() const
{
    QStringList names;
    for (int i = 0; i < m_ui->removeGroupComboBox->count(); ++i)
        names << m_ui->removeGroupComboBox->itemText(i);
    return names;
}
