// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableRecording.h"
#include "model/Examination.h"

/// A sample as a .data file has it.
struct DataSample {
    bool operator==(const DataSample &) const = default;

    qint64 timeMs = 0; ///< 0 or later
    TableEyeSample left;
    TableEyeSample right;
    int leftValidity = 0; ///< 1 or 0
    int rightValidity = 0;
};

/// Turns samples of a table into those of a .data file: times in whole ms, the nearest, halves upwards. Used for
/// writing a .data file and for reading straight into an examination, so that both give the same.
///
/// A clock that begins before its zero is moved so that the first sample has time 0. Samples that lie before zero even
/// then are left out. Give it the samples of one recording in their order, in as many pieces as there are.
class DataSampleMaker {
public:
    /// @return nothing for a sample that a .data file cannot hold.
    std::optional<DataSample> next(const TableSample &sample);

    /// What was changed so far; both lists of a recording, this one and its own, are to be told.
    QList<TableOddity> oddities() const;

private:
    bool m_isFirst = true;
    double m_shiftMs = 0;
    qsizetype m_rounded = 0;
    qsizetype m_beforeZero = 0;
    double m_largestRoundingMs = 0;
};

/// The line of a .data file for a sample, without its end: eleven fields with tabs between, numbers in the shortest
/// form that is read back as the same number.
QByteArray dataLine(const DataSample &sample);

/// The same with its end, behind what the text has.
void appendDataLine(const DataSample &sample, QByteArray &text);

/// The first lines of a .data file, with their ends.
QByteArray dataHeader();

/// The three streams of an examination, as the import of the .data file would give them.
///
/// The oddities of the rounding are added to those of the recording.
///
/// @return whether it has a valid sample of either eye; otherwise the examination has no samples.
bool putSamples(TableRecording &recording, Examination &examination);
