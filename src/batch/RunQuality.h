// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "table/StudyQuality.h"

struct BatchReport;
struct RunState;

/// The data quality of each recording that was read, for the eyes of the run and its time frame.
QList<StreamQuality> qualityOf(const RunState &run);

/// Puts it into the report, to the recordings. What is not defined is null.
void addQuality(const QList<StreamQuality> &quality, BatchReport &report);
