// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/TableFields.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

constexpr qsizetype longestNumber = 400; ///< the longest double without exponent has some 330 digits

int timeShiftOf(TableTimeUnit unit)
{
    switch (unit) {
    case TableTimeUnit::Seconds:
        return -3;
    case TableTimeUnit::Microseconds:
        return 3;
    case TableTimeUnit::Nanoseconds:
        return 6;
    case TableTimeUnit::Milliseconds:
    case TableTimeUnit::Clock:
    case TableTimeUnit::Samples:
        break;
    }
    return 0;
}

/// A number with exponent, plus sign or very many digits.
std::optional<double> anyNumber(QByteArrayView field, char decimalSign)
{
    if (field.startsWith('+'))
        field = field.sliced(1);
    if (field.isEmpty() || field.size() > longestNumber || field.startsWith('+'))
        return std::nullopt;
    QByteArray point;
    if (decimalSign != '.') {
        if (field.contains('.'))
            return std::nullopt;
        point = field.toByteArray().replace(decimalSign, '.');
        field = point;
    }
    double value = 0;
    const auto result = std::from_chars(field.begin(), field.end(), value);
    const bool isWhole = result.ec == std::errc() && result.ptr == field.end();
    return isWhole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

QByteArrayView withoutBlanks(QByteArrayView field)
{
    while (!field.isEmpty() && isBlank(field.front()))
        field = field.sliced(1);
    while (!field.isEmpty() && (isBlank(field.back()) || field.back() == '\r'))
        field.chop(1);
    return field;
}

/// The number up to the next sign that is none, taken off the front.
std::optional<double> takeNumber(QByteArrayView &text, char decimalSign)
{
    const PlainNumber number = scanPlainNumber(text.begin(), text.end(), decimalSign);
    if (!number.isPlain() || !number.isExact() || number.negative)
        return std::nullopt;
    text = QByteArrayView(number.end, text.end());
    return number.value();
}

bool takeSign(QByteArrayView &text, char sign)
{
    if (!text.startsWith(sign))
        return false;
    text = text.sliced(1);
    return true;
}

} // namespace

const char *endOfQuotedField(const char *at, const char *const end, char delimiter)
{
    ++at;
    while (at != end && !(*at == '"' && (at + 1 == end || at[1] != '"')))
        at += *at == '"' ? 2 : 1;
    const auto isEnd = [delimiter](char byte) { return delimiter == ' ' ? isBlank(byte) : byte == delimiter; };
    while (at != end && !isEnd(*at))
        ++at;
    return at;
}

QByteArrayView bareField(QByteArrayView field)
{
    field = withoutBlanks(field);
    if (field.size() >= 2 && field.startsWith('"') && field.endsWith('"'))
        field = withoutBlanks(field.sliced(1).chopped(1));
    return field;
}

QList<QByteArrayView> splitFields(QByteArrayView line, char delimiter, qsizetype largest)
{
    const bool isBlankSeparated = delimiter == ' ';
    if (isBlankSeparated)
        line = withoutBlanks(line);
    QList<QByteArrayView> fields;
    const char *at = line.begin();
    const char *const end = line.end();
    if (isBlankSeparated && at == end)
        return fields;
    while (fields.size() < largest) {
        const char *const first = at;
        if (at != end && *at == '"')
            at = endOfQuotedField(at, end, delimiter);
        else
            at = std::find_if(at, end, [=](char byte) { return isBlankSeparated ? isBlank(byte) : byte == delimiter; });
        fields << bareField(QByteArrayView(first, at));
        if (at == end)
            break;
        ++at;
        while (isBlankSeparated && at != end && isBlank(*at))
            ++at;
    }
    return fields;
}

NumberFields::NumberFields(char decimalSign, const QList<QByteArray> &missing, TableTimeUnit timeUnit)
    : m_decimalSign(decimalSign)
    , m_isClock(timeUnit == TableTimeUnit::Clock)
    , m_timeShift(timeShiftOf(timeUnit))
{
    for (const QByteArray &code : missing) {
        auto value = anyNumber(code, m_decimalSign);
        if (!value)
            value = anyNumber(code, '.');
        if (value)
            m_missingNumbers << *value;
        else
            m_missingTexts << code;
    }
}

bool NumberFields::isMissingText(QByteArrayView field) const
{
    return field.isEmpty() || std::ranges::any_of(m_missingTexts, [&](const QByteArray &code) {
               return field.size() == code.size() && field.compare(code, Qt::CaseInsensitive) == 0;
           });
}

FieldValue NumberFields::read(QByteArrayView field, int shift) const
{
    field = bareField(field);
    const PlainNumber number = scanPlainNumber(field.begin(), field.end(), m_decimalSign);
    if (number.isPlain() && number.end == field.end() && number.isExact())
        return {number.value(shift), FieldState::Number};
    if (isMissingText(field))
        return {0, FieldState::Missing};
    if (const auto value = anyNumber(field, m_decimalSign)) {
        const double power = PlainNumber::powersOfTen[static_cast<std::size_t>(std::abs(shift))];
        return {shift < 0 ? *value * power : *value / power, FieldState::Number};
    }
    return {0, FieldState::Text};
}

FieldValue NumberFields::readTime(QByteArrayView field) const
{
    return m_isClock ? readClock(field) : read(field, m_timeShift);
}

/// "2024-05-01 13:14:15.123", "13:14:15,5" or "13:14:15:123456", where the last group has the decimals.
FieldValue NumberFields::readClock(QByteArrayView field) const
{
    constexpr double secondsPerMinute = 60;
    constexpr double minutesPerHour = 60;
    constexpr double msPerSecond = 1000;
    constexpr qsizetype mostDecimals = 12;
    const FieldValue none{0, isMissingText(bareField(field)) ? FieldState::Missing : FieldState::Text};
    QByteArrayView text = bareField(field);
    const qsizetype colon = text.indexOf(':');
    if (colon < 0)
        return none;
    const qsizetype date = std::max(text.first(colon).lastIndexOf(' '), text.first(colon).lastIndexOf('T'));
    text = text.sliced(date + 1);
    const auto hours = takeNumber(text, '\0');
    const bool hasMinutes = hours && takeSign(text, ':');
    const auto minutes = hasMinutes ? takeNumber(text, '\0') : std::nullopt;
    const bool hasSeconds = minutes && takeSign(text, ':');
    const auto seconds = hasSeconds ? takeNumber(text, '\0') : std::nullopt;
    if (!seconds)
        return none;
    const bool hasDecimals = takeSign(text, '.') || takeSign(text, ',') || takeSign(text, ':');
    const qsizetype decimals = text.size();
    const auto fraction = hasDecimals && decimals <= mostDecimals ? takeNumber(text, '\0') : std::optional(0.0);
    if (!fraction || !(text.isEmpty() || text == "Z"))
        return none;
    const double whole = (*hours * minutesPerHour + *minutes) * secondsPerMinute + *seconds;
    const double part = hasDecimals ? *fraction / PlainNumber::powersOfTen[static_cast<std::size_t>(decimals)] : 0;
    return {whole * msPerSecond + part * msPerSecond, FieldState::Number};
}
