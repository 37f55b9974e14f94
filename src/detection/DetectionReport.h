// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/SamplePreparation.h"
#include "model/EyeData.h"

/// The lines of the standard detector's report. Each ends with a line break; durations are in ms. As in all its texts,
/// a smallest duration of 0 counts as not yet set.

/// How long the runs of invalid samples last, in the file and after short ones were bridged, two lines. A run that
/// reaches the end of the recording is counted in samples only.
QString invalidRunLines(const std::vector<WorkSample> &samples);

/// Count, durations (the mean rounded towards zero, 0 without fixations), and how many are longer than a second.
QString fixationDurationLine(const QList<Fixation> &fixations);

/// Count, durations, and how many have fewer than two samples. A saccade that lasts less than no time is described on
/// the debug channel.
QString saccadeDurationLine(const QList<Saccade> &saccades);
