// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/LayoutDetection.h"

#include "import/tables/LayoutDetector.h"

#include <algorithm>

namespace {

/// First words of the lines of a log.
constexpr QLatin1StringView logWords[] = {
    QLatin1StringView("MSG"),       QLatin1StringView("START"),     QLatin1StringView("END"),
    QLatin1StringView("SAMPLES"),   QLatin1StringView("EVENTS"),    QLatin1StringView("SFIX"),
    QLatin1StringView("EFIX"),      QLatin1StringView("SSACC"),     QLatin1StringView("ESACC"),
    QLatin1StringView("SBLINK"),    QLatin1StringView("EBLINK"),    QLatin1StringView("INPUT"),
    QLatin1StringView("PRESCALER"), QLatin1StringView("VPRESCALER")};

QString firstWord(const QString &line)
{
    const auto end = std::ranges::find_if(line, [](QChar sign) { return sign == u' ' || sign == u'\t'; });
    return line.first(end - line.begin());
}

/// @return the words of the log, each once; empty if it is none.
QStringList wordsOfLog(const TableExtract &extract)
{
    QStringList words;
    qsizetype count = 0;
    for (const QString &line : extract.head) {
        const QString word = firstWord(line);
        if (std::ranges::find(logWords, word) == std::end(logWords))
            continue;
        ++count;
        if (!words.contains(word))
            words << word;
    }
    const bool isMarked = words.contains(QStringLiteral("START")) || words.contains(QStringLiteral("SAMPLES"));
    const bool isMostly = count * 3 > extract.head.size();
    return (words.size() > 1 && isMarked) || (isMostly && words.contains(QStringLiteral("MSG"))) ? words
                                                                                                 : QStringList();
}

LayoutGuess guessLog(const QStringList &words, const QList<NamedLayout> &known)
{
    LayoutGuess guess;
    guess.layout.kind = TableKind::EventLog;
    guess.header = words;
    const bool isMarked = words.contains(QStringLiteral("START")) && words.contains(QStringLiteral("SAMPLES"));
    constexpr double sure = 0.99;
    constexpr double likely = 0.85;
    guess.choices << LayoutChoice{QStringLiteral("kind"), QStringLiteral("event-log"), isMarked ? sure : likely,
                                  QStringLiteral("lines begin with %1").arg(words.join(QStringLiteral(", "))),
                                  ChoiceRisk::Form};
    QList<NamedLayout> logs = known;
    logs.removeIf([](const NamedLayout &each) { return each.layout.kind != TableKind::EventLog; });
    if (const NamedLayout *found = findLayout(words, logs)) {
        guess.layout = found->layout;
        guess.layoutName = found->name;
    }
    return guess;
}

std::optional<TableProblem> noText(const TableExtract &extract)
{
    const bool isEmpty =
        std::ranges::all_of(extract.head, [](const QString &line) { return line.trimmed().isEmpty(); });
    if (isEmpty)
        return TableProblem{.file = extract.file,
                            .found = QStringLiteral("no lines"),
                            .expected = QStringLiteral("a table of samples"),
                            .remedy = QStringLiteral("Choose a file with content.")};
    const bool isBinary =
        std::ranges::any_of(extract.head, [](const QString &line) { return line.contains(QChar(0)); });
    if (isBinary)
        return TableProblem{.file = extract.file,
                            .found = QStringLiteral("bytes that are no text"),
                            .expected = QStringLiteral("a table of samples as text"),
                            .remedy = QStringLiteral("Export the recording as text, then import that.")};
    return std::nullopt;
}

} // namespace

double LayoutGuess::certainty() const
{
    if (problem || choices.isEmpty())
        return 0;
    return std::ranges::min_element(choices, {}, &LayoutChoice::certainty)->certainty;
}

QStringList LayoutGuess::questions() const
{
    QStringList questions;
    for (const LayoutChoice &choice : choices) {
        if (choice.certainty < certaintyLimit)
            questions << QStringLiteral("%1: is it %2? (%3% sure: %4)")
                             .arg(choice.key, choice.value.isEmpty() ? QStringLiteral("not known") : choice.value)
                             .arg(100 * choice.certainty, 0, 'f', 0)
                             .arg(choice.reason);
    }
    return questions;
}

std::optional<TableProblem> LayoutGuess::refusal() const
{
    if (problem)
        return problem;
    for (const LayoutChoice &choice : choices) {
        if (choice.risk == ChoiceRisk::Numbers && choice.certainty < certaintyLimit)
            return TableProblem{.found = QStringLiteral("no certain answer for %1 (%2)").arg(choice.key, choice.reason),
                                .expected = QStringLiteral("a layout that says it"),
                                .remedy = QStringLiteral("Save a layout in the import assistant, or write one, and "
                                                         "give it with --layout.")};
    }
    return std::nullopt;
}

LayoutGuess detectLayout(const TableExtract &extract, const QList<NamedLayout> &known)
{
    LayoutGuess guess;
    if (const auto problem = noText(extract)) {
        guess.problem = problem;
        return guess;
    }
    if (const QStringList words = wordsOfLog(extract); !words.isEmpty())
        return guessLog(words, known);
    const TableShape shape(extract);
    if (shape.columns < 2 || shape.rows.isEmpty()) {
        guess.problem = TableProblem{.file = extract.file,
                                     .line = 1,
                                     .found = QStringLiteral("lines that do not fall into columns"),
                                     .expected = QStringLiteral("a table of samples"),
                                     .remedy = QStringLiteral("Choose the delimiter in a layout, or another file.")};
        return guess;
    }
    QList<NamedLayout> tables = known;
    tables.removeIf([](const NamedLayout &each) { return each.layout.kind != TableKind::Delimited; });
    if (const NamedLayout *found = findLayout(shape.names, tables))
        return LayoutDetector(extract, shape).check(*found);
    return LayoutDetector(extract, shape).detect();
}
