// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDoubleSpinBox>

#include <optional>

/// A field for a time. A number beyond the range may be typed and becomes the nearest end of the range; a plain field
/// would drop the digit that leads there, and mean another time.
class TimeField : public QDoubleSpinBox {
    Q_OBJECT
public:
    using QDoubleSpinBox::QDoubleSpinBox;

    QValidator::State validate(QString &input, int &position) const override;
    void fixup(QString &input) const override;

private:
    std::optional<double> typed(const QString &input) const;
};
