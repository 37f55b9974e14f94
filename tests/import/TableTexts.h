// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <cmath>

/// Tables of other programs for tests: gaze at 250 Hz on a screen of 1280 by 1024 pixels.
namespace tabletexts {

struct Form {
    QByteArray names = "time_ms,left_x_px,left_y_px,right_x_px,right_y_px";
    char separator = ',';
    char decimal = '.';
    int samples = 500;
    int timeStep = 4;
    int subjects = 1; ///< above 1: each has its samples, and a first column tells whose
};

inline QByteArray number(double value, char decimal)
{
    return QByteArray::number(value, 'f', 2).replace('.', decimal);
}

inline QByteArray table(const Form &form)
{
    QByteArray text = (form.subjects > 1 ? QByteArray("subject,") : QByteArray()) + form.names + '\n';
    text.replace(',', form.separator);
    for (int subject = 0; subject < form.subjects; ++subject) {
        for (int i = 0; i < form.samples; ++i) {
            const double x = 200 + 80 * (i / 50 % 10) + std::sin(i);
            const double y = 300 + 60 * (i / 50 % 5) + std::cos(i);
            if (form.subjects > 1)
                text += 'S' + QByteArray::number(subject + 1) + form.separator;
            text += QByteArray::number(1000 + form.timeStep * i);
            for (const double place : {x, y, x + 2, y})
                text += form.separator + number(place, form.decimal);
            text += '\n';
        }
    }
    return text;
}

} // namespace tabletexts
