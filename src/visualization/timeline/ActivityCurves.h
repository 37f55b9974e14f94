// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Eye.h"

#include <QList>

#include <functional>

class DataModel;

/// How busy the eyes were along the timeline, one value per pixel column of it.
struct ActivityCurves {
    QList<double> samples;   ///< number of samples
    QList<double> distances; ///< length of the way from sample to sample, px

    bool operator==(const ActivityCurves &) const = default;
};

/// Activity of all fixations of the checked examinations in the eyes that the mode selects. Each fixation counts as a
/// whole, in the column of the time midway between its first and last sample; one outside the columns, or without
/// samples, does not count. The time frame plays no part.
///
/// @param columns  length of both lists; none below 1.
/// @param timeToPixel  column, from 0, of a time in ms; called once per fixation.
ActivityCurves activityCurves(const DataModel &model, EyeMode mode, int columns,
                              const std::function<int(qint64)> &timeToPixel);
