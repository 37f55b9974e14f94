// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/SaccadeClusterOptions.h"

#include "batch/Suggestion.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace {

using ClusterOptions = SaccadeClusterOptions;
using Text = QLatin1StringView;

/// The member, whichever of the records has it.
template <auto Member, class O>
auto &field(O &options)
{
    if constexpr (requires { options.parameters.*Member; })
        return options.parameters.*Member;
    else if constexpr (requires { options.style.*Member; })
        return options.style.*Member;
    else
        return options.*Member;
}

struct ClusterRow {
    NumberRange range;
    int (*get)(const ClusterOptions &);
    void (*set)(ClusterOptions &, int);
};

template <auto Member>
constexpr ClusterRow row(const NumberRange &range)
{
    return {range, [](const ClusterOptions &options) { return static_cast<int>(field<Member>(options)); },
            [](ClusterOptions &options, int value) {
                auto &member = field<Member>(options);
                member = static_cast<std::remove_reference_t<decltype(member)>>(value);
            }};
}

/// What is clustered is as the panel has it; what is drawn has no rows elsewhere.
template <std::size_t... I>
constexpr auto allRows(std::index_sequence<I...>)
{
    using S = SaccadeClusterStyle;
    return std::array{
        row<std::get<I>(stagedrows::all).member>(std::get<I>(stagedrows::all).range)...,
        row<&ClusterOptions::mode>({Text("mode"), 0, 2, Text("none,lines,single-line")}),
        row<&S::lineWidthPx>({Text("line-width"), 1, 100}),
        row<&S::showArrowTips>({Text("arrow-tips"), 0, 1, stagedrows::flags}),
        row<&S::minimumQuantity>({Text("minimum-quantity"), 1, stagedrows::manyVectors}),
    };
}

constexpr auto saccadeClusterRows = allRows(std::make_index_sequence<std::tuple_size_v<decltype(stagedrows::all)>>());

QStringList wordsOfRow(const ClusterRow &row)
{
    return row.range.words.isEmpty() ? QStringList() : QString(row.range.words).split(u',');
}

QString notOneOf(const QString &word, const QStringList &words)
{
    return QStringLiteral("%1 is not one of %2").arg(word, words.join(QLatin1StringView(", "))) +
           didYouMean(word, words);
}

std::variant<int, QString> clusterValueOf(const ClusterRow &row, const QString &text)
{
    if (const QStringList words = wordsOfRow(row); !words.isEmpty()) {
        const qsizetype place = words.indexOf(text);
        return place < 0 ? std::variant<int, QString>(notOneOf(text, words)) : static_cast<int>(place);
    }
    bool ok = false;
    const int number = text.toInt(&ok);
    if (ok && number >= row.range.least && number <= row.range.most)
        return number;
    return QStringLiteral("not a whole number from %1 to %2").arg(row.range.least).arg(row.range.most);
}

} // namespace

std::variant<SaccadeClusterOptions, QString> withAssignment(const SaccadeClusterOptions &options,
                                                            const QString &assignment)
{
    const qsizetype equals = assignment.indexOf(u'=');
    if (equals < 1)
        return QStringLiteral("not of the form NAME=VALUE");
    const QString name = assignment.left(equals);
    const auto row = std::find_if(saccadeClusterRows.begin(), saccadeClusterRows.end(),
                                  [&](const ClusterRow &each) { return each.range.name == name; });
    if (row == saccadeClusterRows.end()) {
        QStringList names;
        std::transform(saccadeClusterRows.begin(), saccadeClusterRows.end(), std::back_inserter(names),
                       [](const ClusterRow &each) { return each.range.name; });
        return notOneOf(name, names);
    }
    const std::variant<int, QString> value = clusterValueOf(*row, assignment.mid(equals + 1));
    if (const auto *problem = std::get_if<QString>(&value))
        return *problem;
    SaccadeClusterOptions changed = options;
    row->set(changed, std::get<int>(value));
    return changed;
}

QString assignments(const SaccadeClusterOptions &options)
{
    QStringList texts;
    for (const ClusterRow &row : saccadeClusterRows) {
        const QStringList words = wordsOfRow(row);
        const int value = row.get(options);
        texts << row.range.name + u'=' + (words.isEmpty() ? QString::number(value) : words.value(value));
    }
    return texts.join(u',');
}
