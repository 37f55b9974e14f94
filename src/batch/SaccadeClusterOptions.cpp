#include "batch/SaccadeClusterOptions.h"

#include "batch/Suggestion.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <iterator>

namespace {

using Options = SaccadeClusterOptions;
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

struct Row {
    Text name;
    Text words; ///< with commas in between, each standing for its place; empty for a number
    int least;
    int most;
    int (*get)(const Options &);
    void (*set)(Options &, int);
};

template <auto Member>
constexpr Row numberRow(Text name, int least, int most, Text words = {})
{
    return {name,
            words,
            least,
            most,
            [](const Options &options) { return static_cast<int>(field<Member>(options)); },
            [](Options &options, int value) {
                auto &member = field<Member>(options);
                member = static_cast<std::remove_reference_t<decltype(member)>>(value);
            }};
}

template <auto Member>
constexpr Row wordRow(Text name, Text words)
{
    return numberRow<Member>(name, 0, 0, words);
}

using P = SaccadeClusterParameters;
using S = SaccadeClusterStyle;
constexpr Text linkages("average,maximum,minimum");
constexpr Text flags("no,yes");

/// Ranges and order of the words are those of the panels.
constexpr std::array rows{
    numberRow<&P::minimumLength>(Text("minimum-length"), 0, 10'000),
    numberRow<&P::minimumAngleDifference>(Text("minimum-angle-difference"), 0, 90),
    wordRow<&P::directionDependent>(Text("direction-dependent"), flags),
    wordRow<&P::angleLinkage>(Text("angle-linkage"), linkages),
    numberRow<&P::angleCutoff>(Text("angle-cutoff"), 0, 180),
    numberRow<&P::minimumAngleQuantity>(Text("minimum-angle-quantity"), 1, 1'000'000),
    wordRow<&P::distanceAlgorithm>(Text("distance"), Text("euclidean,manhattan")),
    wordRow<&P::distanceLinkage>(Text("distance-linkage"), linkages),
    numberRow<&P::distanceCutoff>(Text("distance-cutoff"), 0, 1000),
    numberRow<&P::minimumDistanceQuantity>(Text("minimum-distance-quantity"), 1, 100),
    wordRow<&Options::mode>(Text("mode"), Text("none,lines,single-line")),
    numberRow<&S::lineWidthPx>(Text("line-width"), 1, 100),
    wordRow<&S::showArrowTips>(Text("arrow-tips"), flags),
    numberRow<&S::minimumQuantity>(Text("minimum-quantity"), 1, 1'000'000),
};

QStringList wordsOf(const Row &row)
{
    return row.words.isEmpty() ? QStringList() : QString(row.words).split(u',');
}

QString notOneOf(const QString &word, const QStringList &words)
{
    const QString nearest = suggestion(word, words);
    const QString hint = nearest.isEmpty() ? QString() : QStringLiteral("; did you mean %1?").arg(nearest);
    return QStringLiteral("%1 is not one of %2").arg(word, words.join(QLatin1StringView(", "))) + hint;
}

std::variant<int, QString> valueOf(const Row &row, const QString &text)
{
    if (const QStringList words = wordsOf(row); !words.isEmpty()) {
        const qsizetype place = words.indexOf(text);
        return place < 0 ? std::variant<int, QString>(notOneOf(text, words)) : static_cast<int>(place);
    }
    bool ok = false;
    const int number = text.toInt(&ok);
    if (ok && number >= row.least && number <= row.most)
        return number;
    return QStringLiteral("not a whole number from %1 to %2").arg(row.least).arg(row.most);
}

} // namespace

std::variant<SaccadeClusterOptions, QString> withAssignment(const SaccadeClusterOptions &options,
                                                            const QString &assignment)
{
    const qsizetype equals = assignment.indexOf(u'=');
    if (equals < 1)
        return QStringLiteral("not of the form NAME=VALUE");
    const QString name = assignment.left(equals);
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const Row &each) { return each.name == name; });
    if (row == rows.end()) {
        QStringList names;
        std::transform(rows.begin(), rows.end(), std::back_inserter(names), [](const Row &each) { return each.name; });
        return notOneOf(name, names);
    }
    const std::variant<int, QString> value = valueOf(*row, assignment.mid(equals + 1));
    if (const auto *problem = std::get_if<QString>(&value))
        return *problem;
    SaccadeClusterOptions changed = options;
    row->set(changed, std::get<int>(value));
    return changed;
}

QString assignments(const SaccadeClusterOptions &options)
{
    QStringList texts;
    for (const Row &row : rows) {
        const QStringList words = wordsOf(row);
        const int value = row.get(options);
        texts << row.name + u'=' + (words.isEmpty() ? QString::number(value) : words.value(value));
    }
    return texts.join(u',');
}
