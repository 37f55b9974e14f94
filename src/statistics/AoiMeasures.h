// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/EyeData.h"
#include "model/TimeFrame.h"
#include "statistics/AoiIndex.h"

/// The areas with what one stream did in them in the time frame: samples (`gaze...`), fixations (`fixation...`) and
/// glances. Samples count whether valid or not; fixations only if the frame holds them whole. One pass over the stream.
///
/// Samples and fixations go by the winding rule, glances by the odd-even rule. A frame below 1 ms leaves the measures
/// of samples and fixations at 0. The last glance, if the stream ends in it, ends where the one before ended, or at 0.
/// Times and shares without anything inside are 0.
///
/// @param index  of the same areas.
QList<AreaOfInterest> aoiStatistics(const EyeData &stream, const QList<AreaOfInterest> &areas, const AoiIndex &index,
                                    TimeFrame frame);
