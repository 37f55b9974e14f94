// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

/// The forms of measures that the tables are required to have although the field defines them otherwise, in one place.
/// What the textbook form would be stands beside each; the tidy tables have that one.
namespace required {

/// Cuts off after two decimals of value + 0.005: half away from zero only above zero.
double twoDecimals(double value);

/// Events per minute, but the length of the frame divides twice. The textbook form is count * 60000 / spanMs.
double perMinute(int count, double spanMs);

/// Glances per sample in percent, but by whole numbers: 0 unless each sample is a glance. The textbook form divides as
/// real numbers.
double glanceProportion(int glances, qsizetype samples);

/// The first sample of a stream stands in the lists of positions whatever its time. The textbook form has the samples
/// of the frame alone.
inline constexpr bool firstSampleAlwaysListed = true;

/// The fewest events in a window of time, empty ones and the last, unfinished one left out; -1 where no window has
/// ended with an event. The first window ends after an hour, and each end is twice the one before. The textbook form
/// has windows of one minute.
///
/// @param timesMs  of the events, in the order in which they were found.
int fewestInWindow(const QList<qint64> &timesMs);

} // namespace required
