#pragma once

#include <QtGlobal>

#include <array>
#include <cstddef>

/// Digits with an optional sign before and an optional decimal sign between them: nearly all numbers of recordings.
struct PlainNumber {
    /// The longest run of digits that a 64-bit number takes whatever the digits are.
    static constexpr std::ptrdiff_t safeDigits = 18;
    /// Where a mantissa up to 2^53 meets a power of ten up to 10^22, both are exact doubles, and their quotient or
    /// product is rounded once: it is the double nearest to the decimal.
    /// Source: Clinger (1990), How to read floating point numbers accurately, PLDI.
    static constexpr quint64 largestExactMantissa = quint64(1) << 53;
    static constexpr std::array<double, 23> powersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

    /// Whether there is a number in this form.
    bool isPlain() const { return end != nullptr; }
    /// Whether `value` gives the nearest double.
    bool isExact() const { return digits <= safeDigits && mantissa <= largestExactMantissa; }
    /// @param shift  the value is divided by ten to this power; from -3 to 4.
    double value(int shift = 0) const
    {
        const int power = static_cast<int>(decimals) + shift;
        const auto size = static_cast<double>(mantissa);
        const double number = power >= 0 ? size / powersOfTen[static_cast<std::size_t>(power)]
                                         : size * powersOfTen[static_cast<std::size_t>(-power)];
        return negative ? -number : number;
    }

    quint64 mantissa = 0; ///< of all digits; wrong where there are more than `safeDigits`
    std::ptrdiff_t digits = 0;
    std::ptrdiff_t decimals = 0;
    const char *end = nullptr; ///< behind the last digit; null if this is no plain number
    bool negative = false;
};

/// The number that begins at `at`.
inline PlainNumber scanPlainNumber(const char *at, const char *const end, char decimalSign)
{
    const auto isDigit = [](char byte) { return static_cast<unsigned char>(byte - '0') < 10; };
    PlainNumber number;
    if (at != end && *at == '-') {
        number.negative = true;
        ++at;
    }
    const char *const firstDigit = at;
    quint64 mantissa = 0;
    for (; at != end && isDigit(*at); ++at)
        mantissa = mantissa * 10 + static_cast<quint64>(*at - '0');
    number.digits = at - firstDigit;
    if (number.digits == 0)
        return number;
    if (at != end && *at == decimalSign) {
        const char *const firstDecimal = ++at;
        for (; at != end && isDigit(*at); ++at)
            mantissa = mantissa * 10 + static_cast<quint64>(*at - '0');
        number.decimals = at - firstDecimal;
        if (number.decimals == 0)
            return number;
        number.digits += number.decimals;
    }
    number.mantissa = mantissa;
    number.end = at;
    return number;
}
