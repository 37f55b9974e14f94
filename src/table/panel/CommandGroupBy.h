// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataModel.h"

#include <QUndoCommand>

#include <functional>

/// Groups of the values of a property.
///
/// The undo gives the examinations their former groups, and takes away the groups that the command made, with the
/// colours that they have by then; they come back with the redo. Groups that others made since stay.
class CommandGroupBy : public QUndoCommand {
public:
    /// Stores the groups in the model and shows them.
    using Show = std::function<void(const QList<Group> &)>;

    /// @param colors  what new groups start with.
    CommandGroupBy(QString property, DataModel &model, Group::ColorTable colors, Show show);

    void undo() override;
    void redo() override;

private:
    struct Membership {
        QString name;
        int index;
    };

    const QString m_property;
    DataModel &m_model;
    const Group::ColorTable m_colors;
    const Show m_show;
    QList<Membership> m_before; ///< in the order of the examinations
    QStringList m_madeNames;    ///< of the groups that came with the command
    QList<Group> m_made;        ///< while they are taken away
};
