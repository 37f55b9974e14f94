// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WheelGuard.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTabBar>

void WheelGuard::guard(const QWidget &page)
{
    for (QWidget *control : page.findChildren<QWidget *>()) {
        const bool takesWheel = qobject_cast<QAbstractSpinBox *>(control) || qobject_cast<QComboBox *>(control) ||
                                qobject_cast<QAbstractSlider *>(control) || qobject_cast<QTabBar *>(control);
        if (!takesWheel || qobject_cast<QScrollBar *>(control))
            continue;
        control->setFocusPolicy(Qt::StrongFocus); // the wheel gives no focus
        control->installEventFilter(this);
    }
}

bool WheelGuard::eventFilter(QObject *watched, QEvent *event)
{
    const auto *control = qobject_cast<QWidget *>(watched);
    if (event->type() == QEvent::ShortcutOverride && qobject_cast<QAbstractSpinBox *>(watched)) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
            event->ignore(); // what was typed is a command by now
            return true;
        }
    }
    if (event->type() != QEvent::Wheel || !control || control->hasFocus())
        return QObject::eventFilter(watched, event);
    event->ignore(); // so that the page gets it
    return true;
}
