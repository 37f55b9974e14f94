// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/RecordingText.h"

#include <array>
#include <utility>

/// What a line of a recording is, by its first characters.
enum class LineClass {
    Header,      ///< begins with "#": remarks of the program that wrote the file
    ColumnNames, ///< begins with "time"
    Filler,      ///< begins with four characters of value 0xFD, which some programs write
    Other,       ///< does not begin with a digit
    Sample,      ///< begins with a digit
};

/// @param line  a line without its end, in Latin-1 or UTF-8.
LineClass lineClass(QByteArrayView line);

constexpr std::size_t sampleFieldCount = 11;
using SampleFields = std::array<QByteArrayView, sampleFieldCount>;

/// Whether a line would be a sample line but for what stands before its first digit, such as a blank, a quote or a
/// sign.
bool isShiftedSample(QByteArrayView line);

/// The fields of a sample line, separated by single tabs; nothing unless there are exactly 11. Fields may be empty.
std::optional<SampleFields> splitSampleLine(QByteArrayView line);

/// Fields that were no numbers, by what they look like.
struct FieldFaults {
    bool operator==(const FieldFaults &) const = default;

    qsizetype noNumbers = 0;
    qsizetype decimalCommas = 0; ///< such as "12,5"
    qsizetype decimalTimes = 0;  ///< times such as "12.5" or "12,5"
};

/// Reads the number fields of one recording. A field that is no number counts as 0.
///
/// Each function gives what the conversion of QString of the same name gives for the field's text, to the last bit.
/// Plain decimals, nearly all fields, are read from the bytes; the rest becomes a QString. A field longer than
/// `longestFieldBytes` counts as no number: no program writes one, and its text could exhaust the memory.
/// An empty field and "nan" are how programs write that there is no value; other fields that are no numbers are
/// counted.
class FieldReader {
public:
    static constexpr qsizetype longestFieldBytes = qsizetype(1) << 20;

    explicit FieldReader(RecordingText &text) : m_text(text) {}

    double toDouble(QByteArrayView field);
    /// As `toLongLong`; a fault counts as one of times.
    qint64 toTime(QByteArrayView field);
    qint64 toLongLong(QByteArrayView field);
    int toInt(QByteArrayView field);

    /// What was counted since the last call.
    FieldFaults takeFaults() { return std::exchange(m_faults, {}); }

private:
    /// @param isNumber  of a field that is not plain.
    void count(QByteArrayView field, bool isNumber);
    QString textOf(QByteArrayView field);

    RecordingText &m_text;
    FieldFaults m_faults;
};
