// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/panel/Timeline.h"

#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

/// What the tests of the timeline share.
namespace timeline {

using Span = QPair<qint64, qint64>; ///< start and end in ms

constexpr int stripWidth = 503; ///< one pixel for each ms of a span of 500 ms, so that the time t is in column t + 1
constexpr int stripHeight = 50;

/// A timeline of 500 ms with the frame from 100 to 300 ms, that is column 101 to 301, between two other controls.
struct Window : QWidget {
    Window()
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(&before);
        layout->addWidget(&strip);
        layout->addWidget(&after);
        strip.setFixedSize(stripWidth, stripHeight);
        strip.setTimeSpan(500);
        strip.setSliderTimeframe(100, 300);
        connect(&strip, &Timeline::reinsert_widget, this,
                [layout](QWidget *widget) { layout->insertWidget(1, widget); });
    }

    bool showAndActivate()
    {
        show();
        activateWindow();
        return QTest::qWaitForWindowActive(this);
    }

    QLineEdit before;
    QLineEdit after;
    Timeline strip;
};

inline Span frameOf(const Timeline &strip)
{
    return {strip.start(), strip.end()};
}

inline QPoint at(int x)
{
    return {x, 25};
}

} // namespace timeline
