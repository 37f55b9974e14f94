// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Log.h"
#include "commands/ChangesPicture.h"
#include "commands/IMainWindow.h"
#include "import/ExaminationImport.h"
#include "model/DataModel.h"

#include <QListWidget>
#include <QUndoCommand>

#include <functional>

/// Lets the user select recordings, beginning in the folder; an empty list means that nothing was selected.
using RecordingChooser = std::function<QStringList(const QString &folder)>;

/// Asks for recordings and adds them to the list of files. Commands of a cancelled dialog stay on the stack and do
/// nothing.
class CommandDataAdd : public QUndoCommand {
public:
    CommandDataAdd(QListWidget &files, RecordingChooser choose, const Log *log);

    void undo() override;
    /// The first time asks the user; later puts back what was selected then.
    void redo() override;

private:
    void askUser();
    void showFiles(const QStringList &paths, const QString &logPrefix);

    QListWidget &m_files;
    RecordingChooser m_choose;
    const Log *m_log;
    QStringList m_previous;
    QStringList m_added;
    bool m_firstRun = true;
};

/// Takes recordings off the list of files. Undo adds them at its end.
class CommandDataRemove : public QUndoCommand {
public:
    CommandDataRemove(QListWidget &files, QStringList removed, const Log *log);

    void undo() override;
    void redo() override;

private:
    QListWidget &m_files;
    QStringList m_removed;
    const Log *m_log;
};

/// Reads the listed recordings into the model and empties the list. Undo deletes the examinations and lists the paths
/// again; what was read is not kept, so that redo reads the files as they are then. The picture follows both; the first
/// time it is drawn by whoever pushes the command.
class CommandDataImport : public QUndoCommand {
public:
    CommandDataImport(DataModel &model, IMainWindow &window, QListWidget &files, const Log *log);

    void undo() override;
    void redo() override;

    /// What was listed at the last redo.
    const QStringList &paths() const { return m_paths; }
    /// Base names of those that could not be read.
    const QStringList &notRead() const { return m_outcome.notRead; }

private:
    DataModel &m_model;
    IMainWindow &m_window;
    QListWidget &m_files;
    const Log *m_log;
    bool m_firstRun = true;
    QStringList m_paths;
    ImportOutcome m_outcome; ///< of these paths
};

/// Adds a stimulus image that belongs to no examination. The list of images is rebuilt by whoever pushes it.
class CommandPictureImport : public QUndoCommand, public ChangesPicture {
public:
    CommandPictureImport(DataModel &model, QString path);

    void undo() override;
    void redo() override;

private:
    DataModel &m_model;
    QString m_path;
};
