// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"
#include "batch/Terminal.h"

#include <QString>

/// Shows progress as a bar in the status line of a terminal.
class TerminalProgress : public Progress::IDisplay {
public:
    /// @param terminal  must outlive the display.
    explicit TerminalProgress(Terminal &terminal) : m_terminal(terminal) {}

    void open(const QString &label, int steps) override;
    void show(int stepsDone) override;
    void close() override;
    std::chrono::milliseconds interval() const override { return Progress::oneMovement; }

private:
    Terminal &m_terminal;
    QString m_label;
    int m_steps = 0;
};

/// The bar as text of at most 79 characters, so that it fits the narrowest usual terminal: the label, cut if it is
/// long, and the part that is done. Steps beyond the number of steps count as all done; without steps the bar is full.
QString progressBar(const QString &label, int stepsDone, int steps);
