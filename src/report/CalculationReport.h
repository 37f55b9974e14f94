// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/ReportRecords.h"
#include "visualization/selection/DrawingContext.h"

/// What produced a picture, in three columns of lines that end in "<br>". Names out of the data are escaped.
struct CalculationReport {
    QString data;        ///< eyes, time frame, and how much there is of each examination, checked or not
    QString calculation; ///< parameters of the detectors and of what followed
    QString config;      ///< how each kind of data is drawn; a kind that is not drawn has no lines
};

CalculationReport calculationReport(const DrawingContext &context, const ReportRecords &records);

QString reportData(const DataModel &model, EyeMode eyes, TimeFrame frame);
QString reportCalculation(const ReportRecords &records);

/// The report as one table, black with white columns.
///
/// @param sceneWidth  of the picture, px.
QString reportTable(const CalculationReport &report, double sceneWidth);
