#pragma once

#include "commands/IMainWindow.h"
#include "model/Examination.h"

/// Counts how often the picture would have been drawn.
class FakeWindow : public IMainWindow {
public:
    void addTableRow(const Examination &) override {}
    void removeTableRows(const QList<int> &) override {}
    void refreshPlainBackground() override {}
    void showImported() override {}
    int stimulusWidthPx() const override { return 0; }
    void redraw() override {}
    void updateAndRedraw() override { ++updates; }

    int updates = 0;
};
