// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commands/IMainWindow.h"

#include <QPushButton>

#include <functional>

/// What came of the last calculation, in the status bar. A click shows its warnings.
class NoticeLine : public QPushButton {
    Q_OBJECT
public:
    explicit NoticeLine(QWidget *parent = nullptr);

    /// Whether a mode draws data of this kind: what is made and not drawn would be missed in the picture.
    void setDrawnCheck(std::function<bool(DataKind)> isDrawn) { m_isDrawn = std::move(isDrawn); }

    void tell(const Notice &notice);
    /// It is no longer so. Another notice that came later stays.
    void withdraw(const Notice &notice);
    /// What is drawn has changed.
    void refresh();

private:
    void showWarnings() const;

    Notice m_notice;
    std::function<bool(DataKind)> m_isDrawn;
};
