// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recording/client/Records.h"

#include <QFile>
#include <QList>
#include <QLockFile>
#include <QString>
#include <QStringList>

#include <memory>

Q_DECLARE_TYPEINFO(gtl::GazeData, Q_RELOCATABLE_TYPE); // a list of them grows without copying each

/// What a journal that nobody writes any more has kept.
struct JournalContent {
    QList<gtl::GazeData> frames;
    qsizetype savedFrames = 0; ///< the first ones, which were also saved as a recording
    qint64 goodBytes = 0;      ///< of the file, up to the end or the damage
};

/// The file in which a recording lies while it is not saved, so that it survives the end of the program in any way.
///
/// Each frame is with the operating system before the call returns. A journal belongs to the process that holds its
/// lock; the lock of a process that is gone does not count.
class RecordingJournal {
public:
    /// Where journals lie: in the user's data folder.
    static QString defaultFolder();

    /// Journals in the folder that hold unsaved frames and belong to no living process; the oldest first. Those that
    /// hold nothing unsaved are removed.
    static QStringList interrupted(const QString &folder);

    /// The frames of a journal, up to the first place where it is damaged. The last one may have been cut by the end of
    /// the program.
    static JournalContent read(const QString &path);

    /// Removes a journal that belongs to no living process.
    static void remove(const QString &path);

    /// Begins a new journal in the folder, which is made where it is missing.
    void create(const QString &folder);
    /// Takes over an interrupted one: frames go on behind those that it has, which are returned.
    JournalContent adopt(const QString &path);

    /// Whether there is a journal, created or adopted.
    bool isOpen() const { return m_file != nullptr; }

    /// What could not be written, in words for the user; empty if all is well. From the first failure on nothing is
    /// written any more.
    QString problem() const { return m_problem; }

    void append(const gtl::GazeData &frame);
    /// The first frames have been saved as a recording.
    void markSaved(qsizetype frames);
    /// Ends the journal: nothing in it is needed any more.
    void removeFile();

private:
    enum class Kind : quint8 { Frame = 'F', Saved = 'S' };
    static QByteArray record(Kind kind, const QByteArray &payload);
    void open(const QString &path, QIODevice::OpenMode mode);
    void write(const QByteArray &bytes);

    std::unique_ptr<QLockFile> m_lock;
    std::unique_ptr<QFile> m_file;
    QString m_problem;
};
