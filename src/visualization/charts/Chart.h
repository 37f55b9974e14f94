// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/TimeFrame.h"

#include <QColor>
#include <QList>
#include <QString>

/// One curve over time, a value for each bin.
struct ChartCurve {
    bool operator==(const ChartCurve &) const = default;

    QString name;
    QColor color;
    QList<double> bins;
    QList<double> deviations = {}; ///< around each bin; empty where there are none
};

/// What a chart shows, before it has a place on the canvas. All curves have `chart::binCount` bins.
struct Chart {
    bool operator==(const Chart &) const = default;

    TimeFrame frame = {};
    QList<ChartCurve> curves = {}; ///< back to front
    double top = 0;                ///< the value that reaches the full height; 0 or less: there is no curve
    double labelAtTop = 0;         ///< what the scale calls it
    QString unit = {};             ///< behind each label of the scale
    bool isStacked = false;        ///< filled curves stand on each other
};

/// How the curves of a chart are drawn. The steps are taken in this order.
struct ChartStyle {
    bool operator==(const ChartStyle &) const = default;

    bool curves = false;    ///< smoothed by a moving mean
    bool splines = false;   ///< a cubic spline through the points, a point for each column
    bool linesOnly = false; ///< outlines; deviations as a band
    bool legend = true;     ///< names of the curves, where there are several
};
