// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commands/IMainWindow.h"
#include "model/Examination.h"

#include <utility>

/// Counts how often the picture would have been drawn.
class FakeWindow : public IMainWindow {
public:
    void addTableRow(const Examination &) override {}
    void removeTableRows(const QList<int> &) override {}
    void refreshPlainBackground() override {}
    void showImported() override {}
    int stimulusWidthPx() const override { return 0; }
    void redraw() override {}
    void updateAndRedraw() override
    {
        ++updates;
        drawings += holds == 0 ? 1 : 0;
        missed = missed || holds > 0;
    }
    void holdRedraw() override { ++holds; }
    void releaseRedraw() override
    {
        if (--holds == 0 && std::exchange(missed, false))
            ++drawings;
    }

    int updates = 0;  ///< asked for
    int drawings = 0; ///< done
    int holds = 0;
    bool missed = false;
};
