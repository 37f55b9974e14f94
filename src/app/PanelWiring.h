// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class controlWidget;

/// Connects the panels with each other: what one has calculated or read is there for another.
void connectPanels(controlWidget &control);
