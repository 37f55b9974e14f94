#pragma once

#include "import/RecordingText.h"

#include <array>

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

/// The fields of a sample line, separated by single tabs; nothing unless there are exactly 11. Fields may be empty.
std::optional<SampleFields> splitSampleLine(QByteArrayView line);

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
    qint64 toLongLong(QByteArrayView field);
    int toInt(QByteArrayView field);

    /// How many fields were no numbers so far.
    qsizetype noNumbers() const { return m_noNumbers; }

private:
    /// @param isNumber  of a field that is not plain.
    void count(QByteArrayView field, bool isNumber);
    QString textOf(QByteArrayView field);

    RecordingText &m_text;
    qsizetype m_noNumbers = 0;
};
