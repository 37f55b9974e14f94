// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

/// Lets the mouse wheel scroll a page of controls. A spin box, choice or slider under the mouse takes the wheel only
/// once it has the focus: values that change by the way would go unnoticed into the next result.
class WheelGuard : public QObject {
public:
    explicit WheelGuard(QObject *parent) : QObject(parent) {}

    /// Guards all controls inside the page.
    void guard(const QWidget &page);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
