// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/EyeData.h"
#include "model/TimeFrame.h"
#include "statistics/AoiIndex.h"
#include "statistics/Measure.h"

#include <span>

/// What one stream did in one area of interest, as the field defines it. Only fixations that lie wholly in the frame
/// take part, and only valid samples. Both go by the winding rule; the left and upper edge of an area belong to it.
///
/// A visit is a run of fixations in the area, which any fixation elsewhere ends. A saccade leads from one fixation to
/// the next, whatever the detector found between them.
struct AoiVisits {
    bool operator==(const AoiVisits &) const = default;

    int visits = 0;
    int fixations = 0;
    std::optional<qint64> firstFixationMs; ///< from the start of the frame to the first fixation inside
    std::optional<qint64> firstFixationDurationMs;
    qint64 dwellMs = 0;        ///< sum of the durations of the fixations inside
    qint64 allFixationsMs = 0; ///< of all fixations, inside and outside
    qint64 visitMs = 0;        ///< sum over the visits, from the first sample to the last
    int hitSamples = 0;
    int validSamples = 0; ///< inside and outside
    int saccadesInto = 0;
    int saccadesOutOf = 0;
};

/// For each area of the index, in its order.
QList<AoiVisits> aoiVisits(const EyeData &stream, const AoiIndex &index, TimeFrame frame);

/// The columns of the table of visits.
std::span<const Measure<AoiVisits>> aoiVisitMeasures();
