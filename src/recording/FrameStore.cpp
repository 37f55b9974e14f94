// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/FrameStore.h"

#include <algorithm>

static_assert(sizeof(gtl::GazeData) == 84);

using Lock = std::lock_guard<std::mutex>;

void FrameStore::startRecording()
{
    const Lock lock(m_mutex);
    if (!m_journal.isOpen() && !m_journalFolder.isEmpty()) {
        m_journal.create(m_journalFolder);
        for (const gtl::GazeData &frame : std::as_const(m_frames))
            m_journal.append(frame);
        if (m_savedFrames > 0)
            m_journal.markSaved(m_savedFrames);
    }
    m_isRecording = true;
}

void FrameStore::stopRecording()
{
    const Lock lock(m_mutex);
    m_isRecording = false;
}

bool FrameStore::isRecording() const
{
    const Lock lock(m_mutex);
    return m_isRecording;
}

void FrameStore::add(const gtl::GazeData &frame)
{
    const Lock lock(m_mutex);
    if (!m_isRecording)
        return;
    m_frames.append(frame);
    if (m_journal.isOpen())
        m_journal.append(frame);
}

qsizetype FrameStore::count() const
{
    const Lock lock(m_mutex);
    return m_frames.size();
}

qsizetype FrameStore::unsavedCount() const
{
    const Lock lock(m_mutex);
    return m_frames.size() - m_savedFrames;
}

QList<gtl::GazeData> FrameStore::frames(qsizetype first, qsizetype count) const
{
    const Lock lock(m_mutex);
    return m_frames.mid(first, count);
}

void FrameStore::markSaved(qsizetype frames)
{
    const Lock lock(m_mutex);
    m_savedFrames = std::max(m_savedFrames, frames);
    if (m_journal.isOpen())
        m_journal.markSaved(m_savedFrames);
}

void FrameStore::resume(const QString &journalPath)
{
    const Lock lock(m_mutex);
    JournalContent content = m_journal.adopt(journalPath);
    m_frames = std::move(content.frames);
    m_savedFrames = content.savedFrames;
}

void FrameStore::discardJournal()
{
    const Lock lock(m_mutex);
    m_journal.removeFile();
}

QString FrameStore::journalProblem() const
{
    const Lock lock(m_mutex);
    return m_journal.problem();
}
