// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/SampleLine.h"

#include "import/PlainNumber.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace {

/// Digits with an optional sign before and an optional point between them.
std::optional<double> plainDecimal(QByteArrayView field)
{
    const PlainNumber number = scanPlainNumber(field.begin(), field.end(), '.');
    if (!number.isPlain() || number.end != field.end())
        return std::nullopt;
    if (number.isExact())
        return number.value();
    double value = 0;
    const auto result = std::from_chars(field.begin(), field.end(), value, std::chars_format::fixed);
    return result.ec == std::errc() ? std::optional(value) : std::nullopt;
}

/// The two ways in which programs write that there is no value; half of a recording can be made of them.
std::optional<double> missingValue(QByteArrayView field)
{
    if (field.isEmpty())
        return 0.0;
    if (field.compare("nan", Qt::CaseInsensitive) == 0)
        return std::numeric_limits<double>::quiet_NaN();
    return std::nullopt;
}

/// Digits with an optional sign, too few to leave 64 bits.
std::optional<qint64> plainInteger(QByteArrayView field)
{
    const char *at = field.begin();
    const char *const end = field.end();
    const bool negative = at != end && *at == '-';
    if (negative)
        ++at;
    if (at == end || end - at > PlainNumber::safeDigits)
        return std::nullopt;
    qint64 value = 0;
    for (; at != end; ++at) {
        if (!isDigit(*at))
            return std::nullopt;
        value = value * 10 + (*at - '0');
    }
    return negative ? -value : value;
}

/// What stands between the digits of a number with decimals: '.' or ','; 0 for any other text.
char decimalSign(QByteArrayView field)
{
    if (!field.isEmpty() && (field.front() == '-' || field.front() == '+'))
        field = field.sliced(1);
    char sign = 0;
    qsizetype digits = 0; // since the start or the sign
    for (const char byte : field) {
        if (isDigit(byte)) {
            ++digits;
        } else if ((byte == '.' || byte == ',') && sign == 0 && digits > 0) {
            sign = byte;
            digits = 0;
        } else {
            return 0;
        }
    }
    return digits > 0 ? sign : char(0);
}

} // namespace

LineClass lineClass(QByteArrayView line)
{
    if (!line.isEmpty() && isDigit(line.front())) // nearly every line, and none of the others
        return LineClass::Sample;
    if (line.startsWith('#'))
        return LineClass::Header;
    if (line.startsWith("time"))
        return LineClass::ColumnNames;
    if (line.startsWith("\xFD\xFD\xFD\xFD") || line.startsWith("\xC3\xBD\xC3\xBD\xC3\xBD\xC3\xBD"))
        return LineClass::Filler;
    return LineClass::Other;
}

bool isShiftedSample(QByteArrayView line)
{
    constexpr QByteArrayView shifting(" \t\"'+-.");
    qsizetype first = 0;
    while (first < line.size() && shifting.contains(line[first]))
        ++first;
    return first > 0 && first < line.size() && isDigit(line[first]) &&
           std::count(line.begin() + first, line.end(), '\t') + 1 == static_cast<qsizetype>(sampleFieldCount);
}

std::optional<SampleFields> splitSampleLine(QByteArrayView line)
{
    SampleFields fields;
    std::size_t count = 0;
    const char *first = line.begin();
    for (const char *at = line.begin(); at != line.end(); ++at) {
        if (*at != '\t')
            continue;
        if (count + 1 == sampleFieldCount)
            return std::nullopt;
        fields[count++] = QByteArrayView(first, at);
        first = at + 1;
    }
    if (count + 1 != sampleFieldCount)
        return std::nullopt;
    fields[count] = QByteArrayView(first, line.end());
    return fields;
}

double FieldReader::toDouble(QByteArrayView field)
{
    if (const auto plain = plainDecimal(field))
        return *plain;
    if (const auto missing = missingValue(field))
        return *missing;
    bool isNumber = false;
    const double value = textOf(field).toDouble(&isNumber);
    count(field, isNumber);
    return value;
}

qint64 FieldReader::toTime(QByteArrayView field)
{
    if (const auto plain = plainInteger(field))
        return *plain;
    if (decimalSign(field) == 0)
        return toLongLong(field);
    ++m_faults.decimalTimes;
    return 0; // as of any text that is no whole number
}

qint64 FieldReader::toLongLong(QByteArrayView field)
{
    if (const auto plain = plainInteger(field))
        return *plain;
    bool isNumber = false;
    const qint64 value = textOf(field).toLongLong(&isNumber);
    count(field, isNumber);
    return value;
}

int FieldReader::toInt(QByteArrayView field)
{
    const qint64 value = toLongLong(field);
    if (value >= std::numeric_limits<int>::min() && value <= std::numeric_limits<int>::max())
        return static_cast<int>(value);
    count(field, false);
    return 0;
}

void FieldReader::count(QByteArrayView field, bool isNumber)
{
    if (!isNumber && !missingValue(field))
        ++(decimalSign(field) == ',' ? m_faults.decimalCommas : m_faults.noNumbers);
}

QString FieldReader::textOf(QByteArrayView field)
{
    return field.size() > longestFieldBytes ? QString() : m_text.decoded(field);
}
