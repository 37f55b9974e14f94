// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commands/IMainWindow.h"

#include <QPushButton>

/// What came of the last calculation, in the status bar. A click shows its warnings.
class NoticeLine : public QPushButton {
    Q_OBJECT
public:
    explicit NoticeLine(QWidget *parent = nullptr);

    void tell(const Notice &notice);

private:
    void showWarnings() const;

    QStringList m_warnings;
};
