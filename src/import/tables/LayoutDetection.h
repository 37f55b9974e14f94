// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/LayoutFiles.h"
#include "import/tables/TableFile.h"

/// What a wrong choice would do.
enum class ChoiceRisk {
    Form,    ///< the table could not be read, or would tell so
    Numbers, ///< it would be read, with wrong numbers
};

/// One choice of a guess. Below `LayoutGuess::certaintyLimit` it is a question.
struct LayoutChoice {
    bool operator==(const LayoutChoice &) const = default;

    QString key;          ///< as in the layout's file: "delimiter", "time.unit", "place.unit", "left.x", ...
    QString value;        ///< what was chosen, as the layout's file has it; may be empty
    double certainty = 0; ///< 0 to 1
    QString reason;       ///< why, a sentence
    ChoiceRisk risk = ChoiceRisk::Form;
};

/// A layout that was found by looking at a file.
struct LayoutGuess {
    static constexpr double certaintyLimit = 0.75;

    /// Of the choice that is least sure; 0 where there is a problem.
    double certainty() const;
    /// The choices below the limit, as questions that name choice, certainty and reason.
    QStringList questions() const;
    /// Why nobody should read the file by this layout without having looked: a question whose wrong answer gives wrong
    /// numbers, or the problem. Nothing: read it, and tell the questions and doubts.
    std::optional<TableProblem> refusal() const;

    TableLayout layout;
    QString layoutName; ///< of the known layout that was found by the header; empty: by the content alone
    QList<LayoutChoice> choices;
    QStringList doubts;                  ///< what is odd or undecided beside the choices, a sentence each
    QList<TableColumn> splitCandidates;  ///< columns that could separate recordings
    QStringList header;                  ///< names of the columns; empty without header
    std::optional<TableProblem> problem; ///< why this is no table of samples
};

/// Finds the layout of a table by its first 1,000 lines and its end. A known layout with the same header comes first;
/// what it says is checked against the content.
///
/// @param known  such as readyLayouts() with those of the user; the later of two that fit equally well is taken.
LayoutGuess detectLayout(const TableExtract &extract, const QList<NamedLayout> &known);
