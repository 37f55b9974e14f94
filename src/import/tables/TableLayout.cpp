// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/TableLayout.h"

#include "import/tables/ColumnPlan.h"
#include "import/tables/TableFields.h"

#include <algorithm>

namespace {

TableProblem lacking(const QString &found, const QString &expected, const QString &remedy)
{
    return {.found = found, .expected = expected, .remedy = remedy};
}

std::optional<TableProblem> geometryProblem(const TableGeometry &place)
{
    const bool needsPixels = place.unit != TablePlaceUnit::Pixels || place.origin != TableOrigin::TopLeft;
    const bool needsLengths = place.unit == TablePlaceUnit::Millimetres || place.unit == TablePlaceUnit::Degrees;
    if (needsPixels && place.screenPx.isEmpty())
        return lacking(QStringLiteral("a layout without the size of the screen in pixels"),
                       QStringLiteral("place.screenPx, since places are no pixels from the upper left corner"),
                       QStringLiteral("Add \"screenPx\": [width, height] to \"place\" in the layout."));
    if (needsLengths && place.screenMm.isEmpty())
        return lacking(QStringLiteral("a layout without the size of the screen in millimetres"),
                       QStringLiteral("place.screenMm, since places are lengths or angles"),
                       QStringLiteral("Add \"screenMm\": [width, height] to \"place\" in the layout."));
    if (place.unit == TablePlaceUnit::Degrees && place.distanceMm <= 0)
        return lacking(QStringLiteral("a layout without the distance of the eye from the screen"),
                       QStringLiteral("place.distanceMm, since places are angles"),
                       QStringLiteral("Add \"distanceMm\": millimetres to \"place\" in the layout."));
    if (place.unit == TablePlaceUnit::Degrees && place.origin != TableOrigin::Centre)
        return lacking(QStringLiteral("degrees that are not counted from the centre"),
                       QStringLiteral("\"origin\": \"centre\""),
                       QStringLiteral("Angles are measured from the middle of the screen; set \"origin\" so."));
    return std::nullopt;
}

std::optional<TableProblem> columnProblem(const TableLayout &layout)
{
    const bool hasEyes = layout.left.isGiven() || layout.right.isGiven();
    if (!hasEyes)
        return lacking(QStringLiteral("a layout without columns of gaze"),
                       QStringLiteral("x and y of the left or the right eye"),
                       QStringLiteral("Name the columns in \"left\" or \"right\" of the layout."));
    for (const TableEyeColumns &eye : layout.eyes()) {
        if (eye.x.isGiven() != eye.y.isGiven() || (!eye.isGiven() && (eye.pupil.isGiven() || eye.validity.isGiven())))
            return lacking(QStringLiteral("an eye with only one of x and y"), QStringLiteral("both"),
                           QStringLiteral("Name both columns of the eye in the layout."));
    }
    const bool hasTime = layout.time.isGiven() || layout.timeUnit == TableTimeUnit::Samples;
    if (!hasTime)
        return lacking(QStringLiteral("a layout without a column of times"),
                       QStringLiteral("time.column, or \"unit\": \"samples\" with \"rateHz\""),
                       QStringLiteral("Name the column in \"time\" of the layout."));
    if (layout.timeUnit == TableTimeUnit::Samples && layout.rateHz <= 0)
        return lacking(QStringLiteral("a layout that counts samples but has no rate"), QStringLiteral("time.rateHz"),
                       QStringLiteral("Add \"rateHz\", the samples a second, to \"time\" of the layout."));
    for (const TableColumn &column : columnsOf(layout)) {
        if (column.number > mostTableColumns)
            return lacking(column.text(), QStringLiteral("a number up to %1").arg(mostTableColumns),
                           QStringLiteral("Correct the number in the layout."));
        if (column.number == 0 && layout.header == TableHeader::None)
            return lacking(QStringLiteral("the column name \"%1\" where there is no header").arg(column.name),
                           QStringLiteral("a number"), QStringLiteral("Give the columns by number in the layout."));
    }
    return std::nullopt;
}

} // namespace

QString TableColumn::text() const
{
    return number > 0 ? QStringLiteral("column %1").arg(number) : name;
}

std::optional<TableProblem> layoutProblem(const TableLayout &layout)
{
    if (layout.kind == TableKind::Delimited) {
        if (layout.delimiter == layout.decimalSign)
            return lacking(QStringLiteral("a delimiter that is the decimal sign, too"),
                           QStringLiteral("two different signs"), QStringLiteral("Choose one of them anew."));
        if (auto problem = columnProblem(layout))
            return problem;
    }
    return geometryProblem(layout.place);
}
