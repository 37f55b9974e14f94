// SPDX-License-Identifier: GPL-3.0-or-later
// The part of the detector that finds which columns separate recordings, and which describe them.

#include "import/tables/LayoutDetector.h"

#include <algorithm>

namespace {

constexpr double fairlySure = 0.95;

bool isSplitRole(ColumnRole role)
{
    return role == ColumnRole::Subject || role == ColumnRole::Stimulus || role == ColumnRole::Trial;
}

} // namespace

/// Lines of two people are two recordings, so are those of two pictures. Trials stay together unless their clocks begin
/// anew.
void LayoutDetector::chooseRecordings()
{
    TableLayout &layout = m_guess.layout;
    const qsizetype time = layout.time.isGiven() ? placeOf(layout.time) : -1;
    const bool startsAnew = time >= 0 && m_contents[time].forwardShare < 1;
    for (qsizetype column = 0; column < m_meanings.size(); ++column) {
        const ColumnRole role = m_meanings[column].role;
        const ColumnContents &contents = m_contents[column];
        if (role == ColumnRole::EyeWord && contents.numbers == 0 && contents.texts.size() <= 2 &&
            !contents.texts.isEmpty()) {
            layout.eye.column = columnAt(column);
            choose(QStringLiteral("eye.column"), nameAt(column), certainty::likely,
                   QStringLiteral("it has one word for each eye"), ChoiceRisk::Numbers);
        }
        if (!isSplitRole(role))
            continue;
        m_guess.splitCandidates << columnAt(column);
        // A column that changes from line to line counts something else.
        const bool isConstant = contents.distinct <= 1;
        const bool isInRuns = contents.changes * 2 < m_shape.rows.size();
        if (isConstant || !isInRuns)
            continue;
        if (role != ColumnRole::Trial || startsAnew) {
            layout.split << columnAt(column);
            choose(QStringLiteral("split"), nameAt(column), role == ColumnRole::Trial ? certainty::likely : fairlySure,
                   role == ColumnRole::Trial
                       ? QStringLiteral("it has %1 values, and the times begin anew").arg(contents.distinct)
                       : QStringLiteral("it has %1 values").arg(contents.distinct));
        } else {
            m_guess.doubts << QStringLiteral(
                                  "%1 has %2 values in the lines looked at; the file is read as a whole unless "
                                  "it is split there.")
                                  .arg(nameAt(column))
                                  .arg(contents.distinct);
        }
    }
}

void LayoutDetector::chooseSetColumns()
{
    struct RoleKey {
        ColumnRole role;
        QLatin1StringView key;
    };
    constexpr RoleKey keys[] = {{ColumnRole::Group, QLatin1StringView("group")},
                                {ColumnRole::Stimulus, QLatin1StringView("stimulus")},
                                {ColumnRole::Subject, QLatin1StringView("subject")}};
    for (const RoleKey &row : keys) {
        for (qsizetype column = 0; column < m_meanings.size(); ++column) {
            if (m_meanings[column].role == row.role) {
                m_guess.layout.set << TableSetColumn{row.key, columnAt(column)};
                break;
            }
        }
    }
}
