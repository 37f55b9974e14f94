// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/SessionRecord.h"
#include "report/MethodsRecord.h"

#include <QObject>

class DataModel;
class PictureControl;
class SaccadeClusterModel;
class QWidget;
struct TransitionChoice;

/// What was done in the window since its start, for a paper and for the batch program: the methods section and the
/// recipe.
class SessionControl : public QObject {
    Q_OBJECT
public:
    /// All outlive this.
    /// @param window  parent of dialogs.
    SessionControl(const DataModel &model, const SaccadeClusterModel &saccades, const PictureControl &picture,
                   QWidget &window);

    /// Steps that are no command of the undo stack.
    void note(const recipe::Step &step) { m_record.note(step); }
    /// @param word  the table's in the batch program.
    void noteTable(const QString &word, const QString &stem);
    void noteTransitions(const QString &stem, const TransitionChoice &choice);

    /// Saves what was done and not undone; tells where, and what a replay leaves out.
    void saveRecipe(const QString &path);

public Q_SLOTS:
    /// Asks for a file first.
    void sltSaveRecipe();
    /// What was done, as a text for a paper.
    void sltShowMethods();

private:
    MethodsRun methodsRun() const;

    const DataModel &m_model;
    const SaccadeClusterModel &m_saccades;
    QWidget &m_window;
    const QMap<QString, QString> m_delivered; ///< the parameters as the program is delivered
    SessionRecord m_record;
};
