// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableLayout.h"

#include <array>

/// The words that layouts have for choices, in their files and wherever a choice is shown.
template <class Choice>
struct LayoutWord {
    Choice choice;
    QLatin1StringView word;
};

template <class Choice>
LayoutWord(Choice, QLatin1StringView) -> LayoutWord<Choice>;

namespace layout_words {
using namespace Qt::Literals::StringLiterals;

inline constexpr std::array kinds{LayoutWord{TableKind::Delimited, "delimited"_L1},
                                  LayoutWord{TableKind::EventLog, "event-log"_L1}};
inline constexpr std::array encodings{
    LayoutWord{TableEncoding::ByMark, "auto"_L1}, LayoutWord{TableEncoding::Utf8, "utf-8"_L1},
    LayoutWord{TableEncoding::Latin1, "latin-1"_L1}, LayoutWord{TableEncoding::Utf16LittleEndian, "utf-16le"_L1},
    LayoutWord{TableEncoding::Utf16BigEndian, "utf-16be"_L1}};
inline constexpr std::array delimiters{LayoutWord{',', "comma"_L1}, LayoutWord{';', "semicolon"_L1},
                                       LayoutWord{'\t', "tab"_L1}, LayoutWord{' ', "blanks"_L1},
                                       LayoutWord{'|', "bar"_L1}};
inline constexpr std::array decimalSigns{LayoutWord{'.', "point"_L1}, LayoutWord{',', "comma"_L1}};
inline constexpr std::array timeUnits{
    LayoutWord{TableTimeUnit::Seconds, "s"_L1},       LayoutWord{TableTimeUnit::Milliseconds, "ms"_L1},
    LayoutWord{TableTimeUnit::Microseconds, "us"_L1}, LayoutWord{TableTimeUnit::Nanoseconds, "ns"_L1},
    LayoutWord{TableTimeUnit::Clock, "clock"_L1},     LayoutWord{TableTimeUnit::Samples, "samples"_L1}};
inline constexpr std::array placeUnits{
    LayoutWord{TablePlaceUnit::Pixels, "px"_L1}, LayoutWord{TablePlaceUnit::Normalised, "normalised"_L1},
    LayoutWord{TablePlaceUnit::Millimetres, "mm"_L1}, LayoutWord{TablePlaceUnit::Degrees, "degrees"_L1}};
inline constexpr std::array origins{LayoutWord{TableOrigin::TopLeft, "top-left"_L1},
                                    LayoutWord{TableOrigin::Centre, "centre"_L1},
                                    LayoutWord{TableOrigin::BottomLeft, "bottom-left"_L1}};
inline constexpr std::array xAxes{LayoutWord{TableAxis::RightOrDown, "right"_L1},
                                  LayoutWord{TableAxis::LeftOrUp, "left"_L1}};
inline constexpr std::array yAxes{LayoutWord{TableAxis::RightOrDown, "down"_L1},
                                  LayoutWord{TableAxis::LeftOrUp, "up"_L1}};

template <class Choice, std::size_t count>
QString wordOf(const std::array<LayoutWord<Choice>, count> &words, Choice choice)
{
    for (const LayoutWord<Choice> &row : words) {
        if (row.choice == choice)
            return row.word;
    }
    return {};
}

template <class Choice, std::size_t count>
std::optional<Choice> choiceOf(const std::array<LayoutWord<Choice>, count> &words, const QString &word)
{
    for (const LayoutWord<Choice> &row : words) {
        if (row.word == word)
            return row.choice;
    }
    return std::nullopt;
}

/// A delimiter by its word, or by itself: any printed sign but a letter, a digit and the quote.
inline std::optional<char> delimiterOf(const QString &word)
{
    constexpr char16_t firstPrinted = u'!';
    constexpr char16_t lastPrinted = u'~';
    const auto choice = choiceOf(delimiters, word);
    const bool isSign = word.size() == 1 && word[0] >= firstPrinted && word[0] <= lastPrinted &&
                        !word[0].isLetterOrNumber() && word[0] != u'"';
    return choice || !isSign ? choice : word[0].toLatin1();
}

/// "one of "s", "ms"".
template <class Choice, std::size_t count>
QString listOf(const std::array<LayoutWord<Choice>, count> &words)
{
    QStringList list;
    for (const LayoutWord<Choice> &row : words)
        list << u'"' + QString(row.word) + u'"';
    return QStringLiteral("one of ") + list.join(QStringLiteral(", "));
}
} // namespace layout_words
