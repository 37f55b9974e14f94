#pragma once

struct BatchReport;
struct RunState;

/// Puts the data quality of each recording that was used into the report, for the eyes of the run and its time frame.
/// What is not defined is null.
void addQuality(const RunState &run, BatchReport &report);
