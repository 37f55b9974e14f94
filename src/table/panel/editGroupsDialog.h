// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataModel.h"

#include <QDialog>

#include <memory>

namespace Ui {
class editGroupsDialog;
}

/// Makes and removes groups. It works on copies, taken when it opens, and destroys itself.
class editGroupsDialog : public QDialog {
    Q_OBJECT
public:
    /// @param colors  what new groups start with.
    editGroupsDialog(DataModel &model, Group::ColorTable colors, QWidget *parent);
    ~editGroupsDialog() override;

Q_SIGNALS:
    /// The user confirmed these groups.
    void sigUpdateTable(const QList<Group> &groups);

public Q_SLOTS:
    void sltCreateGroup();
    void sltRemoveGroup();
    void sltConfirmChanges();

private:
    QStringList shownGroups() const;

    std::unique_ptr<Ui::editGroupsDialog> m_ui;
    DataModel &m_model;
    const QList<Examination> m_examinations;
    QList<Group> m_groups;
    const Group::ColorTable m_colors;
};
