// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

struct RunState;

/// Writes the charts that were asked for.
void exportCharts(RunState &run);

/// Writes the chord diagram that was asked for.
void exportDiagram(RunState &run);
