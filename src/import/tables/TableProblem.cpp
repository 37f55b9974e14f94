// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/TableProblem.h"

#include <QStringList>

namespace {

using namespace Qt::Literals::StringLiterals;

struct OddityRow {
    TableOddityKind kind;
    QLatin1StringView word;
};

constexpr OddityRow oddities[] = {
    {TableOddityKind::NotANumber, "notANumber"_L1},
    {TableOddityKind::TimeNotANumber, "timeNotANumber"_L1},
    {TableOddityKind::RepeatedTime, "repeatedTime"_L1},
    {TableOddityKind::BackwardTime, "backwardTime"_L1},
    {TableOddityKind::TimeJump, "timeJump"_L1},
    {TableOddityKind::OutsideTrial, "outsideTrial"_L1},
    {TableOddityKind::RecordingPause, "recordingPause"_L1},
    {TableOddityKind::ImplausibleRate, "implausibleRate"_L1},
    {TableOddityKind::OutsideScreen, "outsideScreen"_L1},
    {TableOddityKind::EyeAbsent, "eyeAbsent"_L1},
    {TableOddityKind::EyeNeverValid, "eyeNeverValid"_L1},
    {TableOddityKind::EyeLost, "eyeLost"_L1},
    {TableOddityKind::ColumnsChanged, "columnsChanged"_L1},
    {TableOddityKind::FewerColumns, "fewerColumns"_L1},
    {TableOddityKind::UnknownLine, "unknownLine"_L1},
    {TableOddityKind::RoundedTime, "roundedTime"_L1},
    {TableOddityKind::BeforeZeroTime, "beforeZeroTime"_L1},
};

} // namespace

QString oddityWord(TableOddityKind kind)
{
    for (const OddityRow &row : oddities) {
        if (row.kind == kind)
            return row.word;
    }
    return {};
}

QString TableProblem::text() const
{
    QStringList place;
    if (!file.isEmpty())
        place << file;
    if (line > 0)
        place << QStringLiteral("line %1").arg(line);
    if (column > 0)
        place << QStringLiteral("column %1").arg(column);
    QString text = place.join(QStringLiteral(", "));
    if (!text.isEmpty())
        text += QStringLiteral(": ");
    text += QStringLiteral("found ") + found;
    if (!expected.isEmpty())
        text += QStringLiteral(", expected ") + expected;
    text += u'.';
    return remedy.isEmpty() ? text : text + u' ' + remedy;
}
