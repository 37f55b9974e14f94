// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableLayout.h"

/// What a column holds, as far as its name tells.
enum class ColumnRole {
    Unknown,
    Time,
    SampleCount,
    GazeX,
    GazeY,
    Pupil,
    PupilHeight,
    Validity,
    Confidence,
    EyeWord,
    Subject,
    Group,
    Stimulus,
    Trial,
    OfEvents, ///< durations and numbers of fixations, saccades, words: no samples
    Other,    ///< known, and nothing that is read: targets, velocities, directions, camera coordinates
};

enum class NamedEye { None, Left, Right, Both };

struct ColumnMeaning {
    bool operator==(const ColumnMeaning &) const = default;

    ColumnRole role = ColumnRole::Unknown;
    NamedEye eye = NamedEye::None;
    std::optional<TableTimeUnit> timeUnit;
    std::optional<TablePlaceUnit> placeUnit;
    bool isGazeWord = false; ///< the name says gaze, point of regard or the like, not only x
};

/// Reads a name such as "x_left_pix", "GazePointLeftX" or "timestamp [ns]".
ColumnMeaning meaningOf(const QString &name);
