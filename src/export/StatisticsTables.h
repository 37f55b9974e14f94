// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Examination.h"

#include <QLatin1StringView>
#include <QSet>

/// The columns that are written, by the keys that switch them on, see `storedFlags`.
using StatisticsColumns = QSet<QLatin1StringView>;

/// Headers end with ";".
QString generalStatisticsHeader(const StatisticsColumns &columns);

/// The row of a stream; nothing if it has not been measured. Each value stands in quotes with a decimal comma, speeds
/// with " px/ms", which is kept although the speeds are px per second: 1000 times what the unit says.
///
/// @param eye  word of the third column.
QString generalStatisticsRow(const Examination &examination, Eye eye, const StatisticsColumns &columns);

QString aoiStatisticsHeader(const StatisticsColumns &columns);

/// A row for each area that was measured in the stream, in the order of the areas. A point in the name of an area
/// becomes a comma, as in its values.
QString aoiStatisticsRows(const Examination &examination, Eye eye, const StatisticsColumns &columns);

/// Header and sizes of the areas in px^2 with a decimal point; empty without areas.
QString aoiAreaTable(const QList<AreaOfInterest> &areas);
