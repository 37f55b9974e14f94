// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TimeField.h"

#include <algorithm>

/// The number in the text, in or out of the range.
std::optional<double> TimeField::typed(const QString &input) const
{
    QString number = input.trimmed();
    if (number.endsWith(suffix()))
        number.chop(suffix().size());
    bool isNumber = false;
    const double value = locale().toDouble(number.trimmed(), &isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
}

QValidator::State TimeField::validate(QString &input, int &position) const
{
    const QValidator::State state = QDoubleSpinBox::validate(input, position);
    const std::optional<double> value = typed(input);
    const bool isBeyond = value && (*value > maximum() || *value < minimum());
    return state == QValidator::Invalid && isBeyond ? QValidator::Intermediate : state;
}

void TimeField::fixup(QString &input) const
{
    if (const std::optional<double> value = typed(input))
        input = textFromValue(std::clamp(*value, minimum(), maximum())) + suffix();
    else
        QDoubleSpinBox::fixup(input);
}
