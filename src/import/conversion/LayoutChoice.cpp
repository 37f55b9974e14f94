// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/conversion/LayoutChoice.h"

#include <QFileInfo>

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr auto layoutEnding = ".layout.json"_L1;

void split(TableLayout &layout, const QStringList &at)
{
    if (layout.kind == TableKind::EventLog) {
        layout.beginMessage = at.value(0);
        return;
    }
    layout.split.clear();
    for (const QString &column : at) {
        bool isNumber = false;
        const int number = column.toInt(&isNumber);
        const bool byNumber = isNumber && layout.header == TableHeader::None;
        layout.split << (byNumber ? TableColumn::numbered(number) : TableColumn::named(column));
    }
}

/// What was found stays one recording unless somebody asks for more.
void joinAll(ChosenLayout &chosen)
{
    for (const TableColumn &column : std::as_const(chosen.layout.split))
        chosen.doubts
            << u"%1 could separate recordings, and the table is read as one; vistrum-import --split %1 splits "
               "it."_s.arg(column.text());
    chosen.layout.split.clear();
    chosen.layout.beginMessage.clear();
}

QString percent(double certainty)
{
    return u"%1 %"_s.arg(qRound(certainty * 100));
}

ChosenLayout chosenBy(const LayoutGuess &guess)
{
    ChosenLayout chosen{guess.layout, guess.layoutName, guess.certainty(), {}, {}, {}};
    QStringList values;
    for (const LayoutChoice &choice : guess.choices) {
        if (!choice.value.isEmpty() && choice.key != "split"_L1)
            values << choice.key + u' ' + choice.value;
    }
    chosen.summary = values.join(", "_L1);
    for (const LayoutChoice &choice : guess.choices)
        chosen.choices << u"%1: %2 (%3, %4)"_s.arg(choice.key, choice.value, percent(choice.certainty), choice.reason);
    chosen.doubts = guess.questions() + guess.doubts;
    return chosen;
}

std::variant<ChosenLayout, TableProblem> foundLayout(const QString &path, const QList<NamedLayout> &known)
{
    const auto extract = readExtract(path);
    if (const auto *problem = std::get_if<TableProblem>(&extract))
        return *problem;
    const LayoutGuess guess = detectLayout(std::get<TableExtract>(extract), known);
    if (std::optional<TableProblem> refusal = guess.refusal()) {
        refusal->file = path;
        return *refusal;
    }
    return chosenBy(guess);
}

} // namespace

std::variant<LayoutRequest, QString> layoutRequest(const QString &word, const QStringList &split)
{
    LayoutRequest request{.layout = {}, .known = readyLayouts().layouts, .split = split};
    if (word == "auto"_L1)
        return request;
    if (const NamedLayout *ready = layoutByName(word, request.known)) {
        request.layout = *ready;
        return request;
    }
    if (!word.endsWith(layoutEnding) && !QFileInfo::exists(word)) {
        QStringList names;
        for (const NamedLayout &layout : std::as_const(request.known))
            names << layout.name;
        return u"no layout of this name, and no such file. Known are auto, %1, and files that end in %2"_s.arg(
            names.join(", "_L1), layoutEnding);
    }
    const auto file = readLayoutFile(word);
    if (const auto *problem = std::get_if<TableProblem>(&file))
        return problem->text();
    request.layout = std::get<NamedLayout>(file);
    return request;
}

std::variant<ChosenLayout, TableProblem> chooseLayout(const QString &path, const LayoutRequest &request)
{
    std::variant<ChosenLayout, TableProblem> result;
    if (request.layout)
        result = ChosenLayout{request.layout->layout, request.layout->name, 1, {}, {}, {}};
    else
        result = foundLayout(path, request.known);
    auto *chosen = std::get_if<ChosenLayout>(&result);
    if (chosen && chosen->layout.kind == TableKind::EventLog && request.split.size() > 1)
        return TableProblem{path,
                            0,
                            0,
                            u"an event log that is to be split at %1"_s.arg(request.split.join(u" and at "_s)),
                            u"one message at which a recording begins"_s,
                            u"Give --split once."_s};
    if (chosen && !request.split.isEmpty())
        split(chosen->layout, request.split);
    else if (chosen && !request.layout)
        joinAll(*chosen);
    return result;
}

QString layoutNote(const ChosenLayout &chosen)
{
    const QString kind = chosen.layout.kind == TableKind::EventLog ? u"an event log"_s : u"a delimited table"_s;
    const QString by = chosen.name.isEmpty() ? u"by what it holds"_s : u"by the layout %1"_s.arg(chosen.name);
    if (chosen.choices.isEmpty())
        return u"read as %1 %2"_s.arg(kind, by);
    return u"read as %1 %2, sure to %3; %4"_s.arg(kind, by, percent(chosen.certainty), chosen.summary);
}
