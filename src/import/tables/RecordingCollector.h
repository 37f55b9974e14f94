// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/RecordingBuilder.h"

#include <deque>

/// The recordings of a table while it is read: they are kept, or their samples handed on piece by piece.
class RecordingCollector {
public:
    static constexpr qsizetype mostRecordings = 100'000;

    RecordingCollector(const QString &file, const TableLayout &layout, const TableReadOptions &options);

    qsizetype size() const { return static_cast<qsizetype>(m_recordings.size()); }
    RecordingBuilder &operator[](qsizetype index) { return m_recordings[static_cast<std::size_t>(index)]; }

    /// @param parts  of its name behind that of the table.
    /// @return its index; -1 where there are too many, which is a problem.
    qsizetype add(const QStringList &parts, bool hasLeft, bool hasRight);

    /// @return false: enough samples for the options.
    bool addSample(qsizetype recording, const TableSample &sample, qsizetype line)
    {
        RecordingBuilder &builder = (*this)[recording];
        if (builder.recording.samples.isEmpty())
            m_touched << recording;
        builder.add(sample, line);
        ++m_samples;
        return m_samples != m_options.sampleLimit;
    }
    qsizetype samples() const { return m_samples; }

    /// Room in the first recording, where there is no other.
    /// @param bytesPerSample  as measured; the rest of the file is expected to be alike.
    void reserve(qint64 restBytes, qsizetype bytesPerSample);

    /// To be called between two groups of lines.
    /// @return false: whoever takes the samples has enough.
    bool handOn(double part);

    QList<TableRecording> finish();

private:
    QString m_baseName;
    TableGeometry m_place;
    const TableReadOptions &m_options;
    std::deque<RecordingBuilder> m_recordings;
    QList<qsizetype> m_touched; ///< recordings with samples that were not handed on
    qsizetype m_samples = 0;
};
