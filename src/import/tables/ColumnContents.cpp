// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/ColumnContents.h"

#include "import/tables/TableFields.h"

#include <QSet>

#include <algorithm>
#include <cmath>

namespace {

constexpr qsizetype mostDistinct = 50;
constexpr qsizetype longestText = 200;

void measureSteps(const QList<double> &values, ColumnContents &contents)
{
    QList<double> forward;
    qsizetype backward = 0;
    qsizetype equal = 0;
    for (qsizetype i = 1; i < values.size(); ++i) {
        const double step = values[i] - values[i - 1];
        if (step > 0)
            forward << step;
        else
            (step < 0 ? backward : equal) += 1;
    }
    const qsizetype all = forward.size() + equal + backward;
    if (all > 0)
        contents.forwardShare = static_cast<double>(forward.size() + equal) / static_cast<double>(all);
    if (forward.isEmpty())
        return;
    std::ranges::sort(forward);
    contents.medianStep = forward[forward.size() / 2];
    constexpr double jump = 10;
    double sum = 0;
    qsizetype count = equal;
    for (const double step : std::as_const(forward)) {
        if (step <= jump * contents.medianStep) {
            sum += step;
            ++count;
        }
    }
    contents.meanStep = sum / static_cast<double>(count);
}

void addText(QByteArrayView field, ColumnContents &contents)
{
    const QByteArray text = field.first(std::min(field.size(), longestText)).toByteArray();
    if (contents.texts.size() < mostDistinct || contents.texts.contains(text))
        ++contents.texts[text];
}

} // namespace

ColumnContents contentsOf(const TableShape &shape, qsizetype column)
{
    ColumnContents contents;
    const NumberFields numbers(shape.decimalSign, {}, TableTimeUnit::Milliseconds);
    const NumberFields clock(shape.decimalSign, {}, TableTimeUnit::Clock);
    QList<double> values;
    qsizetype clocks = 0;
    QSet<QByteArray> distinct;
    QByteArrayView before;
    for (qsizetype i = 0; i < shape.rows.size(); ++i) {
        const QByteArrayView field = shape.rows[i][column];
        contents.changes += i > 0 && field != before ? 1 : 0;
        before = field;
        if (distinct.size() < mostDistinct)
            distinct.insert(field.first(std::min(field.size(), longestText)).toByteArray());
        if (field.isEmpty()) {
            ++contents.empty;
            continue;
        }
        FieldValue value = numbers.read(field);
        if (value.state != FieldState::Number) {
            value = clock.readTime(field);
            if (value.state != FieldState::Number) {
                addText(field, contents);
                continue;
            }
            ++clocks;
        }
        const bool isFirst = contents.numbers == 0;
        contents.smallest = isFirst ? value.value : std::min(contents.smallest, value.value);
        contents.largest = isFirst ? value.value : std::max(contents.largest, value.value);
        if (isFirst)
            contents.firstNumber = value.value;
        contents.hasFractions |= value.value != std::floor(value.value);
        ++contents.numbers;
        if (i < shape.headRows)
            values << value.value;
    }
    contents.isClock = clocks * 2 > contents.numbers;
    contents.distinct = distinct.size();
    measureSteps(values, contents);
    return contents;
}
