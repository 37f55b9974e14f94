// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowPlace.h"

#include "settings/WindowMemory.h"

#include <QLayout>
#include <QSplitter>
#include <QTabBar>

#include <algorithm>

namespace {

constexpr int shares[] = {1, 4, 2}; // of the width: table, picture, panels

const QString windowName = QStringLiteral("Window");
const QString panesName = QStringLiteral("Panes");

/// So that no tab hides.
int tabsWidth(const QSplitter &panes)
{
    const auto *tabs = panes.widget(2)->findChild<QTabBar *>();
    return tabs ? tabs->sizeHint().width() : 0;
}

} // namespace

void dividePanes(QSplitter &panes, int widthPx)
{
    for (int pane = 0; pane < 3; ++pane)
        panes.setStretchFactor(pane, shares[pane]);
    constexpr int tableCharacters = 52;
    const int table = tableCharacters * panes.fontMetrics().averageCharWidth();
    const int panels = std::max(widthPx * shares[2] / (shares[0] + shares[1] + shares[2]), tabsWidth(panes));
    const QMargins around = panes.parentWidget()->layout()->contentsMargins();
    const int unused = around.left() + around.right() + 2 * panes.handleWidth();
    panes.setSizes({table, widthPx - unused - table - panels, panels});
}

bool restorePlace(QWidget &window, QSplitter &panes)
{
    if (!window.restoreGeometry(windowmemory::recall(windowName)))
        return false;
    panes.restoreState(windowmemory::recall(panesName));
    return true;
}

void rememberPlace(const QWidget &window, const QSplitter &panes)
{
    windowmemory::keep(windowName, window.saveGeometry());
    windowmemory::keep(panesName, panes.saveState());
}
