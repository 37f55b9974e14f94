// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/PlaceTransform.h"
#include "import/tables/RecordingCollector.h"
#include "import/tables/TableBytes.h"

#include <QHash>

/// Reads a log in which lines of samples stand among events and messages (.asc); lives for the length of one call.
///
/// A block of samples begins with START, which names its eyes, and ends with END. SAMPLES tells eyes, kind and rate,
/// the message GAZE_COORDS the screen. A line of samples is time, then x, y and pupil of each eye, "." where it is
/// lost; what stands behind is passed over. A log is one recording, whatever its blocks, unless the layout names the
/// message that begins a trial.
class EventLogReader {
public:
    EventLogReader(TableBytes &bytes, const QString &file, const TableLayout &layout, const TableReadOptions &options);

    std::variant<TableContent, TableProblem> read();

private:
    enum class Then { GoOn, Stop };

    Then readLines(QByteArrayView lines);
    Then readLine(QByteArrayView line);
    Then readSample(QByteArrayView line);
    Then addSample(const TableSample &sample);
    void readOther(QByteArrayView line);
    void startBlock(QByteArrayView line);
    void readSampleKind(QByteArrayView line);
    void readMessage(QByteArrayView line);
    void readScreen(QByteArrayView text);
    void readTrialVariable(QByteArrayView text);
    void countWord(QByteArrayView text);
    void beginTrial(const QString &name);
    void openRecording(const QStringList &parts);
    void setEyes(QByteArrayView line);
    std::variant<TableContent, TableProblem> finish();

    TableBytes &m_bytes;
    QString m_file;
    const TableLayout &m_layout;
    PlaceTransform m_place;
    QByteArray m_begin;
    QByteArray m_end;

    qsizetype m_line = 0;
    bool m_hasLeft = false;
    bool m_hasRight = false;
    bool m_isInTrial = false;
    double m_rateHz = 0;
    double m_shiftX = 0; ///< of the screen's corner in the log's coordinates, px
    double m_shiftY = 0;
    QSizeF m_screenPx{0, 0};
    qsizetype m_current = -1;
    qsizetype m_trials = 0;
    std::optional<TableProblem> m_problem;
    RecordingCollector m_recordings;
    OddityCounts m_oddities; ///< of lines that belong to no recording
    QHash<QByteArray, qsizetype> m_words;
};
