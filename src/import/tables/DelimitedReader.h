// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/ColumnPlan.h"
#include "import/tables/PlaceTransform.h"
#include "import/tables/RecordingCollector.h"
#include "import/tables/TableBytes.h"
#include "import/tables/TableFields.h"

#include <QHash>

/// Reads a table of columns; lives for the length of one call.
class DelimitedReader {
public:
    DelimitedReader(TableBytes &bytes, const QString &file, const TableLayout &layout, const TableReadOptions &options);

    std::variant<TableContent, TableProblem> read();

private:
    /// What becomes of the lines behind the current one.
    enum class Then { GoOn, Stop };

    Then readLines(QByteArrayView lines);
    Then readLine(const char *at, const char *end);
    Then lookForHeader(QByteArrayView line);
    Then setColumns(const QStringList &names);
    QStringList namesIn(QByteArrayView line) const;

    template <bool isBlankSeparated>
    qsizetype walkFields(const char *at, const char *end);
    const char *readOther(qsizetype place, const char *at, const char *end);
    qsizetype fieldsIn(const char *at, const char *end) const;
    bool isWhole(qsizetype count, QByteArrayView line) const;
    Then checkFirstLine(qsizetype count, QByteArrayView line);

    Then addSample();
    Then lineWithoutTime();
    double timeOf(qsizetype recording);
    bool readEye(const ColumnPlan::Eye &eye, TableEyeSample &sample);
    double pupilOf(int place);
    bool isValid(int place);
    std::optional<std::array<bool, 2>> eyesOfLine() const;
    qsizetype recordingOfLine(std::array<bool, 2> eyes);
    qsizetype newRecording(std::array<bool, 2> eyes);
    Then fail(const TableProblem &problem);
    std::variant<TableContent, TableProblem> finish();

    struct Kept {
        FieldValue value;
        QByteArrayView text;
    };
    /// Clock times count on beyond midnight.
    struct DayClock {
        double lastMs = 0;
        double offsetMs = 0;
    };

    TableBytes &m_bytes;
    QString m_file;
    const TableLayout &m_layout;
    const TableReadOptions &m_options;
    QByteArray m_comment;
    NumberFields m_numbers;
    PlaceTransform m_place;
    QList<FieldValue> m_codes; ///< of validity, as numbers where they are
    QList<QByteArray> m_codeTexts;

    std::optional<ColumnPlan> m_plan;
    std::vector<Kept> m_kept;
    const char *m_readable = nullptr; ///< end of the lines in memory
    bool m_hasNames = false;          ///< any column is given by name
    bool m_isOnlyRecording = false;   ///< nothing separates recordings
    bool m_isFirstLine = true;        ///< no line of samples was met so far
    qsizetype m_line = 0;             ///< number of the current one, from 1
    qsizetype m_firstHeader = 0;      ///< a line that could have been the header
    QStringList m_firstNames;
    std::optional<TableProblem> m_timeProblem; ///< of the first line without time
    std::optional<TableProblem> m_problem;

    RecordingCollector m_recordings;
    OddityCounts m_oddities; ///< of lines that belong to no recording
    QHash<QByteArray, qsizetype> m_indices;
    QByteArray m_key;    ///< of the recording of the line before
    QByteArray m_newKey; ///< of the current line
    qsizetype m_current = -1;
    std::vector<DayClock> m_clocks;
};
