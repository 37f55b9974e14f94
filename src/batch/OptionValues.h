// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/OptionRow.h"
#include "batch/Suggestion.h"

#include <algorithm>
#include <iterator>
#include <limits>

/// The usual kinds of option values. `Member` is a member of the options or of one of their parts.
namespace optionvalues {

/// A word on the command line and what it stands for.
template <class T>
struct Word {
    QLatin1StringView name;
    T meaning;
};

template <class T, std::size_t N>
QStringList namesOf(const Word<T> (&vocabulary)[N])
{
    QStringList names;
    std::transform(std::begin(vocabulary), std::end(vocabulary), std::back_inserter(names),
                   [](const Word<T> &each) { return each.name; });
    return names;
}

/// The word for a meaning; null if the vocabulary has none.
template <class T, std::size_t N>
QString wordFor(const T &meaning, const Word<T> (&vocabulary)[N])
{
    const auto found = std::find_if(std::begin(vocabulary), std::end(vocabulary),
                                    [&](const Word<T> &each) { return each.meaning == meaning; });
    return found == std::end(vocabulary) ? QString() : QString(found->name);
}

/// "not one of a, b; did you mean b?"
WrongValue unknownWord(const QString &word, const QStringList &known);

/// @return why the text is no whole number from `least` to `most`, with the number if it is one.
struct WholeNumber {
    int number = 0;
    std::optional<WrongValue> problem;
};
WholeNumber wholeNumber(const QString &text, int least, int most);

template <class Row>
QStringList wordsOf(const QList<Row> &rows)
{
    QStringList words;
    std::transform(rows.begin(), rows.end(), std::back_inserter(words), [](const Row &row) { return row.word; });
    return words;
}

/// The words of a comma-separated list, each once, in the order of the rows. Rows have a `word`.
template <class Row>
std::optional<WrongValue> readWords(const QString &list, const QList<Row> &rows, QStringList &words)
{
    const QStringList known = wordsOf(rows);
    QStringList wanted;
    for (const QString &entry : list.split(u',')) {
        wanted << entry.trimmed();
        if (!known.contains(wanted.last()))
            return unknownWord(wanted.last(), known);
    }
    words.clear();
    std::copy_if(known.begin(), known.end(), std::back_inserter(words),
                 [&](const QString &each) { return wanted.contains(each); });
    return std::nullopt;
}

template <auto Member, class Options = BatchOptions>
inline constexpr OptionValueOf<Options> text{
    .read = [](const QString &value, Options &options) -> std::optional<WrongValue> {
        options.*Member = value;
        return std::nullopt;
    },
    .show = [](const Options &options) { return options.*Member; },
};

/// Texts in the order of the command line.
template <auto Member, class Options = BatchOptions>
inline constexpr OptionValueOf<Options> texts{
    .read = [](const QString &value, Options &options) -> std::optional<WrongValue> {
        (options.*Member) << value;
        return std::nullopt;
    },
    .show = [](const Options &options) { return (options.*Member).join(u','); },
    .given = Given::Repeatedly,
};

/// Is there or not.
template <auto Member, class Options = BatchOptions>
inline constexpr OptionValueOf<Options> flag{
    .read = [](const QString &, Options &options) -> std::optional<WrongValue> {
        options.*Member = true;
        return std::nullopt;
    },
    .show = [](const Options &options) { return options.*Member ? QStringLiteral("yes") : QStringLiteral("no"); },
    .given = Given::Repeatedly,
};

/// A whole number; the member may be optional.
template <auto Member, int Least, int Most = std::numeric_limits<int>::max(), class Options = BatchOptions>
inline constexpr OptionValueOf<Options> number{
    .read = [](const QString &value, Options &options) -> std::optional<WrongValue> {
        const WholeNumber read = wholeNumber(value, Least, Most);
        if (!read.problem)
            options.*Member = read.number;
        return read.problem;
    },
    .show =
        [](const Options &options) {
            const std::optional<int> number = options.*Member;
            return number ? QString::number(*number) : QString();
        },
};

/// One word of a vocabulary; the member may be optional.
template <auto Member, const auto &Vocabulary>
inline constexpr OptionValue oneOf{
    .read = [](const QString &value, BatchOptions &options) -> std::optional<WrongValue> {
        for (const auto &each : Vocabulary) {
            if (value == each.name) {
                options.*Member = each.meaning;
                return std::nullopt;
            }
        }
        return unknownWord(value, namesOf(Vocabulary));
    },
    .show =
        [](const BatchOptions &options) {
            const std::optional meaning(options.*Member);
            return meaning ? wordFor(*meaning, Vocabulary) : QString();
        },
    .words = [] { return namesOf(Vocabulary); },
};

/// Words of a table of rows, in its order.
template <auto Member, auto Rows>
inline constexpr OptionValue someOf{
    .read = [](const QString &value, BatchOptions &options) { return readWords(value, Rows(), options.*Member); },
    .show = [](const BatchOptions &options) { return QLatin1StringView("") + (options.*Member).join(u','); },
    .words = [] { return wordsOf(Rows()); },
};

} // namespace optionvalues
