// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QSplitter;
class QWidget;

/// Divides the width between table, picture and panels as at a first start: the table shows group and image, and what a
/// window gains later goes to the three by fixed shares.
void dividePanes(QSplitter &panes, int widthPx);

/// Puts the window and its panes where they were left, as large as they were.
/// @return false at a first start: nothing is changed.
bool restorePlace(QWidget &window, QSplitter &panes);

void rememberPlace(const QWidget &window, const QSplitter &panes);
