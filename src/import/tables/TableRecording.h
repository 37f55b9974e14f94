// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableProblem.h"

#include <QList>
#include <QSizeF>
#include <QStringList>

#include <array>

/// One eye at one time. Places are pixels of the screen from its upper left corner. An eye that is missing has zeros.
struct TableEyeSample {
    bool operator==(const TableEyeSample &) const = default;

    double x = 0;           ///< px
    double y = 0;           ///< px
    double pupilWidth = 0;  ///< in the file's own unit
    double pupilHeight = 0; ///< in the file's own unit
};

/// One line of a table. An eye that is not valid keeps what the file says of it.
struct TableSample {
    bool operator==(const TableSample &) const = default;

    double timeMs = 0; ///< in the file's own clock, fractions included
    TableEyeSample left;
    TableEyeSample right;
    bool leftValid = false;
    bool rightValid = false;
};

/// An entry for the set file.
struct TableEntry {
    bool operator==(const TableEntry &) const = default;

    QString key; ///< as in TableSetColumn
    QString value;
};

/// What was measured while a recording was read.
struct TableFacts {
    bool operator==(const TableFacts &) const = default;

    qsizetype samples = 0;
    qsizetype firstLine = 0; ///< of the first sample
    double firstTimeMs = 0;
    double lastTimeMs = 0;
    double medianStepMs = 0; ///< of the steps forward among the first 10,000; 0 for fewer than two samples
    double rateHz = 0;       ///< of the median step, counting equal times as one step each; 0 if not known
    double statedRateHz = 0; ///< as the file says; 0: it does not
    bool hasLeft = false;    ///< the file has columns for the eye
    bool hasRight = false;
    qsizetype leftValid = 0; ///< samples
    qsizetype rightValid = 0;
};

/// The samples of one recording of a table, in the order of its lines.
struct TableRecording {
    QString name; ///< for files: the table's name, with the values of its split columns or the number of its trial
    QStringList splitValues;
    QList<TableEntry> entries;
    QList<TableSample> samples; ///< empty where they were handed on in pieces
    QSizeF screenPx{0, 0};      ///< 0: not known
    TableFacts facts;
    QList<TableOddity> oddities; ///< in the order of the kinds
};

/// What came of a table.
struct TableContent {
    QList<TableRecording> recordings; ///< in the order of their first lines
    QList<TableOddity> oddities;      ///< of lines that belong to no recording
    QStringList messageWords;         ///< of event logs: first words of their messages, the most frequent first
};
