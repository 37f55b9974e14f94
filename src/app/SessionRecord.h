// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recipe/RecipeBuilder.h"

#include <QHash>
#include <QObject>

#include <functional>

class QUndoCommand;
class QUndoStack;

/// What was done in the window, for a recipe: the commands of the undo stack that were not undone, with what held when
/// they ran, and what is no command.
class SessionRecord : public QObject {
    Q_OBJECT
public:
    using ContextSource = std::function<recipe::Context()>;

    /// @param stack    is followed from now on; must outlive the record.
    /// @param context  asked for after each command that a recipe has, and with each note.
    SessionRecord(const QUndoStack &stack, ContextSource context, QObject *parent);

    /// A step that is no command. Undo passes it by: it stands behind the commands that are left.
    void note(const recipe::Step &step);

    /// Something that was done and that no replay does, for people. Each is told once.
    void noteBeside(const QString &what);

    /// The steps so far.
    ///
    /// @param delivered  the parameters as the program is delivered.
    recipe::Recipe recipe(const QString &release, const QMap<QString, QString> &delivered,
                          const DataModel &model) const;

private:
    struct Note {
        int index = 0; ///< number of commands before it
        recipe::Context context;
        recipe::Step step;
    };

    void follow(int index);
    void addCommand(recipe::RecipeBuilder &builder, int place, QMap<QString, QString> &folders) const;
    void addNotes(recipe::RecipeBuilder &builder, int index, QMap<QString, QString> &folders) const;
    void leaveOutForeign(recipe::RecipeBuilder &builder, const DataModel &model) const;

    const QUndoStack &m_stack;
    const ContextSource m_context;
    QHash<int, recipe::Context> m_contexts; ///< by place on the stack
    QList<Note> m_notes;
    QStringList m_beside;
    int m_index = 0;
};
