// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recording/RecordingJournal.h"

#include <mutex>

/// The frames of a recorder, in one list that grows, and their journal. Each operation may be called from any thread:
/// the tracker adds while the window saves.
///
/// A frame takes 84 bytes: an hour at 60 frames a second 18 MB, a day at 1000 frames a second 7.3 GB.
class FrameStore {
public:
    /// @param journalFolder  where the journal of unsaved frames lies; empty: there is none.
    explicit FrameStore(QString journalFolder) : m_journalFolder(std::move(journalFolder)) {}

    void startRecording();
    void stopRecording();
    bool isRecording() const;

    /// Appends the frame while recording, else nothing.
    void add(const gtl::GazeData &frame);

    qsizetype count() const;
    qsizetype unsavedCount() const;
    /// Up to `count` frames from `first` on.
    QList<gtl::GazeData> frames(qsizetype first, qsizetype count) const;

    /// The first frames have been saved as a recording.
    void markSaved(qsizetype frames);
    /// Takes over an interrupted recording: its frames stand before all others. For an empty store.
    void resume(const QString &journalPath);
    /// The frames are not wanted any more, and there is nothing left to resume.
    void discardJournal();

    /// Why frames are not in the journal, in words for the user; empty if all is well.
    QString journalProblem() const;

private:
    QString m_journalFolder;
    mutable std::mutex m_mutex; ///< of all below
    QList<gtl::GazeData> m_frames;
    bool m_isRecording = false;
    qsizetype m_savedFrames = 0;
    RecordingJournal m_journal;
};
