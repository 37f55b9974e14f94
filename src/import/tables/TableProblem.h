// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Why a table, a log or a layout is refused, in parts that a program can show where they belong.
struct TableProblem {
    bool operator==(const TableProblem &) const = default;

    /// "p01.csv, line 12, column 3: found "abc", expected a number in column time. Choose the column that has the
    /// times." Parts that are not known are left out.
    QString text() const;

    QString file = {};     ///< path as it was given; empty for bytes in memory
    qsizetype line = 0;    ///< from 1; 0: concerns the whole file
    qsizetype column = 0;  ///< field of the line, from 1; 0: concerns the whole line
    QString found = {};    ///< without a stop at its end
    QString expected = {}; ///< without a stop at its end; may be empty
    QString remedy = {};   ///< one sentence, or empty
};

/// What can be odd in a recording that is read all the same.
enum class TableOddityKind {
    NotANumber,      ///< a field is neither a number nor a code for missing: the eye counts as missing there
    TimeNotANumber,  ///< the line has no time and is left out
    RepeatedTime,    ///< the time of the sample before it
    BackwardTime,    ///< earlier than the sample before it
    TimeJump,        ///< far later than the rate of the recording lets expect
    OutsideTrial,    ///< a sample of a log that is split lies between two trials, and is left out
    RecordingPause,  ///< an event log stopped and started again
    ImplausibleRate, ///< too slow or too fast for an eye tracker: most likely the unit of time is another one
    OutsideScreen,   ///< a valid position beyond the screen
    EyeAbsent,       ///< the file has no columns for this eye
    EyeNeverValid,   ///< the eye has columns, but not one valid sample
    EyeLost,         ///< samples without this eye
    ColumnsChanged,  ///< a line has another number of fields than the lines before; left out if a needed one is missing
    FewerColumns,    ///< a line ends before the last column, behind all that is needed, and is read
    UnknownLine,     ///< a line of a log that is none of the known ones, and is passed over
    RoundedTime,     ///< the time is no whole number of ms and is rounded in a .data file
    BeforeZeroTime,  ///< before the zero of the clock: a .data file cannot hold it
};

/// Something odd, how often and where first.
struct TableOddity {
    bool operator==(const TableOddity &) const = default;

    TableOddityKind kind = TableOddityKind::NotANumber;
    qsizetype count = 0;
    qsizetype firstLine = 0; ///< number among all lines of the file, from 1; 0 where it has no line
    QString sentence;        ///< for the user, with count and first line
};

/// The kind as one word for reports, such as "backwardTime".
QString oddityWord(TableOddityKind kind);
