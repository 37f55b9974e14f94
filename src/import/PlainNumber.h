// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <array>
#include <bit>
#include <cstddef>
#include <cstring>

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
    /// @param shift  the value is divided by ten to this power; from -22 to 22.
    double value(int shift = 0) const
    {
        const int power = static_cast<int>(decimals) + shift;
        constexpr int largest = static_cast<int>(powersOfTen.size()) - 1;
        auto number = static_cast<double>(mantissa);
        if (power > largest) // rounded twice: there are more decimals than a double has
            number = number / powersOfTen[largest] / powersOfTen[static_cast<std::size_t>(power - largest)];
        else if (power >= 0)
            number /= powersOfTen[static_cast<std::size_t>(power)];
        else
            number *= powersOfTen[static_cast<std::size_t>(-power)];
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

/// Eight bytes of a text at a time: most numbers are shorter, so that there is no loop whose length the processor would
/// have to guess. Source: Lemire (2021), Number parsing at a gigabyte per second, Software: Practice and Experience 51.
class DigitWord {
public:
    static constexpr int size = 8;

    explicit DigitWord(const char *at)
    {
        std::memcpy(&m_digits, at, sizeof m_digits);
        m_digits ^= 0x3030303030303030;
        m_others = ((m_digits + 0x7676767676767676) | m_digits) & 0x8080808080808080;
    }

    /// How many digits it begins with, 0 to 8.
    int count() const { return m_others == 0 ? size : std::countr_zero(m_others) / 8; }

    /// How many digits follow the sign behind the first ones, up to the next sign; -1 where there is no other.
    int countBehindSign() const
    {
        const quint64 next = m_others & (m_others - 1);
        return next == 0 ? -1 : (std::countr_zero(next) - std::countr_zero(m_others)) / 8 - 1;
    }

    /// The number of the first digits, at least one.
    quint64 value(int digits) const { return numberOf(m_digits << (8 * (size - digits))); }

    /// The number of all digits before and behind the first sign, seven at most.
    quint64 valueWithoutSign(int before, int behind) const
    {
        const quint64 first = m_digits & ((quint64(1) << (8 * before)) - 1);
        const quint64 second = m_digits >> (8 * (before + 1)) << (8 * before);
        return numberOf((first | second) << (8 * (size - before - behind)));
    }

private:
    static quint64 numberOf(quint64 digits)
    {
        const quint64 pairs = digits * 10 + (digits >> 8);
        return (((pairs & 0x000000FF000000FF) * 0x000F424000000064) +
                (((pairs >> 16) & 0x000000FF000000FF) * 0x0000271000000001)) >>
               32;
    }

    quint64 m_digits = 0;
    quint64 m_others = 0; ///< the highest bit of each byte that is no digit; reliable up to the first one above 127
};

/// A number of at most seven digits before and behind its decimal sign; exact.
struct ShortNumber {
    /// @param readable  end of the memory, with the number's line before it. Bytes behind the number are looked at.
    /// @param shift     the value is divided by ten to this power; from -7 to 7.
    static ShortNumber scan(const char *at, const char *readable, char decimalSign, int shift);

    static constexpr std::array<quint64, 8> wholePowersOfTen{1, 10, 100, 1000, 10'000, 100'000, 1'000'000, 10'000'000};

    double value = 0;
    const char *end = nullptr; ///< behind the last digit; null if this is no such number
};

inline ShortNumber ShortNumber::scan(const char *at, const char *const readable, char decimalSign, int shift)
{
    constexpr std::ptrdiff_t looked = 2 * DigitWord::size + 2;
    if (std::endian::native != std::endian::little || readable - at < looked)
        return {};
    const bool isNegative = *at == '-';
    at += isNegative ? 1 : 0;
    const DigitWord word(at);
    const int digits = word.count();
    if (digits == 0 || digits == DigitWord::size)
        return {};
    quint64 mantissa = 0;
    if (at[digits] != decimalSign) {
        mantissa = word.value(digits);
        at += digits;
    } else if (const int decimals = word.countBehindSign(); decimals > 0) { // all of it is in the word
        mantissa = word.valueWithoutSign(digits, decimals);
        shift += decimals;
        at += digits + 1 + decimals;
    } else {
        const DigitWord part(at + digits + 1);
        const int further = part.count();
        if (further == 0 || further == DigitWord::size)
            return {};
        mantissa = word.value(digits) * wholePowersOfTen[static_cast<std::size_t>(further)] + part.value(further);
        shift += further;
        at += digits + 1 + further;
    }
    auto value = static_cast<double>(static_cast<qint64>(mantissa)); // signed numbers are converted faster
    if (shift > 0)
        value /= PlainNumber::powersOfTen[static_cast<std::size_t>(shift)];
    else if (shift < 0)
        value *= PlainNumber::powersOfTen[static_cast<std::size_t>(-shift)];
    return {isNegative ? -value : value, at};
}
