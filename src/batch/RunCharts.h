#pragma once

struct RunState;

/// Writes the charts that were asked for.
void exportCharts(RunState &run);
